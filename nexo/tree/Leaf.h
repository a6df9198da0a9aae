#ifndef NEXO_TREE_LEAF_H
#define NEXO_TREE_LEAF_H

#include "nexo/base/Containers.h"
#include "nexo/tree/TreeItem.h"

/// A named value: a text of one or more sub-values joined by a separator, ":" unless said otherwise.
///
/// The value holds no type; whoever reads it chooses. Sub-values count from 1 and are written and read in the
/// record format of nexo/text/Record.h, which escapes separators and line ends. Reading and building values
/// step by step (Init..., ...First..., ...Next..., ...Last..., Exit...) goes through the one reader and the
/// one builder of moxSubStrUtil, shared by all leaves: what is begun on one leaf may be finished on another.
/// With these, values of all trees together are for one thread at a time.
class NEXO_API CLeaf : public CTreeItem {
public:
    /// With `raw` the value is kept as it stands, otherwise it is escaped as a single sub-value. Null and ""
    /// give an empty value.
    explicit CLeaf(const wchar_t* name = nullptr, const wchar_t* value = nullptr, bool raw = false);
    CLeaf(const CLeaf& other);
    ~CLeaf() override;
    /// Takes name and value; the leaf keeps its place.
    CLeaf& operator=(const CLeaf& other);

    [[nodiscard]] int GetItemType() const override;
    [[nodiscard]] unsigned long GetSizeOfBranch(int indent) const override;
    /// One line: name, separator, value, CR LF.
    unsigned long WriteToMem(wchar_t*& cursor, int indent, wchar_t separator) const override;
    /// Reads one line. With the separator "<" the text up to "<" or a line end is the value, and the cursor
    /// stays there.
    unsigned long ReadFromMem(const wchar_t*& cursor, wchar_t separator) override;
    /// One line: "- name: value", every U+00AE shown as ":".
    void Dump(int indent) const override;

    /// The whole value as it is stored.
    [[nodiscard]] const CString& GetRawData() const noexcept { return value_; }
    void SetRawData(const CString& value);

    // Reading step by step

    /// Starts the shared reader on this value; false when the value is empty.
    bool InitGetValues(wchar_t separator = L':') const;
    /// These read a sub-value as CMoxSubStr::Get() does: true while more may follow. A number is left
    /// unchanged by an empty sub-value unless `force` is set.
    bool GetFirstValue(int& value, wchar_t separator = L':', bool force = true) const;
    bool GetFirstValue(double& value, wchar_t separator = L':', bool force = true) const;
    bool GetFirstValue(CString& value, wchar_t separator = L':') const;
    bool GetNextValue(int& value, bool force = true) const;
    bool GetNextValue(double& value, bool force = true) const;
    bool GetNextValue(bool& value, bool force = true) const;
    bool GetNextValue(CString& value) const;

    // Reading by index

    /// The first sub-value; "" or 0 when there is none.
    [[nodiscard]] CString GetOnlyValue(wchar_t separator = L':') const;
    [[nodiscard]] int GetOnlyValueI(wchar_t separator = L':', bool force = true) const;
    [[nodiscard]] double GetOnlyValueD(wchar_t separator = L':', bool force = true) const;

    /// Sub-value `index` (below 1: the first), or the default when the value is empty or has fewer. An empty
    /// sub-value read as a number is 0. A loop over all indices costs one pass. These use the shared reader.
    [[nodiscard]] CString GetStrLeafValue(int index, wchar_t separator, const wchar_t* defaultValue) const;
    [[nodiscard]] int GetIntLeafValue(int index, wchar_t separator, int defaultValue) const;
    [[nodiscard]] double GetDblLeafValue(int index, wchar_t separator, double defaultValue) const;
    /// As GetStrLeafValue; the text stays until the next call of this function, on any leaf or node.
    [[nodiscard]] const wchar_t* GetStrLeafValuePtr(int index, wchar_t separator,
                                                    const wchar_t* defaultValue) const;

    /// False, with `value` unchanged, when sub-value `index` is missing or empty. Numbers are read as wtoi
    /// and wtof do: a decimal comma ends the number.
    bool GetValue(int index, int& value, wchar_t separator = L':') const;
    bool GetValue(int index, double& value, wchar_t separator = L':') const;
    bool GetValue(int index, CString& value, wchar_t separator = L':') const;

    /// All sub-values in order, in place of what the array held; false when there are none. "1:2:" has three.
    bool GetIntValueArray(CArray<int>& values, wchar_t separator = L':') const;
    bool GetDblValueArray(CArray<double>& values, wchar_t separator = L':') const;
    bool GetStrValueArray(CStringArray& values, wchar_t separator = L':') const;

    // Building step by step. A number is formatted by `format`; of a double all zeros at the end are removed
    // then, but not the point (2 by "%.3f" is "2."), unless the format is "%.0f".

    static void InitSetValues(wchar_t separator = L':');
    void SetFirstValue(const wchar_t* value, wchar_t separator = L':');
    void SetFirstValue(int value, const wchar_t* format = L"%d", wchar_t separator = L':');
    void SetFirstValue(double value, const wchar_t* format = L"%f", wchar_t separator = L':');
    void SetNextValue(const wchar_t* value);
    void SetNextValue(int value, const wchar_t* format = L"%d");
    void SetNextValue(double value, const wchar_t* format = L"%f");
    /// Adds the last sub-value, a number as CMoxSubStr::Add() formats it, and stores the record in this leaf.
    void SetLastValue(const wchar_t* value);
    void SetLastValue(int value);
    void SetLastValue(double value);
    /// Stores the record built so far in this leaf.
    void ExitSetValues();

    // Writing

    /// The value becomes this one sub-value.
    void SetOnlyValue(const wchar_t* value, wchar_t separator = L':');
    /// Replaces one sub-value, keeps the others and fills a gap with empty ones; an index below 1 only
    /// rewrites the list. Always true. The list is read with `separator` and, as stored files rely on it,
    /// rebuilt with ":".
    bool SetStrLeafValue(int index, const wchar_t* value, wchar_t separator = L':');
    bool SetIntLeafValue(int index, int value, const wchar_t* format = L"%d", wchar_t separator = L':');
    bool SetDblLeafValue(int index, double value, const wchar_t* format = L"%f", wchar_t separator = L':');

private:
    friend struct nexo::tree::ItemAccess;

    CLeaf(nexo::StringHeader* name, nexo::StringHeader* value, CTreeItem* prev, CTreeItem* next,
          std::uintptr_t owner) noexcept
        : CTreeItem(name, prev, next, owner), value_(CString::Adopt(value)) {}

    CString value_;
};

#endif
