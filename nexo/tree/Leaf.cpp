#include "nexo/tree/Leaf.h"

#include <cwchar>
#include <new>

#include "nexo/base/Format.h"
#include "nexo/base/Number.h"
#include "nexo/text/Record.h"
#include "nexo/text/StrUtil.h"
#include "nexo/tree/ItemAccess.h"
#include "nexo/tree/TreeDumper.h"
#include "nexo/tree/TreeReader.h"
#include "nexo/tree/TreeWriter.h"

using nexo::tree::ItemAccess;

CLeaf::CLeaf(const wchar_t* name, const wchar_t* value, bool raw) : CTreeItem(name) {
    if (!value || !*value) return;
    // A text without anything to escape is its own record; most are, and so most leaves are made without the
    // builder that all threads share.
    if (raw || !std::wcspbrk(value, L":\r\n")) {
        value_ = value;
    } else {
        SetOnlyValue(value);
    }
}

CLeaf::CLeaf(const CLeaf& other) : CTreeItem(other), value_(other.value_) {}

CLeaf::~CLeaf() {
    if (CNode* const owner = ItemAccess::Owner(this)) nexo::tree::Unlink(ItemAccess::Leaves(owner), this);
    ItemAccess::DropValue(this);
}

CLeaf& CLeaf::operator=(const CLeaf& other) {
    if (this == &other) return *this;
    CTreeItem::operator=(other);
    SetRawData(other.value_);
    return *this;
}

int CLeaf::GetItemType() const {
    return 2;
}

void CLeaf::SetRawData(const CString& value) {
    CString copy = value;
    ItemAccess::WritableValue(this) = std::move(copy);
}

// Text form

unsigned long CLeaf::GetSizeOfBranch(int indent) const {
    const std::size_t tabs = indent > 0 ? static_cast<std::size_t>(indent) : 0;
    return static_cast<unsigned long>(tabs + GetName().View().size() + value_.View().size() + 3);
}

unsigned long CLeaf::WriteToMem(wchar_t*& cursor, int indent, wchar_t separator) const {
    wchar_t* const start = cursor;
    cursor = nexo::tree::WriteLeaf(*this, start, indent, separator);
    *cursor = 0;
    return static_cast<unsigned long>(cursor - start);
}

unsigned long CLeaf::ReadFromMem(const wchar_t*& cursor, wchar_t separator) {
    const wchar_t* at = cursor;
    const unsigned long skipped = SkipWhitespace(at);
    const nexo::tree::LeafText text = nexo::tree::ScanLeaf(cursor, at, separator);
    CString value(text.value);
    if (separator != L'<') ItemAccess::Rename(this, CString(text.name));
    ItemAccess::WritableValue(this) = std::move(value);
    cursor = at;
    return skipped + static_cast<unsigned long>(text.name.size()) +
           static_cast<unsigned long>(value_.GetLength()) + 3;
}

void CLeaf::Dump(int indent) const {
    nexo::tree::TreeDumper().DumpLeaf(*this, indent);
}

// Reading step by step

namespace {

/// The value that the shared reader stands in; kept here so that it may outlive its leaf. Never destroyed, as
/// other objects with static lifetime may still read.
CString& ValueBeingRead() {
    static CString& value = *new CString;
    return value;
}

}  // namespace

bool CLeaf::InitGetValues(wchar_t separator) const {
    CString& value = ValueBeingRead();
    value = value_;
    moxSubStrUtil::GetInit(value, separator);
    return !value.IsEmpty();
}

bool CLeaf::GetFirstValue(int& value, wchar_t separator, bool force) const {
    InitGetValues(separator);
    return GetNextValue(value, force);
}
bool CLeaf::GetFirstValue(double& value, wchar_t separator, bool force) const {
    InitGetValues(separator);
    return GetNextValue(value, force);
}
bool CLeaf::GetFirstValue(CString& value, wchar_t separator) const {
    InitGetValues(separator);
    return GetNextValue(value);
}
bool CLeaf::GetNextValue(int& value, bool force) const {
    return moxSubStrUtil::Get(value, force);
}
bool CLeaf::GetNextValue(double& value, bool force) const {
    return moxSubStrUtil::Get(value, force);
}
bool CLeaf::GetNextValue(bool& value, bool force) const {
    return moxSubStrUtil::Get(value, force);
}
bool CLeaf::GetNextValue(CString& value) const {
    return moxSubStrUtil::Get(value);
}

