#include "nexo/tree/TreeReader.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "nexo/base/CharClass.h"
#include "nexo/base/CodeUnits.h"
#include "nexo/tree/ItemMaker.h"
#include "nexo/tree/TextScan.h"
#include "nexo/tree/TreeWriter.h"

namespace nexo::tree {
namespace {

constexpr wchar_t kNoStart[] = L"Start bracket [ not found!";
constexpr wchar_t kNoNameEnd[] = L"EOF reached before end bracket ] found!";
constexpr wchar_t kWrongEnd[] = L"Wrong ending node!";
constexpr wchar_t kLeafIncomplete[] = L"EOF reached before leaf complete!";

[[noreturn]] void Fail(const wchar_t* message, const wchar_t* start, const wchar_t* at) {
    throw CExcRead(message, static_cast<std::size_t>(at - start));
}

/// Moves `at` over a text, or says that it stands somewhere else.
bool Take(const wchar_t*& at, const wchar_t* text) {
    const wchar_t* end = at;
    for (; *text; ++text, ++end) {
        if (*end != *text) return false;
    }
    at = end;
    return true;
}

/// Moves `at` over a name, which is kept in code units while the text may hold whole code points.
bool TakeName(const wchar_t*& at, std::wstring_view name) {
    const wchar_t* end = at;
    for (std::size_t i = 0; i < name.size(); ++i, ++end) {
        if (*end == name[i]) continue;
        if (*end <= 0xFFFF || i + 1 == name.size()) return false;
        wchar_t units[2];
        SplitInto(units, end, 1);
        if (units[0] != name[i] || units[1] != name[++i]) return false;
    }
    at = end;
    return true;
}

bool IsLineBreak(const wchar_t* at) {
    return *at == L'\n' || (*at == L'\r' && at[1] == L'\n');
}

void SkipLineBreak(const wchar_t*& at) {
    if (IsLineBreak(at)) at += *at == L'\r' ? 2 : 1;
}

// A leaf up to this size, read in whole blocks, is read fast.
constexpr std::size_t kFastName = 64;
constexpr std::size_t kFastValue = TextRoom::kLongest;
constexpr std::size_t kFastReach = kFastName + 1 + kFastValue + 1 + kBlock;
static_assert(kFastName % kBlock == 0 && kFastValue % kBlock == 0 && TextRoom::kScratch >= kBlock);

// How far is looked ahead at most: far enough for memory to answer meanwhile, near enough for the text to
// stay in the cache until it is read.
constexpr std::size_t kWindow = 4096;

// How many names of a node are remembered for the next one.
constexpr std::size_t kMostExpected = 64;

/// Whether a text can be compared in one block.
bool IsShortInSlab(const StringHeader* text) {
    return text->refs == kSlabText && text->length <= kBlock;
}

/// One reading of one text.
class TreeReader {
public:
    TreeReader(const wchar_t* start, wchar_t separator)
        : start_(start),
          at_(start),
          known_(start),
          separator_(separator),
          plainSeparator_(separator > 0 && separator <= 0xFFFF && separator != L'\r' && separator != L'\n' &&
                          separator != L'<') {}

    /// Reads below an empty node; its own name and style are left to the caller.
    void Read(CNode* top);

    [[nodiscard]] const wchar_t* At() const { return at_; }
    [[nodiscard]] std::wstring_view TopName() const { return topName_; }
    [[nodiscard]] bool IsAngle() const { return angle_; }
    [[nodiscard]] std::size_t Skipped() const { return skipped_; }

private:
    /// Names that nodes of one depth and their leaves have had.
    struct Model {
        StringHeader* node = nullptr;
        std::array<StringHeader*, kMostExpected + 1> leaves{};  // ends with null
        StringHeader** End() { return &leaves.back(); }
    };

    void SkipSpace() {
        const wchar_t* const from = at_;
        while (IsSpace(*at_)) ++at_;
        skipped_ += static_cast<std::size_t>(at_ - from);
    }
    std::wstring_view ReadHead();
    CNode* OpenChild(CNode* parent);
    CNode* OpenExpected(CNode* parent);
    bool TakeEnd(const CNode* node);
    bool TakeUsualEnd(const CNode* node);
    void ReadLeaf(CNode* node);
    bool ReadLeaves(CNode* node);
    StringHeader* ReadName(const wchar_t* at, StringHeader**& expected);
    bool HasAhead(const wchar_t* at, std::size_t count);
    Model& ModelAt(std::size_t depth) { return models_[depth % models_.size()]; }

