#include "nexo/diag/ErrorText.h"

#include "nexo/base/Format.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/UserInterface.h"

CString FormatFileLineMessage(const wchar_t* message, const wchar_t* file, int line) {
    return nexo::Formatted(L"%s\nFile: %s\nLine: %ld", message, file, line);
}

void ReportError(const wchar_t* message, const char* file, int line) {
    const CString name = nexo::platform::WideFromUtf8(file ? file : "");
    const CString text = nexo::Formatted(L"Error: %s\nFile: %s\nLine: %u", message ? message : L"", name,
                                         static_cast<unsigned>(line));
    nexo::platform::ShowError(text.View());
}
