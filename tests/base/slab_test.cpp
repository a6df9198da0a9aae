#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

#include "nexo/base/CString.h"
#include "nexo/base/SlabPool.h"
#include "nexo/base/TextSlab.h"

namespace {

using nexo::SlabPool;
using nexo::SlabRun;
using nexo::TextSlabWriter;

TEST(TextSlab, StringsOutliveTheWriterAndMoveToTheHeapWhenChanged) {
    std::vector<CString> texts;
    {
        TextSlabWriter writer;
        for (int i = 0; i < 10000; ++i) {
            const std::wstring text = L"value " + std::to_wstring(i);
            texts.push_back(writer.Make(text.data(), text.size()));
        }
        texts.push_back(writer.Make(CString(L'x', 5000), 5000));
        EXPECT_TRUE(writer.Make(L"", 0).IsEmpty());
    }
    const CString copy = texts[7];
    texts[7] += L"!";
    texts[8].SetAt(0, L'V');
    texts[9].GetBuffer()[0] = L'W';
    EXPECT_EQ(copy, L"value 7");
    EXPECT_EQ(texts[7], L"value 7!");
    EXPECT_EQ(texts[8], L"Value 8");
    EXPECT_EQ(texts[9], L"Walue 9");
    EXPECT_EQ(texts[9999], L"value 9999");
    EXPECT_EQ(texts.back().GetLength(), 5000);
}

TEST(TextSlab, StringsMayBeSharedAndDroppedByAnyThread) {
    TextSlabWriter writer;
    std::vector<CString> texts;
    for (int i = 0; i < 20000; ++i) texts.push_back(writer.Make(L"shared text", 11));
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([copies = texts, t]() mutable {
            TextSlabWriter own;
            for (auto& text : copies) {
                text = t % 2 ? own.Make(L"another", 7) : text.Mid(0, 6);
            }
        });
    }
    texts.clear();
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(writer.Make(L"end", 3), L"end");
}

TEST(SlabPool, SlotsAreDistinctAlignedAndReused) {
    static constinit SlabPool pool(48);
    std::set<void*> slots;
    for (int i = 0; i < 5000; ++i) slots.insert(pool.Take());
    EXPECT_EQ(slots.size(), 5000U);
    for (void* slot : slots) ASSERT_EQ(reinterpret_cast<std::uintptr_t>(slot) % 16, 0U);
    void* const one = *slots.begin();
    pool.Give(one);
    if (nexo::kSlabsEnabled) {
        EXPECT_EQ(pool.Take(), one);
    } else {
        slots.erase(one);
    }
    for (void* slot : slots) pool.Give(slot);
}

TEST(SlabPool, ManyThreadsTakeAndGive) {
    static constinit SlabPool pool(64);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([] {
            std::vector<std::uint64_t*> mine;
            for (std::uint64_t round = 0; round < 20000; ++round) {
                mine.push_back(new (pool.Take()) std::uint64_t(round));
                if (round % 3 == 0) {
                    ASSERT_EQ(*mine[round / 3], round / 3);
                    pool.Give(mine[round / 3]);
                    mine[round / 3] = nullptr;
                }
            }
            for (auto* slot : mine) {
                if (slot) pool.Give(slot);
            }
        });
    }
    for (auto& thread : threads) thread.join();
}

TEST(SlabPool, ARunKeepsItsTextsUntilItsLastSlotIsGone) {
    if (!nexo::kSlabsEnabled) GTEST_SKIP() << "objects have heap blocks of their own";
    static constinit SlabPool pool(48);
    std::vector<nexo::StringHeader**> slots;
    {
        SlabRun run(pool);
        TextSlabWriter texts;
        for (int i = 0; i < 100000; ++i) {
            auto* const slot = new (run.Take()) nexo::StringHeader*;
            nexo::TextRoom room = texts.Room(1);
            *room.Text() = static_cast<wchar_t>(L'a' + i % 26);
            *slot = room.Finish(1);
            texts.Continue(room);
            ASSERT_TRUE(run.Pin(*slot));
            slots.push_back(slot);
        }
        EXPECT_EQ(slots[1], slots[0] + 6) << "neighbours lie side by side";
    }
    for (std::size_t i = 0; i < slots.size(); ++i) {
        ASSERT_EQ(*reinterpret_cast<wchar_t*>(*slots[i] + 1), static_cast<wchar_t>(L'a' + i % 26));
        if (i % 2 == 0) pool.Give(slots[i]);
    }
    for (std::size_t i = 1; i < slots.size(); i += 2) pool.Give(slots[i]);
}

}  // namespace
