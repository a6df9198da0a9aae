#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "nexo/base/CString.h"
#include "nexo/base/TextSlab.h"

namespace {

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

}  // namespace
