#ifndef NEXO_TREE_ASDFORMAT_H
#define NEXO_TREE_ASDFORMAT_H

// ASD documents: one project's exchange data, as text in code page 1252. docs/asd-format.md describes the
// text. The articles of a batch are read and stored with the functions of AsdItem.h.

#include <cstddef>
#include <optional>
#include <string_view>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"
#include "nexo/tree/AsdProjectData.h"

class CNode;

/// One ASD document in memory: project data, three free texts and the batches ("LOS" nodes), which it owns.
///
/// A new document is empty. For one thread at a time; not copyable, because nodes have one owner.
class NEXO_API CAsdFormat {
public:
    CAsdFormat();
    ~CAsdFormat();
    CAsdFormat(const CAsdFormat&) = delete;
    CAsdFormat& operator=(const CAsdFormat&) = delete;

    /// Deletes the batches and empties project data and texts.
    void Reset();

    /// Replaces the document by that of a file; 0 when the file can not be read (the document stays as it
    /// is) or as ReadFromString says.
    int ReadFromFile(const wchar_t* path);

    /// Replaces the document by that of a text. O(characters).
    ///
    /// Returns 0 at a batch that has no end or whose text is no tree: the other sections and the batches
    /// before it are then in the document, and GetReadError tells the place. Blocks nested in blocks are
    /// batches of their own too; 0 as well when such blocks would be read again and again: once more nodes
    /// were built than the text has characters, or 4 times its characters (+ 1,048,576) were read twice.
    int ReadFromString(const CString& text);

    /// Writes the document's text; throws std::invalid_argument, with `out` unchanged, when the project data
    /// is not empty and holds fewer fields than its block (32, or 52 from 51 on).
    void WriteToString(CString& out) const;

    /// Writes the document to a file in code page 1252; `flag` set: in the shifted form. The result is that
    /// of the text-file writer: 0 when the file can not be written. Throws like WriteToString.
    int WriteToFile(const wchar_t* path, int flag) const;

    /// The project data, for reading and changing.
    [[nodiscard]] CAsdProjectData& GetProjectData() { return m_projectData; }
    [[nodiscard]] const CAsdProjectData& GetProjectData() const { return m_projectData; }

    /// The batch nodes in file order; the document owns them.
    [[nodiscard]] CArray<CNode*>& GetBatchNodes() { return m_batchNodes; }
    [[nodiscard]] const CArray<CNode*>& GetBatchNodes() const { return m_batchNodes; }

    /// Takes over the nodes in order and empties `nodes`; deletes the current ones that are not among them.
    void SetBatchNodes(CArray<CNode*>& nodes);

    [[nodiscard]] const CString& GetRemarks() const { return m_remarks; }
    void SetRemarks(const CString& text) { m_remarks = text; }
    [[nodiscard]] const CString& GetAddress() const { return m_address; }
    void SetAddress(const CString& text) { m_address = text; }
    [[nodiscard]] const CString& GetCoverText() const { return m_coverText; }
    void SetCoverText(const CString& text) { m_coverText = text; }

    /// Where and why the last ReadFromString stopped: code units from the start of its text, and a message.
    struct ReadError {
        int offset = -1;  ///< -1: it read everything
        CString message;
    };
    [[nodiscard]] const ReadError& GetReadError() const { return m_readError; }

private:
    int ReadBatches(const CString& text);
    int Fail(std::size_t offset, const CString& message);

    CArray<CNode*> m_batchNodes;
    CAsdProjectData m_projectData;
    CString m_remarks;
    CString m_address;
    CString m_coverText;
    ReadError m_readError;
};

namespace nexo::asd {

/// The content of the section `name`: the text between its first start marker and the end marker behind it,
/// without the line end next to each marker. Without both markers there is no such section.
[[nodiscard]] NEXO_API std::optional<std::wstring_view> FindSection(std::wstring_view text,
                                                                    std::wstring_view name);

}  // namespace nexo::asd

#endif
