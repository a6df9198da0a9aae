// The text form of nodes in strings, files and on the clipboard.

#include <cwchar>
#include <memory>

#include "nexo/platform/Clipboard.h"
#include "nexo/text/StrUtil.h"
#include "nexo/tree/ItemAccess.h"
#include "nexo/tree/TreeDumper.h"
#include "nexo/tree/TreeReader.h"
#include "nexo/tree/TreeWriter.h"

namespace {

constexpr wchar_t kNodeFormat[] = L"MOXTEL_TREEITEM_NODE";
constexpr wchar_t kLeafFormat[] = L"MOXTEL_TREEITEM_LEAF";
constexpr wchar_t kBranchFormat[] = L"UPRONODE";

constexpr wchar_t kFileSeparator = L':';
constexpr int kNoTabs = -1;

/// Code page of unicode files for which none is given: UTF-8 with its mark.
constexpr unsigned int kDefaultUnicode = 65001;

/// The text form of an item; false when it is too long for a text.
bool WriteItem(const CTreeItem& item, int indent, wchar_t separator, CString& out) {
    const unsigned long size = item.GetSizeOfBranch(indent);
    if (size > nexo::kMaxTextLength) return false;
    CString text;
    wchar_t* cursor = text.GetBuffer(static_cast<int>(size));
    nexo::AdviseLargePages(cursor, (size + 1) * sizeof(wchar_t));
    const unsigned long written = item.WriteToMem(cursor, indent, separator);
    text.ReleaseBuffer(static_cast<int>(written));
    out = std::move(text);
    return written > 0;
}

}  // namespace

unsigned long CNode::GetSizeOfBranch(int indent) const {
    return static_cast<unsigned long>(nexo::tree::SizeOfBranch(*this, indent));
}

unsigned long CNode::WriteToMem(wchar_t*& cursor, int indent, wchar_t separator) const {
    wchar_t* const start = cursor;
    cursor = nexo::tree::WriteBranch(*this, start, indent, separator);
    *cursor = 0;
    return static_cast<unsigned long>(cursor - start);
}

unsigned long CNode::ReadFromMem(const wchar_t*& cursor, wchar_t separator) {
    return nexo::tree::ReadNode(*this, cursor, separator);
}

void CNode::Dump(int indent) const {
    nexo::tree::TreeDumper().DumpNode(*this, indent);
}

void CNode::OutputDebugStringW() const {
    Dump(0);
}

bool CNode::WriteToString(CString& out, bool, bool indent, bool, unsigned int, wchar_t separator) const {
    return WriteItem(*this, indent ? 0 : kNoTabs, separator, out);
}

bool CNode::WriteToFileConst(const wchar_t* path, bool flag1, bool indent, bool unicode,
                             unsigned int codePage) const {
    if (unicode && codePage == 0) codePage = kDefaultUnicode;
    CString text;
    if (!WriteToString(text, false, indent, false, codePage, kFileSeparator)) return false;
    return moxStrUtil::writeStringBufferToFile(text, path, unicode, codePage, flag1);
}

// The separator is ignored on purpose: the readers of files expect ":".
bool CNode::WriteToFile(const wchar_t* path, bool flag1, bool indent, bool unicode, unsigned int codePage,
                        wchar_t) {
    return WriteToFileConst(path, flag1, indent, unicode, codePage);
}

CNode* CNode::ReadFromFile(const wchar_t* path, bool shifted, wchar_t separator, bool* isUnicode,
                           bool* hasDoubleTab, unsigned int codePage) {
    wchar_t* buffer = nullptr;
    if (!moxStrUtil::readStringBufferFromFile(buffer, path, codePage, shifted)) return nullptr;
    const std::unique_ptr<wchar_t[]> text(buffer);
    auto node = std::make_unique<CNode>();
    const wchar_t* cursor = text.get();
    node->ReadFromMem(cursor, separator);
    if (isUnicode) *isUnicode = moxStrUtil::isUnicodeFile(path, shifted);
    if (hasDoubleTab) *hasDoubleTab = std::wcsstr(text.get(), L"\t\t") != nullptr;
    return node.release();
}

CNode* CNode::ReadFromFile(const wchar_t* path, bool shifted, wchar_t separator, bool* isUnicode,
                           unsigned int codePage) {
    return ReadFromFile(path, shifted, separator, isUnicode, nullptr, codePage);
}

// Clipboard

bool CNode::ClipboardOut(bool asText, bool indent) const {
    CString text;
    if (!WriteItem(*this, indent ? 0 : kNoTabs, kFileSeparator, text)) return false;
    nexo::platform::ClipboardSession clipboard;
    if (!clipboard || !clipboard->Empty()) return false;
    const unsigned int format =
        asText ? nexo::platform::kClipboardUnicodeText : clipboard->RegisterFormat(kBranchFormat);
    clipboard.SetText(format, text.View());
    return true;
}

bool CTreeItem::WriteToClipBoard(wchar_t separator) const {
    CString text;
    if (!WriteItem(*this, kNoTabs, separator, text)) return false;
    nexo::platform::ClipboardSession clipboard;
    if (!clipboard || !clipboard->Empty()) return false;
    return clipboard.SetText(clipboard->RegisterFormat(GetItemType() == 1 ? kNodeFormat : kLeafFormat),
                             text.View());
}

bool CTreeItem::IsClipboardAvailable() {
    const auto clipboard = nexo::platform::GetClipboard();
    return clipboard->IsAvailable(clipboard->RegisterFormat(kNodeFormat)) ||
           clipboard->IsAvailable(clipboard->RegisterFormat(kLeafFormat));
}

CTreeItem* CTreeItem::ReadFromClipBoard(wchar_t separator) {
    CString text;
    std::unique_ptr<CTreeItem> item;
    {
        nexo::platform::ClipboardSession clipboard;
        if (!clipboard) return nullptr;
        if (clipboard.GetText(clipboard->RegisterFormat(kNodeFormat), text)) {
            item = std::make_unique<CNode>();
        } else if (clipboard.GetText(clipboard->RegisterFormat(kLeafFormat), text)) {
            item = std::make_unique<CLeaf>();
        } else {
            return nullptr;
        }
    }
    const wchar_t* cursor = text;
    item->ReadFromMem(cursor, separator);
    return item.release();
}
