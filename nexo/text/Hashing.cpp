#include "nexo/text/Hashing.h"

#include "nexo/text/FileBlocks.h"
#include "nexo/text/Md5.h"

CString nexo::HexText(const nexo::Md5::Digest& digest) {
    constexpr int count = 2 * static_cast<int>(sizeof(nexo::Md5::Digest));
    // Two plain loops without tables, which the compiler turns into vector code.
    unsigned char nibbles[count];
    for (std::size_t i = 0; i < digest.size(); ++i) {
        nibbles[2 * i] = digest[i] >> 4;
        nibbles[2 * i + 1] = digest[i] & 15;
    }
    CString text;
    wchar_t* out = text.GetBufferSetLength(count);
    for (int i = 0; i < count; ++i) out[i] = nibbles[i] + (nibbles[i] > 9 ? L'a' - 10 : L'0');
    return text;
}

CString CHashing::md5(const CString& s) {
    nexo::Md5 md5;
    md5.UpdateUnits(s.View());
    return nexo::HexText(md5.Finish());
}

CString CHashing::md5_file(const CString& path) {
    nexo::Md5 md5;
    const auto take = [&](std::string_view block) { md5.Update(block.data(), block.size()); };
    return nexo::ReadFileBlocks(path, take) == 0 ? nexo::HexText(md5.Finish()) : CString();
}
