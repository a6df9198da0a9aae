#include "nexo/base/Containers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Counts its living copies and throws from the n-th copy on, to show what an operation leaves behind.
struct Probe {
    static inline int living = 0;
    static inline int copiesUntilThrow = -1;

    Probe(int n = 0) : number(n) { ++living; }
    Probe(const Probe& other) : number(other.number) {
        if (copiesUntilThrow >= 0 && copiesUntilThrow-- == 0) throw std::runtime_error("copy");
        ++living;
    }
    Probe(Probe&& other) noexcept : number(std::exchange(other.number, -1)) { ++living; }
    Probe& operator=(const Probe&) = default;
    Probe& operator=(Probe&& other) noexcept {
        number = std::exchange(other.number, -1);
        return *this;
    }
    ~Probe() { --living; }
    friend bool operator==(const Probe& a, const Probe& b) { return a.number == b.number; }

    int number;
};

// The same for the paths that move elements as bytes.
struct BytewiseProbe : Probe {
    using TriviallyRelocatable = BytewiseProbe;
    using Probe::Probe;
};

template <class Container>
std::vector<int> Numbers(const Container& container) {
    std::vector<int> numbers;
    for (const Probe& probe : container) numbers.push_back(probe.number);
    return numbers;
}

using Ints = std::vector<int>;

class ContainersTest : public testing::Test {
protected:
    void SetUp() override { Probe::copiesUntilThrow = -1; }
    void TearDown() override { EXPECT_EQ(Probe::living, 0) << "elements leaked or destroyed twice"; }
};

using Array = CArray<Probe>;
using List = CList<Probe>;

