#include "nexo/tree/ListIndex.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "nexo/base/CharClass.h"

namespace nexo::tree {
namespace {

constexpr std::size_t kExact = 0;
constexpr std::size_t kFolded = 1;

/// Groups up to this size are searched one by one.
constexpr std::uint32_t kShortGroup = 8;

// Labels start in the middle of their range, so that a list can grow at both ends.
constexpr std::uint64_t kFirstLabel = std::uint64_t{1} << 61;
constexpr std::uint64_t kLabelGap = std::uint64_t{1} << 20;
constexpr std::uint64_t kLastLabel = std::uint64_t{1} << 62;
constexpr int kLabelBits = 62;

std::wstring_view NameOf(const CTreeItem* item) {
    return item->GetName().View();
}

std::wstring_view TextOf(const wchar_t* name) {
    return {name, (reinterpret_cast<const StringHeader*>(name) - 1)->length};
}

bool Equal(std::size_t kind, std::wstring_view a, std::wstring_view b) {
    return kind == kExact ? a == b : EqualNoCase(a, b);
}

std::uint32_t HashOf(std::size_t kind, std::wstring_view name) {
    std::uint64_t hash = 0;
    if (kind == kExact) {
        hash = HashText(name);
    } else {
        for (const wchar_t unit : name)
            hash = (hash ^ static_cast<std::uint64_t>(ToLower(unit))) * 0x9E3779B97F4A7C15;
    }
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

IndexEntry* EntryOf(const CTreeItem* item) {
    return ItemAccess::Entry(item);
}
std::uint64_t LabelOf(const CTreeItem* item) {
    return EntryOf(item)->label;
}

}  // namespace

CNode* OwnerOf(const ListIndex& index) noexcept {
    return index.Owner();
}

// Names

void ListIndex::LearnNames() {
    std::size_t size = 32;
    while (size * 7 < list_.count * std::size_t{8}) size *= 2;
    names_[kExact].buckets.resize(size);
    try {
        for (CTreeItem* item = list_.first; item; item = Next(item)) Enter(item);
    } catch (...) {
        ForgetNames();
        throw;
    }
}

void ListIndex::LearnFolded() {
    Names& names = names_[kFolded];
    names.buckets.resize(names_[kExact].buckets.size());
    try {
        for (CTreeItem* item = list_.first; item; item = Next(item)) {
            IndexEntry* const entry = EntryOf(item);
            entry->hash[kFolded] = HashOf(kFolded, NameOf(item));
            Join(kFolded, entry);
        }
    } catch (...) {
        names = Names();
        throw;
    }
}

/// Makes the entry of an item whose neighbours, as far as they are entered, have theirs.
void ListIndex::Enter(CTreeItem* item) {
    auto* const entry =
        new (pool_.Take(sizeof(IndexEntry), alignof(IndexEntry))) IndexEntry{this, item, 0, {}, {}, {}};
    ItemAccess::SetEntry(item, entry);
    GiveLabel(entry);
    JoinAll(entry);
}

void ListIndex::JoinAll(IndexEntry* entry) {
    for (const std::size_t kind : {kExact, kFolded}) {
        if (names_[kind].buckets.empty()) continue;
        entry->hash[kind] = HashOf(kind, NameOf(entry->item));
        Join(kind, entry);
    }
}

void ListIndex::PartAll(IndexEntry* entry) noexcept {
    for (const std::size_t kind : {kExact, kFolded}) {
        if (!names_[kind].buckets.empty()) Part(kind, entry);
    }
}

void ListIndex::ForgetNames() noexcept {
    for (CTreeItem* item = list_.first; item; item = Next(item)) ItemAccess::SetOwner(item, owner_);
    for (Names& names : names_) names = Names();
    pool_.Clear();
    searched_ = false;
}

CTreeItem* ListIndex::Find(std::wstring_view name, const CTreeItem* after, bool noCase) {
    const std::size_t kind = noCase ? kFolded : kExact;
    if (names_[kind].buckets.empty()) LearnFolded();
    const IndexEntry* const entry = after ? EntryOf(after) : nullptr;
    if (entry && Equal(kind, NameOf(after), name)) {
        return entry->sameBehind[kind] ? entry->sameBehind[kind]->item : nullptr;
    }
    const Bucket* const bucket = FindBucket(kind, HashOf(kind, name), name);
    if (!bucket) return nullptr;
    return entry ? FirstBehind(kind, *bucket, entry) : bucket->first;
}

ListIndex::Bucket* ListIndex::FindBucket(std::size_t kind, std::uint32_t hash,
                                         std::wstring_view name) noexcept {
    std::vector<Bucket>& buckets = names_[kind].buckets;
    const std::size_t mask = buckets.size() - 1;
    for (std::size_t i = hash & mask; buckets[i].count > 0; i = (i + 1) & mask) {
        if (buckets[i].hash == hash && Equal(kind, TextOf(buckets[i].name), name)) return &buckets[i];
    }
    return nullptr;
}

/// Makes room for one more group.
void ListIndex::Reserve(Names& names) {
    if ((names.groups + 1) * 8 <= names.buckets.size() * 7) return;
    std::vector<Bucket> larger(names.buckets.size() * 2);
    const std::size_t mask = larger.size() - 1;
    for (const Bucket& bucket : names.buckets) {
        if (bucket.count == 0) continue;
        std::size_t i = bucket.hash & mask;
        while (larger[i].count > 0) i = (i + 1) & mask;
        larger[i] = bucket;
    }
    names.buckets.swap(larger);
}

/// Puts an entry with its label and hash into its group.
void ListIndex::Join(std::size_t kind, IndexEntry* entry) {
    Names& names = names_[kind];
    const std::wstring_view name = NameOf(entry->item);
    entry->sameBefore[kind] = entry->sameBehind[kind] = nullptr;
    Bucket* bucket = FindBucket(kind, entry->hash[kind], name);
    if (!bucket) {
        Reserve(names);
        const std::size_t mask = names.buckets.size() - 1;
        std::size_t i = entry->hash[kind] & mask;
        while (names.buckets[i].count > 0) i = (i + 1) & mask;
        names.buckets[i] = {entry->hash[kind], 1, name.data(), entry->item, entry->item};
        ++names.groups;
    } else {
        IndexEntry* const before = LastBefore(kind, *bucket, entry);
        IndexEntry* const behind = before ? before->sameBehind[kind] : EntryOf(bucket->first);
        entry->sameBefore[kind] = before;
        entry->sameBehind[kind] = behind;
        if (before) before->sameBehind[kind] = entry;
        if (behind) behind->sameBefore[kind] = entry;
        if (!before) bucket->first = entry->item;
        if (!before) bucket->name = name.data();
        if (!behind) bucket->last = entry->item;
        ++bucket->count;
    }
    if (names.order) names.order->insert(entry);
}

void ListIndex::Part(std::size_t kind, IndexEntry* entry) noexcept {
    Names& names = names_[kind];
    if (names.order) names.order->erase(entry);
    Bucket* const bucket = FindBucket(kind, entry->hash[kind], NameOf(entry->item));
    IndexEntry* const before = entry->sameBefore[kind];
    IndexEntry* const behind = entry->sameBehind[kind];
    if (before) before->sameBehind[kind] = behind;
    if (behind) behind->sameBefore[kind] = before;
    if (--bucket->count == 0) return Erase(names, bucket);
    if (!before) bucket->first = behind->item;
    if (!before) bucket->name = behind->item->GetName();
    if (!behind) bucket->last = before->item;
}

/// Frees a bucket and moves up the ones behind it that were displaced.
void ListIndex::Erase(Names& names, Bucket* bucket) noexcept {
    std::vector<Bucket>& buckets = names.buckets;
    const std::size_t mask = buckets.size() - 1;
    auto hole = static_cast<std::size_t>(bucket - buckets.data());
    for (std::size_t i = (hole + 1) & mask; buckets[i].count > 0; i = (i + 1) & mask) {
        const std::size_t displaced = (i - buckets[i].hash) & mask;
        if (displaced < ((i - hole) & mask)) continue;
        buckets[hole] = buckets[i];
        hole = i;
    }
    buckets[hole].count = 0;
    --names.groups;
}

/// The last entry of a group that stands before `entry`, which is in no group or in another one.
IndexEntry* ListIndex::LastBefore(std::size_t kind, const Bucket& bucket, const IndexEntry* entry) {
    IndexEntry* found = EntryOf(bucket.last);
    if (found->label < entry->label) return found;
    found = EntryOf(bucket.first);
    if (found->label > entry->label) return nullptr;
    if (bucket.count <= kShortGroup) {
        while (found->sameBehind[kind]->label < entry->label) found = found->sameBehind[kind];
        return found;
    }
    auto place = OrderOf(kind).lower_bound(const_cast<IndexEntry*>(entry));
    do --place;
    while (!Equal(kind, NameOf((*place)->item), TextOf(bucket.name)));
    return *place;
}

/// The first item of a group that stands behind `entry`, which is in another one.
CTreeItem* ListIndex::FirstBehind(std::size_t kind, const Bucket& bucket, const IndexEntry* entry) {
    if (LabelOf(bucket.last) < entry->label) return nullptr;
    const IndexEntry* found = EntryOf(bucket.first);
    if (found->label > entry->label) return found->item;
    if (bucket.count <= kShortGroup) {
        while (found->label < entry->label) found = found->sameBehind[kind];
        return found->item;
    }
    IndexEntry here = *entry;
    here.hash[kind] = bucket.hash;
    auto place = OrderOf(kind).lower_bound(&here);
    while (!Equal(kind, NameOf((*place)->item), TextOf(bucket.name))) ++place;
    return (*place)->item;
}

ListIndex::Order& ListIndex::OrderOf(std::size_t kind) {
    std::unique_ptr<Order>& order = names_[kind].order;
    if (order) return *order;
    auto made = std::make_unique<Order>(EarlierInGroup{kind});
    for (const CTreeItem* item = list_.first; item; item = Next(item)) {
        if (EntryOf(item) != absent_) made->insert(EntryOf(item));
    }
    order = std::move(made);
    return *order;
}

// Changes of the list

void ListIndex::Added(CTreeItem* item) noexcept {
    if (item != list_.last) walked_ = nullptr;
    positions_.Added(item);
    if (!KnowsNames()) return;
    try {
        Enter(item);
    } catch (const std::bad_alloc&) {
        ForgetNames();
    }
}

void ListIndex::Removing(CTreeItem* item) noexcept {
    if (item != list_.last || item == walked_) walked_ = nullptr;
    positions_.Removed(item);
    if (!KnowsNames()) return;
    IndexEntry* const entry = EntryOf(item);
    PartAll(entry);
    ItemAccess::SetOwner(item, owner_);
    pool_.Give(entry);
}

void ListIndex::Exchanged(CTreeItem* a, CTreeItem* b) noexcept {
    walked_ = nullptr;
    if (!KnowsNames()) return;
    IndexEntry* const first = EntryOf(a);
    IndexEntry* const second = EntryOf(b);
    PartAll(first);
    PartAll(second);
    std::swap(first->label, second->label);
    try {
        absent_ = second;
        JoinAll(first);
        absent_ = nullptr;
        JoinAll(second);
    } catch (const std::bad_alloc&) {
        absent_ = nullptr;
        ForgetNames();
    }
}

void ListIndex::Renaming(CTreeItem* item) noexcept {
    if (KnowsNames()) PartAll(EntryOf(item));
}

void ListIndex::Renamed(CTreeItem* item) noexcept {
    if (!KnowsNames()) return;
    try {
        JoinAll(EntryOf(item));
    } catch (const std::bad_alloc&) {
        ForgetNames();
    }
}

// Labels

/// Labels an entry between its neighbours; a neighbour that is not entered yet does not count.
void ListIndex::GiveLabel(IndexEntry* entry) noexcept {
    const CTreeItem* const before = ItemAccess::Prev(entry->item);
    const CTreeItem* const behind = Next(entry->item);
    const IndexEntry* const low = before ? EntryOf(before) : nullptr;
    const IndexEntry* const high = behind ? EntryOf(behind) : nullptr;
    if (!low && !high) {
        entry->label = kFirstLabel;
    } else if (!high) {
        entry->label = low->label + kLabelGap;
        if (entry->label >= kLastLabel) LabelAll();
    } else if (!low) {
        if (high->label <= kLabelGap) return LabelAll();
        entry->label = high->label - kLabelGap;
    } else if (high->label - low->label > 1) {
        entry->label = low->label + (high->label - low->label) / 2;
    } else {
        LabelAround(entry);
    }
}

/// Labels the entry and the fewest neighbours that let it in: those of the smallest range of labels, by
/// powers of two, that is not crowded. The larger a range, the emptier it must be; that bounds the work to
/// O(log n) per insertion on average.
void ListIndex::LabelAround(IndexEntry* entry) noexcept {
    const std::uint64_t around = LabelOf(ItemAccess::Prev(entry->item));
    const CTreeItem* first = entry->item;
    const CTreeItem* last = entry->item;
    std::uint64_t count = 1;
    double capacity = 1;
    for (int bits = 1; bits < kLabelBits; ++bits) {
        capacity *= 4.0 / 3.0;
        const std::uint64_t low = around >> bits << bits;
        const std::uint64_t size = std::uint64_t{1} << bits;
        const CTreeItem* next;
        for (; (next = ItemAccess::Prev(first)) && LabelOf(next) >= low; first = next) ++count;
        for (; (next = Next(last)) && LabelOf(next) < low + size; last = next) ++count;
        if (static_cast<double>(count) > capacity) continue;
        std::uint64_t label = low;
        for (const CTreeItem* item = first;; item = Next(item), label += size / count) {
            EntryOf(item)->label = label;
            if (item == last) return;
        }
    }
    LabelAll();
}

void ListIndex::LabelAll() noexcept {
    std::uint64_t label = kFirstLabel - list_.count / 2 * kLabelGap;
    for (const CTreeItem* item = list_.first; item; item = Next(item), label += kLabelGap)
        EntryOf(item)->label = label;
}

// Numbers

CTreeItem* ListIndex::At(unsigned int index) {
    if (index >= list_.count) return nullptr;
    if (!walked_ || index < walkedIndex_ / 2) {
        walked_ = list_.first;
        walkedIndex_ = 0;
    }
    if (list_.count - 1 - index < (index > walkedIndex_ ? index - walkedIndex_ : walkedIndex_ - index)) {
        walked_ = list_.last;
        walkedIndex_ = list_.count - 1;
    }
    for (; walkedIndex_ < index; ++walkedIndex_) walked_ = Next(walked_);
    for (; walkedIndex_ > index; --walkedIndex_) walked_ = ItemAccess::Prev(walked_);
    return walked_;
}

}  // namespace nexo::tree
