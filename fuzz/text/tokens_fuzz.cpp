// CTokenizer, GetToken and substr equal their slow references.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/text/text_reference.h"
#include "nexo/text/SubStr.h"
#include "nexo/text/Tokenizer.h"

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

void CheckTokenizer(const std::wstring& text, const std::wstring& delimiter, bool keepEmpty) {
    reference::Tokens tokens = {text, delimiter, keepEmpty, 0};
    CTokenizer tokenizer(CString(text.c_str()), CString(delimiter.c_str()), keepEmpty);
    Check(tokenizer.GetCount() == tokens.Count());
    std::wstring want = L"?";
    CString token(L"?");
    for (std::size_t i = 0; i < text.size() + 4; ++i) {
        Check(tokenizer.GetNext(token) == static_cast<int>(tokens.Next(want)));
        Check(token == want.c_str());
        if (i % 3 == 0) Check(tokenizer.Contains(token, 1) == tokenizer.Contains(token, 0));
    }
}

void CheckGetToken(const std::wstring& text, const std::wstring& delimiter) {
    if (delimiter.empty()) return;
    std::size_t from = 0;
    std::wstring buffer = text;
    for (unsigned int index = 0; from != text.npos; ++index) {
        const std::size_t found = text.find(delimiter, from);
        const std::wstring want = text.substr(from, found == text.npos ? found : found - from);
        Check(GetToken(text.c_str(), delimiter.c_str(), index) == want.c_str());
        buffer = text;
        Check(GetToken(buffer.c_str(), delimiter.c_str(), index, buffer.data()) == 1 &&
              want == buffer.c_str());
        from = found == text.npos ? found : found + delimiter.size();
        if (from == text.npos) Check(!GetToken(text.c_str(), delimiter.c_str(), index + 1, buffer.data()));
    }
}

void CheckSubstr(const std::wstring& text, wchar_t separator) {
    std::size_t from = 0;
    for (int n = 1; from != text.npos; ++n) {
        const std::wstring want =
            text.substr(from, text.find_first_of(std::wstring{separator, L'\n'}, from) - from);
        std::wstring out(text.size() + 1, L'?');
        Check(substr(text.c_str(), n, separator, out.data()) == 1 && want == out.c_str());
        const std::size_t found = text.find(separator, from);
        from = found == text.npos ? found : found + 1;
        if (from == text.npos) Check(substr(text.c_str(), n + 1, separator, out.data()) == 0 && !out[0]);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    reference::Input input(data, size);
    const std::wstring delimiter = input.Text(4), text = input.Rest();
    if (text.size() > 500) return 0;
    CheckTokenizer(text, delimiter, true);
    CheckTokenizer(text, delimiter, false);
    CheckGetToken(text, delimiter);
    CheckSubstr(text, delimiter.empty() ? L':' : delimiter[0]);
    return 0;
}