    const wchar_t* start_;
    const wchar_t* at_;
    const wchar_t* known_;  // no terminator lies before it
    bool ended_ = false;    // the terminator lies there
    bool foreign_ = false;  // the known text holds more than code units
    wchar_t separator_;
    bool plainSeparator_;
    bool angle_ = false;
    const CNode* top_ = nullptr;
    std::wstring_view topName_;
    std::size_t skipped_ = 0;
    std::size_t window_ = 128;
    // Nodes of one depth often have leaves of the same names in the same order. The names met last are a
    // model for the next node; `expected_` is where in it the next leaf stands.
    std::array<Model, 8> models_;  // by depth; deeper levels share them
    std::size_t depth_ = 0;
    StringHeader* nothing_ = nullptr;
    StringHeader** expected_ = models_[0].leaves.data();
    ItemMaker maker_;
};

void TreeReader::Read(CNode* top) {
    top_ = top;
    SkipSpace();
    if (*at_ != L'[' && *at_ != L'<') Fail(kNoStart, start_, at_);
    angle_ = *at_ == L'<';
    topName_ = ReadHead();
    CNode* node = top;
    for (;;) {
        SkipSpace();
        if (*at_ != (angle_ ? L'<' : L'[')) {
            ReadLeaf(node);
        } else if (!TakeEnd(node)) {
            node = OpenChild(node);
        } else if (node == top) {
            return maker_.MadeBelow(top);
        } else {
            node = ItemAccess::Owner(node);
            --depth_;
            expected_ = &nothing_;
        }
    }
}

/// Reads an opening bracket, a name and a closing bracket.
std::wstring_view TreeReader::ReadHead() {
    const wchar_t close = angle_ ? L'>' : L']';
    const wchar_t* const name = ++at_;
    while (*at_ && *at_ != close) ++at_;
    if (!*at_) Fail(kNoNameEnd, start_, at_);
    return {name, static_cast<std::size_t>(at_++ - name)};
}

CNode* TreeReader::OpenChild(CNode* parent) {
    CNode* child = OpenExpected(parent);
    if (!child) child = maker_.AddNode(parent, ReadHead());
    child->setSimpleXML(angle_ || (parent == top_ && parent->getSimpleXML()));
    ++depth_;
    expected_ = ModelAt(depth_).leaves.data();
    StringHeader* const name = HeaderOf(child->GetName());
    ModelAt(depth_).node = IsShortInSlab(name) ? name : nullptr;
    return child;
}

/// Opens a node with the name of the one before it, or answers null.
CNode* TreeReader::OpenExpected(CNode* parent) {
    StringHeader* const name = ModelAt(depth_ + 1).node;
    if (!name || !HasAhead(at_, 1 + 2 * kBlock) || at_[1 + name->length] != (angle_ ? L'>' : L']') ||
        !SameUnits(at_ + 1, TextOf(name), name->length)) {
        return nullptr;
    }
    at_ += name->length + 2;
    return maker_.AddNode(parent, {name, true});
}

/// Moves over the end of a node with a short name in bracket style, or answers false.
bool TreeReader::TakeUsualEnd(const CNode* node) {
    static constexpr wchar_t kMark[kBlock + 1] = L"[ENDE_";
    constexpr std::size_t kMarkLength = 6;
    const StringHeader* const name = HeaderOf(node->GetName());
    if (angle_ || node == top_ || !IsShortInSlab(name) || !HasAhead(at_, kMarkLength + 2 * kBlock) ||
        at_[kMarkLength + name->length] != L']' || !SameUnits(at_, kMark, kMarkLength) ||
        !SameUnits(at_ + kMarkLength, TextOf(name), name->length)) {
        return false;
    }
    at_ += kMarkLength + name->length + 1;
    SkipLineBreak(at_);
    return true;
}

/// Moves over the end of a node, if it stands here. Called on an opening bracket.
bool TreeReader::TakeEnd(const CNode* node) {
    if (TakeUsualEnd(node)) return true;
    if (!angle_ && Take(at_, L"[/]")) {
        SkipLineBreak(at_);
        return true;
    }
    if (!Take(at_, angle_ ? L"</" : L"[ENDE_")) return false;
    const wchar_t* const name = at_;
    const bool named = node == top_ ? std::wcsncmp(at_, topName_.data(), topName_.size()) == 0
                                    : TakeName(at_, node->GetName().View());
    if (node == top_ && named) at_ += topName_.size();
    if (!named || *at_ != (angle_ ? L'>' : L']')) Fail(kWrongEnd, start_, name);
    ++at_;
    SkipLineBreak(at_);
    return true;
}

void TreeReader::ReadLeaf(CNode* node) {
    if (kSlabsEnabled && plainSeparator_ && !angle_ && ReadLeaves(node)) return;
    const wchar_t* const from = at_;
    const LeafText text = ScanLeaf(start_, at_, angle_ ? L'<' : separator_);
    if (at_ == from) Fail(kLeafIncomplete, start_, at_);  // "<" as separator of a bracket text
    maker_.AddLeaf(node, text);
    expected_ = &nothing_;
}

/// Whether the text goes on from `at` for `count` code units, none of which is beyond U+FFFF. Looks ahead, in
/// growing steps, as far as the terminator.
bool TreeReader::HasAhead(const wchar_t* at, std::size_t count) {
    while (known_ < at + count && !ended_) {
        const wchar_t* const from = std::max(known_, at);
        const KnownText seen = LookAhead(from, window_);
        foreign_ = foreign_ || seen.foreign;
        known_ = from + seen.length;
        ended_ = seen.length < window_;
        window_ = std::min(window_ * 2, kWindow);
    }
    return known_ >= at + count && !foreign_;
}

/// Reads usual leaves, many at a time: a short name, the separator and a short value. Stops before anything
/// else; false when the first one is none. All that a leaf changes is local, so that it stays in registers.
bool TreeReader::ReadLeaves(CNode* node) {
    std::array<ItemMaker::Texts, 32> texts;
    std::size_t count = 0;
    std::size_t units = 0;
    const wchar_t* at = at_;
    const wchar_t separator = separator_;
    StringHeader** expected = expected_;
    TextRoom room = maker_.Writer().Room(2);
    while (count < texts.size() && room.Has(2) && HasAhead(at, kFastReach)) {
        StringHeader* name = *expected;
        if (name && at[name->length] == separator && SameUnits(at, TextOf(name), name->length)) {
            ++expected;
        } else {
            maker_.Writer().Continue(room);
            name = ReadName(at, expected);
            room = maker_.Writer().Room(1);
            if (!name) break;
        }
        Prefetch(at, kWindow * sizeof(wchar_t));
        const wchar_t* const value = at + name->length + 1;
        const std::size_t length = CopyUntil(room.Text(), value, kFastValue, L'\r', L'\n');
        if (length == kFastValue || *value == L'\n') break;
        const wchar_t* next = value + length + 1;
        if (next[-1] == L'\r' && *next++ != L'\n') break;
        units += name->length + length + 3;
        texts[count++] = {name, length > 0 ? room.Finish(length) : EmptyText()};
        at = next;
        if (IsBetween(*at, L'!', L'Z'))
            continue;  // most names begin with what is neither white space nor a bracket
        if (IsBetween(*at, L'a', L'z')) continue;
        while (IsSpace(*at)) ++at;
        skipped_ += static_cast<std::size_t>(at - next);
        if (*at == L'[') break;
    }
    maker_.Writer().Continue(room);
    maker_.AddLeaves(node, texts.data(), count, units);
    expected_ = expected;
    at_ = at;
    return count > 0;
}

/// Reads a short name that was not expected, to expect it next time; null when there is none.
StringHeader* TreeReader::ReadName(const wchar_t* at, StringHeader**& expected) {
    const std::size_t length = FindAny(at, kFastName, separator_, L'\r', L'\n');
    if (length == kFastName || at[length] != separator_) return nullptr;
    StringHeader* const name = maker_.Intern({at, length});
    if (expected != &nothing_ && expected != ModelAt(depth_).End() && length > 0 && length <= kBlock) {
        *expected++ = name;
    }
    return name;
}

}  // namespace

LeafText ScanLeaf(const wchar_t* start, const wchar_t*& at, wchar_t separator) {
    const wchar_t* stop = at;
    while (*stop && *stop != separator && *stop != L'\r' && *stop != L'\n') ++stop;
    if (!*stop) Fail(kLeafIncomplete, start, stop);
    const std::wstring_view text(at, static_cast<std::size_t>(stop - at));
    if (separator == L'<') {
        at = stop;
        return {{}, text};
    }
    // A line without separator has no value, but only if it ends with CR LF; and a separator directly before
    // a lone LF is itself the value. Stored files rely on both.
    const wchar_t* const value = *stop == L'\r' || stop[1] == L'\n' ? stop : stop + 1;
    const wchar_t* end = value;
    while (*end && !IsLineBreak(end)) ++end;
    at = end;
    SkipLineBreak(at);
    return {text, {value, static_cast<std::size_t>(end - value)}};
}

unsigned long ReadNode(CNode& node, const wchar_t*& cursor, wchar_t separator) {
    // The text goes below a node without anything in it, so that a failure leaves no trace.
    const bool empty = node.NrOfChildren() == 0 && node.NrOfLeaves() == 0;
    CNode aside;
    aside.setSimpleXML(node.getSimpleXML());
    CNode& target = empty ? node : aside;
    ItemAccess::Unmake(&target);
    Forget(ItemAccess::Children(&target));
    Forget(ItemAccess::Leaves(&target));
    TreeReader reader(cursor, separator);
    try {
        reader.Read(&target);
        ItemAccess::Rename(&node, CString(reader.TopName()));
    } catch (...) {
        target.DeleteAllChildren();
        target.DeleteAllLeaves();
        throw;
    }
    if (reader.IsAngle()) node.setSimpleXML(true);
    target.setSimpleXML(node.getSimpleXML());
    const std::uint64_t read = SizeOfBranch(target, -1) + 2 * (empty ? 0 : node.GetName().View().size());
    while (CNode* const child = FirstChild(&aside)) node.AddChild(child);
    while (CLeaf* const leaf = FirstLeaf(&aside)) node.AddLeaf(leaf);
    cursor = reader.At();
    return static_cast<unsigned long>(read + reader.Skipped());
}

}  // namespace nexo::tree