template <class Array>
void InsertAndRemoveLikeAVector() {
    struct Row {
        const char* name;
        void (*change)(Array&);
        Ints want;
    };
    const Row rows[] = {
        {"own element while growing", [](Array& a) { a.FreeExtra(), a.Add(a[0]); }, {1, 2, 3, 1}},
        {"own element before itself", [](Array& a) { a.InsertAt(0, a[2], 2); }, {3, 3, 1, 2, 3}},
        {"insert one in front", [](Array& a) { a.InsertAt(0, 9); }, {9, 1, 2, 3}},
        {"insert at the end", [](Array& a) { a.InsertAt(3, 9); }, {1, 2, 3, 9}},
        {"insert behind the end", [](Array& a) { a.InsertAt(5, 9, 2); }, {1, 2, 3, 0, 0, 9, 9}},
        {"insert none", [](Array& a) { a.InsertAt(7, 9, 0); }, {1, 2, 3}},
        {"insert itself", [](Array& a) { a.InsertAt(1, &a); }, {1, 1, 2, 3, 2, 3}},
        {"insert itself behind the end", [](Array& a) { a.InsertAt(4, &a); }, {1, 2, 3, 0, 1, 2, 3}},
        {"append itself", [](Array& a) { EXPECT_EQ(a.Append(a), 3); }, {1, 2, 3, 1, 2, 3}},
        {"copy itself", [](Array& a) { a.Copy(a); }, {1, 2, 3}},
        {"set behind the end", [](Array& a) { a.SetAtGrow(4, a[1]); }, {1, 2, 3, 0, 2}},
        {"set inside", [](Array& a) { a.SetAtGrow(1, 9); }, {1, 9, 3}},
        {"remove the middle", [](Array& a) { a.RemoveAt(1); }, {1, 3}},
        {"remove a run to the end", [](Array& a) { a.RemoveAt(1, 2); }, {1}},
        {"remove none at the end", [](Array& a) { a.RemoveAt(3, 0); }, {1, 2, 3}},
        {"cut and extend", [](Array& a) { a.SetSize(1), a.SetSize(3); }, {1, 0, 0}},
        {"empty and refill", [](Array& a) { a.RemoveAll(), a.Add(7); }, {7}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Array array{1, 2, 3};
        row.change(array);
        EXPECT_EQ(Numbers(array), row.want);
    }
}

TEST_F(ContainersTest, ArrayInsertsAndRemovesLikeAVector) {
    InsertAndRemoveLikeAVector<CArray<Probe>>();
    InsertAndRemoveLikeAVector<CArray<BytewiseProbe>>();
}

TEST_F(ContainersTest, ArrayRefusesEveryBadIndexAndStaysAsItWas) {
    constexpr INT_PTR kHuge = std::numeric_limits<INT_PTR>::max();
    void (*const refused[])(Array&) = {
        [](Array& a) { (void)a[3]; },           [](Array& a) { (void)a[-1]; },
        [](Array& a) { (void)a.GetAt(3); },     [](Array& a) { (void)a.ElementAt(-1); },
        [](Array& a) { a.SetAt(3, 1); },        [](Array& a) { a.SetSize(-1); },
        [](Array& a) { a.SetAtGrow(-1, 1); },   [](Array& a) { a.InsertAt(-1, 1); },
        [](Array& a) { a.InsertAt(0, 1, -1); }, [](Array& a) { a.InsertAt(-1, &a); },
        [](Array& a) { a.RemoveAt(3); },        [](Array& a) { a.RemoveAt(0, -1); },
        [](Array& a) { a.RemoveAt(2, 2); },     [](Array& a) { a.RemoveAt(1, kHuge); },
    };
    void (*const tooLarge[])(Array&) = {
        [](Array& a) { a.SetSize(kHuge); },
        [](Array& a) { a.SetAtGrow(kHuge, 1); },
        [](Array& a) { a.InsertAt(kHuge, 1, 2); },
        [](Array& a) { a.InsertAt(1, 1, kHuge); },
    };
    Array array{1, 2, 3};
    for (auto* operation : refused) EXPECT_THROW(operation(array), std::invalid_argument);
    for (auto* operation : tooLarge) EXPECT_THROW(operation(array), std::bad_alloc);
    EXPECT_EQ(Numbers(array), (Ints{1, 2, 3}));
}

TEST_F(ContainersTest, AThrowingCopyLeavesArrayAndListUnchanged) {
    void (*const arrayOperations[])(Array&, const Probe&) = {
        [](Array& a, const Probe& p) { a.Add(p); },
        [](Array& a, const Probe& p) { a.InsertAt(1, p, 3); },
        [](Array& a, const Probe& p) { a.InsertAt(6, p, 3); },
        [](Array& a, const Probe& p) { a.SetAtGrow(8, p); },
        [](Array& a, const Probe&) { a.Append(a); },
        [](Array& a, const Probe&) { a.InsertAt(5, &a); },
        [](Array& a, const Probe&) {
            a.Copy(Array{4, 5, 6, 7});
        },
    };
    const Probe probe(9);
    for (auto* operation : arrayOperations) {
        for (int good = 0;; ++good) {
            Array array{1, 2, 3};
            Probe::copiesUntilThrow = good;
            try {
                operation(array, probe);
                break;
            } catch (const std::runtime_error&) {
                EXPECT_EQ(Numbers(array), (Ints{1, 2, 3}));
            }
        }
        Probe::copiesUntilThrow = -1;
    }
    for (int good = 0; good < 3; ++good) {
        List list{1, 2, 3};
        Probe::copiesUntilThrow = good;
        EXPECT_THROW(list.AddTail(&list), std::runtime_error);
        Probe::copiesUntilThrow = good;
        EXPECT_THROW(list.AddHead(&list), std::runtime_error);
        EXPECT_EQ(Numbers(list), (Ints{1, 2, 3}));
    }
    Probe::copiesUntilThrow = -1;
}

TEST_F(ContainersTest, GrowthMovesElementsAndStaysLinear) {
    for (INT_PTR growBy : {0, 1, 1000}) {
        Array array;
        array.SetSize(0, growBy);
        Probe::copiesUntilThrow = 0;  // any copy of an element would throw
        int moves = 0;
        const Probe* place = nullptr;
        for (int i = 0; i < 100000; ++i) {
            array.Add(Probe(i));
            moves += std::exchange(place, array.GetData()) != array.GetData();
        }
        EXPECT_LT(moves, 40);
        EXPECT_EQ(array[99999].number, 99999);
        Probe::copiesUntilThrow = -1;
    }
}

TEST_F(ContainersTest, ArrayTakesTypesThatOnlyMoveOrNeedAlignment) {
    CArray<std::unique_ptr<int>> owners;
    for (int i = 0; i < 10; ++i) owners.Add(std::make_unique<int>(i));
    owners.RemoveAt(0, 5);
    EXPECT_EQ(*owners[0], 5);
    CArray<std::unique_ptr<int>> taken = std::move(owners);
    EXPECT_EQ(taken.GetUpperBound(), 4);

    struct alignas(64) Line {
        int number;
    };
    CArray<Line> lines;
    for (int i = 0; i < 100; ++i) lines.Add(Line{i});
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(lines.GetData()) % 64, 0u);
    EXPECT_EQ(lines[99].number, 99);

    CArray<std::string, const char*> texts;
    texts.Add("head");
    texts.InsertAt(0, "tail");
    EXPECT_EQ(texts[0] + texts[1], "tailhead");
}