// Reading by index

CString CLeaf::GetOnlyValue(wchar_t separator) const {
    nexo::RecordReader reader(value_, separator);
    std::wstring_view field;
    reader.Next(field);
    // Most values are one sub-value without escapes; their block is shared.
    return field == value_.View() ? value_ : CString(field);
}

int CLeaf::GetOnlyValueI(wchar_t separator, bool force) const {
    CMoxSubStr reader;
    reader.GetInit(value_, separator);
    int value = 0;
    reader.Get(value, force);
    return value;
}

double CLeaf::GetOnlyValueD(wchar_t separator, bool force) const {
    CMoxSubStr reader;
    reader.GetInit(value_, separator);
    double value = 0;
    reader.Get(value, force);
    return value;
}

namespace {

/// Puts the shared reader before a sub-value; false when the list is too short. Asking for one index after
/// the other costs one pass.
bool FindSubValue(const CString& value, int index, wchar_t separator) {
    static nexo::RecordIndex& found = *new nexo::RecordIndex;
    if (value.IsEmpty()) return false;
    nexo::RecordReader reader;
    if (!found.Find(value, index, separator, reader)) return false;
    moxSubStrUtil::GetInit(reader.Position(), separator);
    return true;
}

}  // namespace

CString CLeaf::GetStrLeafValue(int index, wchar_t separator, const wchar_t* defaultValue) const {
    if (!InitGetValues(separator) || !FindSubValue(value_, index, separator)) return defaultValue;
    CString value;
    moxSubStrUtil::Get(value);
    return value;
}

int CLeaf::GetIntLeafValue(int index, wchar_t separator, int defaultValue) const {
    if (!InitGetValues(separator) || !FindSubValue(value_, index, separator)) return defaultValue;
    int value = 0;
    moxSubStrUtil::Get(value, true);
    return value;
}

double CLeaf::GetDblLeafValue(int index, wchar_t separator, double defaultValue) const {
    if (!InitGetValues(separator) || !FindSubValue(value_, index, separator)) return defaultValue;
    double value = 0;
    moxSubStrUtil::Get(value, true);
    return value;
}

const wchar_t* CLeaf::GetStrLeafValuePtr(int index, wchar_t separator, const wchar_t* defaultValue) const {
    return ItemAccess::Keep(GetStrLeafValue(index, separator, defaultValue));
}

const wchar_t* ItemAccess::Keep(CString text) {
    static CString& kept = *new CString;
    kept = std::move(text);
    return kept;
}

bool CLeaf::GetValue(int index, CString& value, wchar_t separator) const {
    CString found = moxStrUtil::GetSubStr(value_, index, separator);
    if (found.IsEmpty()) return false;
    value = std::move(found);
    return true;
}

bool CLeaf::GetValue(int index, int& value, wchar_t separator) const {
    CString found;
    if (!GetValue(index, found, separator)) return false;
    value = nexo::ParseInt(found);
    return true;
}

bool CLeaf::GetValue(int index, double& value, wchar_t separator) const {
    CString found;
    if (!GetValue(index, found, separator)) return false;
    value = nexo::ParseDouble(found);
    return true;
}

namespace {

template <class Array, class Convert>
bool ReadArray(const CString& record, Array& values, wchar_t separator, Convert convert) {
    const CString kept = record;  // the array may hold what keeps the value alive
    values.RemoveAll();
    nexo::ForEachField(nexo::RecordReader(kept.GetString(), separator),
                       [&](std::wstring_view field) { values.Add(convert(field)); });
    return values.GetSize() > 0;
}

}  // namespace

