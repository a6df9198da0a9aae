#include <algorithm>

#include "ToolRun.h"

namespace {

const std::string kDocument = NEXO_SOURCE_DIR "/samples/project/lindenhof.asd";

using AsdTool = ToolTest;

TEST_F(AsdTool, ShowsTheSample) {
    const ToolAnswer info = RunTool({"asd", "info", kDocument});
    EXPECT_EQ(info.status, 0) << info.err;
    EXPECT_NE(info.out.find("    1  Neubau Kindertagesstätte Lindenhof\n"), std::string::npos);
    EXPECT_NE(info.out.find("\n  1  Los 1 Heizung    116 "), std::string::npos) << info.out;
    EXPECT_TRUE(IsJson(RunTool({"asd", "info", "--json", kDocument}).out));

    const ToolAnswer items = RunTool({"asd", "items", "--los", "2", kDocument});
    EXPECT_EQ(std::ranges::count(items.out, '\n'), 103);
    EXPECT_NE(items.out.find("RL-1101"), std::string::npos);
    const ToolAnswer all = RunTool({"asd", "items", "--json", kDocument});
    EXPECT_TRUE(IsJson(all.out));
    EXPECT_NE(all.out.find(R"("text3":"Wärmeerzeugung","text4":"Fabrikat Nordwind"})"), std::string::npos);
    EXPECT_EQ(RunTool({"asd", "items", "--los", "4", kDocument}).status, 1);
    EXPECT_EQ(RunTool({"asd", "check", kDocument}).status, 0);
}

TEST_F(AsdTool, ChecksTellWhatIsBroken) {
    struct Row {
        const char* name;
        std::string text;
        std::vector<const char*> findings;
    };
    const Row rows[] = {
        {"batch without end", "VERSION 2.0\r\n[LOS]\r\n", {":2:1: "}},
        {"broken batch", "[LOS]\r\n[A]\r\n[ENDE_B]\r\n[ENDE_LOS]\r\n", {":3:7: Wrong ending node!"}},
        {"section without end", "\r\n[BEMERKUNGEN]\r\n", {":2:1: section without its end"}},
        {"lines lost",
         "[PROJEKTDATEN]\n1\n2\n3\n4\n5\n6\n7\n[ENDE_PROJEKTDATEN]",
         {":2:1: 7 lines of project data"}},
        {"items",
         "[LOS]\r\nName:x\r\nA:zwei:::1::\r\nB:1\r\nC:1.5:::x::\r\nD:2,5:::-3::\r\n[ENDE_LOS]\r\n",
         {"LOS 1, item \"A\": the amount is no number", "item \"B\": 1 values",
          "item \"C\": the number is none"}},
        {"character without a place", "\xEF\xBB\xBF→", {":1:1: no character of code page 1252"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ToolAnswer answer = RunTool({"asd", "check", "-"}, row.text);
        EXPECT_EQ(answer.status, 3);
        for (const char* finding : row.findings)
            EXPECT_NE(answer.err.find(finding), std::string::npos) << answer.err;
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(answer.err, '\n')), row.findings.size())
            << answer.err;
        EXPECT_TRUE(IsJson(RunTool({"asd", "check", "--json", "-"}, row.text).out));
    }
    EXPECT_EQ(RunTool({"asd", "info", "-"}, rows[0].text).status, 3);
}

}  // namespace
