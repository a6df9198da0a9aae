#include "nexo/tree/AsdFormat.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "nexo/text/StrUtil.h"
#include "nexo/tree/TreeItem.h"
#include "nexo/tree/Node.h"

namespace {

constexpr unsigned int kCodePage = 1252;
constexpr wchar_t kSeparator = L':';
constexpr int kNoIndent = -1;
constexpr std::wstring_view kBatchStart = L"[LOS]";
constexpr std::wstring_view kBatchEnd = L"[ENDE_LOS]";

constexpr wchar_t kProjectData[] = L"PROJEKTDATEN";
constexpr wchar_t kRemarks[] = L"BEMERKUNGEN";
constexpr wchar_t kAddress[] = L"ANSCHADR";
constexpr wchar_t kCoverText[] = L"ANSCHTEXT";

// Every section ends with a line end, and so does the line before the first: none has to be added between.
void AddSection(CString& text, const wchar_t* name, const CString& content) {
    if (!content.IsEmpty()) text.AppendFormat(L"[%s]\r\n%s\r\n[ENDE_%s]\r\n", name, content, name);
}

// Keeps nested blocks from being read again and again without an end in sight.
class RereadLimit {
public:
    explicit RereadLimit(std::size_t characters)
        : m_maxNodes(characters), m_maxReread(4 * characters + 1'048'576) {}

    // Counts the newest batch, read from `begin` to `end`; false once it is too much.
    bool Allows(const CArray<CNode*>& batches, std::size_t begin, std::size_t end) {
        const bool again = begin < m_covered;
        if (again) m_reread += std::min(end, m_covered) - begin;
        m_covered = std::max(m_covered, end);
        if (!again) return true;  // text that is read once can not hold more nodes than characters
        for (; m_counted < batches.GetSize(); ++m_counted) m_nodes += CountNodes(batches.GetAt(m_counted));
        return m_nodes <= m_maxNodes && m_reread <= m_maxReread;
    }

private:
    static std::size_t CountNodes(const CNode* top) {
        std::size_t count = 0;
        for (std::vector<const CNode*> waiting = {top}; !waiting.empty(); ++count) {
            const CNode* node = waiting.back();
            waiting.pop_back();
            for (unsigned int i = 0; const CNode* child = node->GetChild(i); ++i) waiting.push_back(child);
        }
        return count;
    }

    std::size_t m_maxNodes;
    std::size_t m_maxReread;
    std::size_t m_covered = 0;  // where the text that was read at least once ends
    std::size_t m_reread = 0;
    std::size_t m_nodes = 0;
    INT_PTR m_counted = 0;  // batches whose nodes are in m_nodes
};

}  // namespace

std::optional<std::wstring_view> nexo::asd::FindSection(std::wstring_view text, std::wstring_view name) {
    const std::wstring startMarker = L"[" + std::wstring(name) + L"]";
    const std::wstring endMarker = L"[ENDE_" + std::wstring(name) + L"]";
    const std::size_t begin = text.find(startMarker);
    if (begin == text.npos) return std::nullopt;
    text.remove_prefix(begin + startMarker.size());
    if (text.starts_with(L'\r')) text.remove_prefix(1);
    if (text.starts_with(L'\n')) text.remove_prefix(1);
    const std::size_t end = text.find(endMarker);
    if (end == text.npos) return std::nullopt;
    std::wstring_view content = text.substr(0, end);
    if (!content.ends_with(L'\n')) return content;
    content.remove_suffix(1);
    if (content.ends_with(L'\r')) content.remove_suffix(1);
    return content;
}

CAsdFormat::CAsdFormat() = default;

CAsdFormat::~CAsdFormat() {
    Reset();
}

void CAsdFormat::Reset() {
    for (const CNode* node : m_batchNodes) delete node;
    m_batchNodes.RemoveAll();
    m_projectData.RemoveAll();
    m_remarks.Empty();
    m_address.Empty();
    m_coverText.Empty();
    m_readError = ReadError();
}

int CAsdFormat::ReadFromFile(const wchar_t* path) {
    CString text;
    return moxStrUtil::readStringBufferFromFile(text, path, kCodePage, 0) ? ReadFromString(text) : 0;
}

int CAsdFormat::ReadFromString(const CString& text) {
    const CString source = text;  // it may be one of this document's own texts
    Reset();
    using nexo::asd::FindSection;
    if (const auto found = FindSection(source.View(), kProjectData))
        nexo::asd::SplitProjectData(*found, m_projectData);
    m_remarks = FindSection(source.View(), kRemarks).value_or(L"");
    m_address = FindSection(source.View(), kAddress).value_or(L"");
    m_coverText = FindSection(source.View(), kCoverText).value_or(L"");
    return ReadBatches(source);
}

int CAsdFormat::ReadBatches(const CString& text) {
    const std::wstring_view all = text.View();
    RereadLimit limit(all.size());
    std::size_t next = 0;
    for (;;) {
        const std::size_t begin = all.find(kBatchStart, next);
        if (begin == all.npos) return 1;
        const std::size_t end = all.find(kBatchEnd, begin + kBatchStart.size());
        if (end == all.npos) return Fail(begin, L"[ENDE_LOS] not found!");
        auto node = std::make_unique<CNode>(L"");
        const wchar_t* cursor = text.GetString() + begin;
        try {
            node->ReadFromMem(cursor, kSeparator);
        } catch (const CExcRead& error) {
            return Fail(begin + error.GetOffset(), error.GetMessage());
        }
        m_batchNodes.Add(node.get());
        node.release();
        if (!limit.Allows(m_batchNodes, begin, static_cast<std::size_t>(cursor - text.GetString())))
            return Fail(begin, L"[LOS] nested too often!");
        next = end + kBatchEnd.size();
    }
}

int CAsdFormat::Fail(std::size_t offset, const CString& message) {
    m_readError = {static_cast<int>(offset), message};
    return 0;
}

void CAsdFormat::WriteToString(CString& out) const {
    CString text(L"VERSION 2.0\r\n");
    if (m_projectData.GetSize() > 0)
        AddSection(text, kProjectData, nexo::asd::JoinProjectData(m_projectData));
    AddSection(text, kRemarks, m_remarks);
    AddSection(text, kAddress, m_address);
    AddSection(text, kCoverText, m_coverText);

    const int head = text.GetLength();
    std::size_t size = static_cast<std::size_t>(head);
    for (const CNode* node : m_batchNodes) size += node->GetSizeOfBranch(kNoIndent);
    if (size > INT_MAX) throw std::bad_alloc();
    wchar_t* cursor = text.GetBuffer(static_cast<int>(size)) + head;
    for (const CNode* node : m_batchNodes) node->WriteToMem(cursor, kNoIndent, kSeparator);
    text.ReleaseBuffer(static_cast<int>(size));
    out = std::move(text);
}

int CAsdFormat::WriteToFile(const wchar_t* path, int flag) const {
    CString text;
    WriteToString(text);
    return moxStrUtil::writeStringBufferToFile(text, path, false, kCodePage, flag != 0) ? 1 : 0;
}

void CAsdFormat::SetBatchNodes(CArray<CNode*>& nodes) {
    if (&nodes == &m_batchNodes) return;
    std::vector<CNode*> kept(nodes.begin(), nodes.end());
    std::ranges::sort(kept);
    for (CNode* node : m_batchNodes)
        if (!std::ranges::binary_search(kept, node)) delete node;
    m_batchNodes = std::move(nodes);
}
