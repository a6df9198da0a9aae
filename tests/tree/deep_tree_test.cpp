// A tree of a million levels on a small stack, and trees on many threads.
#include <gtest/gtest.h>
#include <malloc.h>
#include <pthread.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "nexo/base/SlabStore.h"
#include "nexo/platform/DebugOutput.h"
#include "nexo/tree/TreeItems.h"
#include "support/DebugText.h"
#include "tree/tree_support.h"

namespace {

void RunOnSmallStack(std::function<void()> work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 256 * 1024);
    const auto start = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

constexpr int kDepth = 1000000;

std::wstring DeepText(bool angle) {
    std::wstring text;
    for (int i = 0; i < kDepth; ++i) text += angle ? L"<n>\r\n" : L"[n]\r\nl:v\r\n";
    for (int i = 0; i < kDepth; ++i) text += angle ? L"</n>\r\n" : L"[ENDE_n]\r\n";
    return text;
}

TEST(DeepTree, EveryOperationWorksAtAMillionLevels) {
    RunOnSmallStack([] {
        const std::wstring text = DeepText(false);
        std::unique_ptr<CNode> node = Parse(text.c_str());
        EXPECT_TRUE(TextOf(*node).View() == text);
        CNode copy;
        copy = *node;
        EXPECT_EQ(copy.GetSizeOfBranch(-1), text.size());
        EXPECT_EQ(CNode::IsChildOf(&copy, node.get(), 1), 0);
        std::size_t lines = 0;
        const auto former = nexo::platform::SetDebugSink([&lines](std::wstring_view) { ++lines; });
        copy.OutputDebugStringW();
        nexo::platform::SetDebugSink(former);
        EXPECT_EQ(lines, 2U * kDepth);
        CString xml;
        EXPECT_EQ(TreeItems::WriteToXml(&copy, xml), 1);
        node.reset();
        copy.DeleteAllChildren();
        EXPECT_THROW(Parse(text.substr(0, text.size() - 5).c_str()), CExcRead);
    });
}

TEST(DeepTree, AngleStyleAndTreesBuiltByHand) {
    RunOnSmallStack([] {
        const std::wstring text = DeepText(true);
        EXPECT_EQ(TextOf(*Parse(text.c_str())).View().size(), text.size());
        CNode top(L"top");
        CNode* node = &top;
        for (int i = 0; i < kDepth; ++i) node = node->AddChild(L"n");
        EXPECT_EQ(CNode::IsChildOf(&top, node, 1), 1);
        EXPECT_EQ(CNode(top).GetSizeOfBranch(-1), top.GetSizeOfBranch(-1));
    });
}

TEST(TreeMemory, IsGivenBack) {
    const auto allocated = [] {
        nexo::FreeSpareSlabs();
        const struct mallinfo2 info = mallinfo2();
        return info.uordblks + info.hblkhd;
    };
    if (!nexo::kSlabsEnabled || allocated() == 0) GTEST_SKIP() << "a sanitizer manages the memory";
    std::wstring text = L"[top]\r\n";
    for (int i = 0; i < 20000; ++i)
        text += L"[row]\r\na:value\r\nb:" + std::to_wstring(i) + L"\r\n[ENDE_row]\r\n";
    text += L"[ENDE_top]\r\n";
    const std::size_t before = allocated();
    for (int changes = 0; changes < 6; ++changes) {
        SCOPED_TRACE(changes);
        auto node = Parse(text.c_str());
        CNode* const row = node->GetChild(10000U);
        if (changes == 1) row->GetLeaf(0U)->SetRawData(CString(L'x', 2000000));
        if (changes == 2) row->SetName(CString(L'x', 2000000));
        if (changes == 3) row->AddChild(L"new")->AddLeaf(L"x", CString(L'x', 2000000), true);
        if (changes == 4) row->FindLeaf(L"a")->SetName(CString(L'x', 2000000));
        if (changes == 5) *row = *node->GetChild(1U), *node->GetChild(2U) = CNode(*node);
        const auto copy = std::make_unique<CNode>(*node);
        node.reset();
        EXPECT_GT(allocated(), before + 5000000);
    }
    EXPECT_LT(allocated(), before + 500000);
}

TEST(TreeDump, ListsTheBranch) {
    const auto node = Parse(
        L"[A]x:a\x00AE"
        L"b\n[B]y:1\n[C][/][/][D]z:2\n[/][/]");
    node->GetFirstChild();
    DebugText debug;
    node->OutputDebugStringW();
    EXPECT_EQ(debug.Take(), L"+ A\n|- x: a:b\n|+ B\n||- y: 1\n||+ C\n|+ D\n||- z: 2\n");
    EXPECT_EQ(node->GetNextChild()->GetName(), L"D") << "the walk goes on";
    node->GetLeaf(0U)->Dump(2);
    EXPECT_EQ(debug.Take(), L"||- x: a:b\n");
}

TEST(TreeThreads, DifferentTreesDoNotDisturbEachOther) {
    std::wstring text = L"[top]\r\n";
    for (int i = 0; i < 2000; ++i)
        text += L"[row]\r\na:value\r\nb:" + std::to_wstring(i) + L"\r\n[ENDE_row]\r\n";
    text += L"[ENDE_top]\r\n";
    const auto original = Parse(text.c_str());
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&text, copy = std::make_shared<CNode>(*original)]() mutable {
            for (int round = 0; round < 5; ++round) {
                const auto mine = Parse(text.c_str());
                *copy = *mine;
                copy->GetChild(0U)->AddLeaf(L"own", L"x:y", true);
                copy->GetChild(1U)->DeleteAllLeaves();
                mine->GetChild(7U)->GetLeaf(0U)->SetRawData(copy->GetChild(5U)->GetLeaf(1U)->GetRawData());
                EXPECT_EQ(mine->GetChild(7U)->GetLeaf(0U)->GetRawData(), L"5");
                EXPECT_EQ(TextOf(*mine).View().size(), text.size() - 4);
            }
            copy.reset();
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_TRUE(TextOf(*original).View() == text);
}

}  // namespace