TEST_F(ContainersTest, ArrayExIsAValue) {
    CArrayEx<int> a{3, 1, 2};
    CArrayEx<int> b = a;
    b.Sort();
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(b == (CArrayEx<int>{1, 2, 3}));
    EXPECT_EQ(a.Find(3), 0);
    EXPECT_EQ(a.Find(3, 1), -1);
    a = b;
    EXPECT_TRUE(a == b && a.Contains(3) && !a.Contains(4));
    a.Sort(std::greater<>());
    EXPECT_EQ(a[0], 3);
}

TEST_F(ContainersTest, ListChangesAroundPositions) {
    struct Row {
        const char* name;
        void (*change)(List&);
        Ints want;
    };
    const Row rows[] = {
        {"before the middle", [](List& l) { l.InsertBefore(l.FindIndex(1), 9); }, {1, 9, 2, 3}},
        {"behind the tail", [](List& l) { l.InsertAfter(l.GetTailPosition(), 9); }, {1, 2, 3, 9}},
        {"before null", [](List& l) { l.InsertBefore(nullptr, 9); }, {9, 1, 2, 3}},
        {"behind null", [](List& l) { l.InsertAfter(nullptr, 9); }, {1, 2, 3, 9}},
        {"own list in front", [](List& l) { l.AddHead(&l); }, {1, 2, 3, 1, 2, 3}},
        {"own list behind", [](List& l) { l.AddTail(&l); }, {1, 2, 3, 1, 2, 3}},
        {"remove head and tail",
         [](List& l) { EXPECT_EQ(l.RemoveHead().number + l.RemoveTail().number, 4); },
         {2}},
        {"remove the found", [](List& l) { l.RemoveAt(l.Find(2)); }, {1, 3}},
        {"find behind the found", [](List& l) { EXPECT_FALSE(l.Find(2, l.Find(2))); }, {1, 2, 3}},
        {"empty and refill",
         [](List& l) { l.RemoveHead(), l.RemoveHead(), l.RemoveHead(), l.AddTail(7); },
         {7}},
        {"set", [](List& l) { l.SetAt(l.FindIndex(2), 9); }, {1, 2, 9}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        List list{1, 2, 3};
        row.change(list);
        EXPECT_EQ(Numbers(list), row.want);
        Ints backwards;
        for (POSITION pos = list.GetTailPosition(); pos;)
            backwards.insert(backwards.begin(), list.GetPrev(pos).number);
        EXPECT_EQ(backwards, row.want);
        EXPECT_EQ(list.GetCount(), static_cast<INT_PTR>(row.want.size()));
    }
}

TEST_F(ContainersTest, ListRefusesNullPositionsAndAnEmptyList) {
    List list;
    POSITION none = nullptr;
    EXPECT_THROW((void)list.GetHead(), std::invalid_argument);
    EXPECT_THROW((void)list.GetTail(), std::invalid_argument);
    EXPECT_THROW(list.RemoveHead(), std::invalid_argument);
    EXPECT_THROW(list.RemoveTail(), std::invalid_argument);
    EXPECT_THROW(list.GetNext(none), std::invalid_argument);
    EXPECT_THROW(list.GetPrev(none), std::invalid_argument);
    EXPECT_THROW((void)list.GetAt(none), std::invalid_argument);
    EXPECT_THROW(list.SetAt(none, 1), std::invalid_argument);
    EXPECT_THROW(list.RemoveAt(none), std::invalid_argument);
    EXPECT_EQ(list.FindIndex(0), nullptr);
    EXPECT_EQ(list.FindIndex(-1), nullptr);
    EXPECT_TRUE(list.IsEmpty());
}

TEST_F(ContainersTest, PositionsSurviveOtherRemovalsAndMoves) {
    List list(1);
    std::vector<POSITION> places;
    for (int i = 0; i < 1000; ++i) places.push_back(list.AddTail(i));
    for (std::size_t i = 0; i < places.size(); i += 2) list.RemoveAt(places[i]);
    List moved = std::move(list);
    EXPECT_TRUE(list.IsEmpty());
    for (std::size_t i = 1; i < places.size(); i += 2)
        EXPECT_EQ(moved.GetAt(places[i]).number, static_cast<int>(i));
}

TEST_F(ContainersTest, TypedPointerListGivesItsType) {
    Probe a(1), b(2);
    CTypedPtrList<CPtrList, Probe*> list(10);
    list.AddTail(&b);
    list.AddHead(&a);
    POSITION pos = list.GetHeadPosition();
    EXPECT_EQ(list.GetNext(pos)->number, 1);
    EXPECT_EQ(list.GetAt(pos)->number, 2);
    EXPECT_EQ(list.Find(&b), pos);
    EXPECT_EQ(list.RemoveTail(), &b);
}

TEST_F(ContainersTest, MapFindsRemovesAndWalksInOrder) {
    CMap<int, int, Probe> map;
    for (int i = 0; i < 2000; ++i) map.SetAt(i * 4096, i);
    for (int i = 0; i < 2000; i += 2) EXPECT_TRUE(map.RemoveKey(i * 4096));
    EXPECT_FALSE(map.RemoveKey(0));
    map[4096].number = 77;
    EXPECT_EQ(map.GetCount(), 1000);

    int key = 0, count = 0;
    Probe value;
    for (POSITION pos = map.GetStartPosition(); pos; ++count) {
        map.GetNextAssoc(pos, key, value);
        EXPECT_EQ(key, (2 * count + 1) * 4096);
        EXPECT_EQ(value.number, count == 0 ? 77 : 2 * count + 1);
        map.RemoveKey(key);
    }
    EXPECT_EQ(count, 1000);
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_FALSE(map.Lookup(4096, value));
    POSITION none = nullptr;
    EXPECT_THROW(map.GetNextAssoc(none, key, value), std::invalid_argument);
}

TEST_F(ContainersTest, MapHandsOutItsAssociations) {
    CMap<std::string, const std::string&, int> map;
    map.InitHashTable(100);
    EXPECT_EQ(map.GetHashTableSize(), 128u);
    EXPECT_EQ(map.PGetFirstAssoc(), nullptr);
    map["a"] = 1;
    map["b"] = 2;
    map.PLookup("b")->value = 3;
    const auto* pair = map.PGetFirstAssoc();
    EXPECT_EQ(pair->key, "a");
    pair = map.PGetNextAssoc(pair);
    EXPECT_EQ(pair->value, 3);
    EXPECT_EQ(map.PGetNextAssoc(pair), nullptr);
    EXPECT_EQ(map.PLookup("c"), nullptr);
}

TEST_F(ContainersTest, TextContainersTakePlainText) {
    CStringArray array{L"b", L"a"};
    array.Add(L"c");
    array.InsertAt(0, array[2]);
    array.Sort();
    CArray<CString>& plain = array;
    EXPECT_TRUE(plain[0] == L"a" && plain[1] == L"b" && plain[3] == L"c");
    const CStringArray copy = array;
    EXPECT_EQ(copy.Find(L"b"), 1);
    // The standard's own orders must compare the texts and not the pointers they convert to.
    array.Sort(std::greater<>());
    EXPECT_TRUE(array[0] == L"c" && array[3] == L"a");
    std::ranges::sort(array);
    EXPECT_TRUE(array == copy);

    CStringList list;
    list.AddTail(L"x");
    list.AddHead(copy[0]);
    EXPECT_EQ(list.Find(L"x"), list.GetTailPosition());
    EXPECT_EQ(list.Find(L"X"), nullptr);
}

TEST_F(ContainersTest, TextMapKeepsEmbeddedZerosAndCaseApart) {
    CMapStringToString map;
    const CString zero(L"a\0b", 3);
    map.SetAt(L"a", L"plain");
    map.SetAt(zero, map[L"a"]);
    map.SetAt(L"A", L"upper");
    map.SetAt(L"", L"empty");
    for (int i = 0; i < 1000; ++i) {
        const CString key((L"key " + std::to_wstring(i)).c_str());
        map[key] = key;
    }
    EXPECT_EQ(map.GetCount(), 1004);

    CString value = L"kept";
    EXPECT_FALSE(map.Lookup(L"b", value));
    EXPECT_EQ(value, L"kept");
    EXPECT_TRUE(map.Lookup(zero, value) && value == L"plain" && map.PLookup(zero)->key == zero);
    EXPECT_TRUE(map.Lookup(std::wstring_view(L"A+").substr(0, 1), value) && value == L"upper");
    EXPECT_TRUE(map.Lookup(L"", value) && value == L"empty");
    EXPECT_TRUE(map.Lookup(L"key 999", value) && value == L"key 999");
    const wchar_t* stored = nullptr;
    EXPECT_TRUE(map.LookupKey(L"key 7", stored) && CString(stored) == L"key 7");
    EXPECT_TRUE(map.RemoveKey(zero) && !map.RemoveKey(zero) && map.RemoveKey(L"a"));
    EXPECT_EQ(map.PGetFirstAssoc()->key, L"A");
    EXPECT_EQ(map.PGetNextAssoc(map.PLookup(L"key 998"))->value, L"key 999");
}

}  // namespace