bool CLeaf::GetIntValueArray(CArray<int>& values, wchar_t separator) const {
    return ReadArray(value_, values, separator,
                     [](std::wstring_view field) { return nexo::ParseInt(field); });
}

bool CLeaf::GetDblValueArray(CArray<double>& values, wchar_t separator) const {
    return ReadArray(value_, values, separator,
                     [](std::wstring_view field) { return nexo::ParseDouble(field); });
}

bool CLeaf::GetStrValueArray(CStringArray& values, wchar_t separator) const {
    return ReadArray(value_, values, separator, [](std::wstring_view field) { return CString(field); });
}

// Building

namespace {

CString FormatInt(int value, const wchar_t* format) {
    return nexo::Formatted(format, value);
}

/// The point stays where all decimals are zeros: stored files hold numbers such as "2.".
CString FormatDouble(double value, const wchar_t* format) {
    CString text = nexo::Formatted(format, value);
    if (format && std::wstring_view(format) != L"%.0f") text.TrimRight(L'0');
    return text;
}

}  // namespace

void CLeaf::InitSetValues(wchar_t separator) {
    moxSubStrUtil::AddInit(separator);
}

void CLeaf::SetFirstValue(const wchar_t* value, wchar_t separator) {
    InitSetValues(separator);
    SetNextValue(value);
}
void CLeaf::SetFirstValue(int value, const wchar_t* format, wchar_t separator) {
    InitSetValues(separator);
    SetNextValue(value, format);
}
void CLeaf::SetFirstValue(double value, const wchar_t* format, wchar_t separator) {
    InitSetValues(separator);
    SetNextValue(value, format);
}

void CLeaf::SetNextValue(const wchar_t* value) {
    moxSubStrUtil::Add(value);
}
void CLeaf::SetNextValue(int value, const wchar_t* format) {
    moxSubStrUtil::Add(FormatInt(value, format));
}
void CLeaf::SetNextValue(double value, const wchar_t* format) {
    moxSubStrUtil::Add(FormatDouble(value, format));
}

void CLeaf::SetLastValue(const wchar_t* value) {
    moxSubStrUtil::Add(value);
    ExitSetValues();
}
void CLeaf::SetLastValue(int value) {
    moxSubStrUtil::Add(value);
    ExitSetValues();
}
void CLeaf::SetLastValue(double value) {
    moxSubStrUtil::Add(value);
    ExitSetValues();
}

void CLeaf::ExitSetValues() {
    CString record;
    moxSubStrUtil::AddEnd(record);
    ItemAccess::WritableValue(this) = std::move(record);
}

// Writing

void CLeaf::SetOnlyValue(const wchar_t* value, wchar_t separator) {
    SetFirstValue(value, separator);
    ExitSetValues();
}

bool CLeaf::SetStrLeafValue(int index, const wchar_t* value, wchar_t separator) {
    constexpr int kMostFields = 1 << 26;
    if (index > kMostFields) throw std::bad_alloc();
    CMoxSubStr builder;
    builder.AddInit(L':');
    nexo::RecordReader reader(value_.GetString(), separator);
    bool more = !reader.AtRecordEnd();
    for (int i = 1; more || i <= index || i == 1; ++i) {
        std::wstring_view field;
        more = more && reader.Next(field) && !reader.AtLineBreak();
        if (i == index) {
            builder.Add(value);
        } else {
            builder.AddView(field);
        }
    }
    CString record;
    builder.AddEnd(record);
    ItemAccess::WritableValue(this) = std::move(record);
    return true;
}

bool CLeaf::SetIntLeafValue(int index, int value, const wchar_t* format, wchar_t separator) {
    return SetStrLeafValue(index, FormatInt(value, format), separator);
}

bool CLeaf::SetDblLeafValue(int index, double value, const wchar_t* format, wchar_t separator) {
    return SetStrLeafValue(index, FormatDouble(value, format), separator);
}
