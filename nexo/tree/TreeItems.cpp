#include "nexo/tree/TreeItems.h"

#include <memory>

#include "nexo/base/CharClass.h"
#include "nexo/base/Format.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/UserInterface.h"
#include "nexo/text/LibraryText.h"
#include "nexo/text/StrUtil.h"
#include "nexo/tree/Node.h"

namespace {

void ShowReadError(const CString& path, const CString& cause) {
    const CString title = nexo::TranslateLibraryText(L"Fehler beim Lesen der Datei:");
    const CString text = cause.IsEmpty() ? nexo::Formatted(L"%s\n%s", title, path)
                                         : nexo::Formatted(L"%s\n%s\nError: %s", title, path, cause);
    nexo::platform::ShowError(text.View());
}

/// Files whose name ends so are read in the shifted mode.
bool IsShiftedName(const CString& path) {
    return nexo::ToLower(moxStrUtil::GetLastChar(path)) == L'x';
}

}  // namespace

int TreeItems::ReadFromFile(const CString& path, CNode*& out, bool* isUnicode, unsigned int codePage,
                            int silent) {
    CString cause;
    try {
        if (CNode* const node = CNode::ReadFromFile(path, IsShiftedName(path), L':', isUnicode, codePage)) {
            out = node;
            return 1;
        }
        const unsigned int error = nexo::platform::LastError();
        if (error != nexo::platform::kErrorSuccess) cause.Format(L"%d", error);
    } catch (const CExcRead& error) {
        cause = error.GetMessage();
    }
    if (!silent) ShowReadError(path, cause);
    return 0;
}

int TreeItems::ReadFromFile(const CString& path, CNode*& out, int silent) {
    return ReadFromFile(path, out, nullptr, 0, silent);
}

CNode* TreeItems::ReadFromFile(const CString& path, int silent) {
    CNode* node = nullptr;
    return ReadFromFile(path, node, silent) ? node : nullptr;
}

int TreeItems::ReadFromString(const CString& text, CNode*& out, int silent) {
    if (text.IsEmpty()) return 0;
    auto node = std::make_unique<CNode>();
    try {
        const wchar_t* cursor = text;
        node->ReadFromMem(cursor, L':');
    } catch (const CExcRead& error) {
        if (!silent) nexo::platform::ShowError(error.GetMessage());
        out = nullptr;
        return 0;
    }
    out = node.release();
    return 1;
}

CNode* TreeItems::ReadFromString(const CString& text, int silent) {
    CNode* node = nullptr;
    return ReadFromString(text, node, silent) ? node : nullptr;
}
