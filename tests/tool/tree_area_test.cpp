#include <algorithm>

#include "ToolRun.h"

namespace {

const std::string kSettings = NEXO_SOURCE_DIR "/samples/project/einstellungen.txt";

using TreeTool = ToolTest;

TEST_F(TreeTool, AnswersWithItsExitStatus) {
    struct Row {
        const char* name;
        std::vector<std::string> arguments;
        int status;
        const char* out;
    };
    const Row rows[] = {
        {"value", {"tree", "get", kSettings, "Heizung", "Vorlauf"}, 0, "55\n"},
        {"value by index", {"tree", "get", kSettings, "Heizung", "Kreise", "2"}, 0, "Heizkörper\n"},
        {"escapes undone",
         {"tree", "get", kSettings, "Ausgabe", "Vorlage"},
         0,
         "C:\\Vorlagen\\Stückliste.txt\n"},
        {"raw",
         {"tree", "get", "--raw", kSettings, "Ausgabe", "Vorlage"},
         0,
         "C®\\Vorlagen\\Stückliste.txt\n"},
        {"top node", {"tree", "get", kSettings, "", "Version"}, 0, "3\n"},
        {"umlauts in the path", {"tree", "get", kSettings, "Gebäude\\Raum", "Name"}, 0, "Mehrzweckraum\n"},
        {"library path", {"tree", "get", "C:" + kSettings, "", "Version"}, 0, "3\n"},
        {"no such leaf", {"tree", "get", kSettings, "Heizung", "vorlauf"}, 1, ""},
        {"no such node", {"tree", "show", kSettings, "Lüftung"}, 1, ""},
        {"no such index", {"tree", "get", kSettings, "Heizung", "Vorlauf", "2"}, 1, ""},
        {"index 0", {"tree", "get", kSettings, "Heizung", "Vorlauf", "0"}, 2, ""},
        {"no verb", {"tree"}, 2, ""},
        {"unknown area", {"woods"}, 2, ""},
        {"unknown encoding", {"tree", "show", kSettings, "--from", "utf7"}, 2, ""},
        {"no such file", {"tree", "show", (m_folder / "none").string()}, 4, ""},
        {"a folder", {"tree", "show", m_folder.string()}, 4, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ToolAnswer answer = RunTool(row.arguments);
        EXPECT_EQ(answer.status, row.status);
        EXPECT_EQ(answer.out, row.out);
        EXPECT_EQ(answer.err.empty(), row.status == 0);
    }
}

TEST_F(TreeTool, EveryVerbHasHelpWithExamples) {
    for (const char* verb : {"show", "get", "set", "check", "xml"}) {
        const ToolAnswer answer = RunTool({"tree", verb, "--help"});
        EXPECT_EQ(answer.status, 0);
        EXPECT_NE(answer.out.find("Examples:\n  nexo tree " + std::string(verb)), std::string::npos);
    }
}

TEST_F(TreeTool, ShowsTreesForPeopleAndPrograms) {
    const std::string text =
        "[A]\r\nx:1:a\xAE"
        "b\r\n[B]\r\n\x1B:\"\\\r\n[ENDE_B]\r\n[ENDE_A]\r\n";
    EXPECT_EQ(RunTool({"tree", "show", "-"}, text).out, "[A]\n  x: 1 : a:b\n  [B]\n    ␛: \"\\\n");
    EXPECT_EQ(RunTool({"tree", "show", "--depth", "1", "-"}, text).out,
              "[A]\n  x: 1 : a:b\n  [B] (1 value, 0 nodes)\n");
    const ToolAnswer json = RunTool({"tree", "show", "--json", "-"}, text);
    EXPECT_TRUE(IsJson(json.out));
    EXPECT_NE(json.out.find(R"({"name":"x","values":["1","a:b"]})"), std::string::npos);
    EXPECT_NE(json.out.find(R"({"name":"\u001b","values":["\u0022\u005c"]})"), std::string::npos);
    EXPECT_EQ(RunTool({"tree", "xml", "-"}, text.substr(0, text.find("[B]")) + "[ENDE_A]").out,
              "<?xml version=\"1.0\" encoding=\"utf-8\"?><A x=\"1\"/>\n");
}

TEST_F(TreeTool, DeepTreesAreShownWithoutRecursion) {
    std::string text;
    for (int i = 0; i < 3000; ++i) text += "[A]";
    for (int i = 0; i < 3000; ++i) text += "[/]";
    const ToolAnswer answer = RunTool({"tree", "show", "-"}, text);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(std::ranges::count(answer.out, '\n'), 3000);
}

TEST_F(TreeTool, ChecksTellThePlace) {
    struct Row {
        const char* text;
        const char* message;
    };
    const Row rows[] = {
        {"A", ":1:1: Start bracket [ not found!"},
        {"\r\n [A", "EOF reached before end bracket ] found!"},
        {"[A]\r\n\xE4:1\r\n[B]\r\n[ENDE_C]\r\n", ":4:7: Wrong ending node!"},
        {"[A]\r\nx", "EOF reached before leaf complete!"},
    };
    std::vector<std::string> arguments = {"tree", "check", kSettings};
    for (const Row& row : rows) {
        const std::string file = Make("broken" + std::to_string(arguments.size()), row.text);
        arguments.push_back(file);
        const ToolAnswer answer = RunTool({"tree", "check", file});
        EXPECT_EQ(answer.status, 3);
        EXPECT_EQ(answer.err.find(file + ":"), 0u);
        EXPECT_NE(answer.err.find(row.message), std::string::npos) << answer.err;
        EXPECT_EQ(RunTool({"tree", "show", file}).err, answer.err);
    }
    const ToolAnswer all = RunTool(arguments);
    EXPECT_EQ(all.status, 3);
    EXPECT_EQ(std::ranges::count(all.err, '\n'), 4);
    arguments.insert(arguments.begin() + 2, "--json");
    EXPECT_TRUE(IsJson(RunTool(arguments).out));
}

TEST_F(TreeTool, EditsInPlaceAndKeepsTheForm) {
    struct Row {
        const char* name;
        std::string file;
        std::string before;
        std::string after;
    };
    const auto wide = [](const std::string& ascii, bool little) {
        std::string bytes = little ? "\xFF\xFE" : "\xFE\xFF";
        for (const char c : ascii) bytes += little ? std::string{c, '\0'} : std::string{'\0', c};
        return bytes;
    };
    const auto raised = [](std::string bytes) {
        for (char& byte : bytes) byte = static_cast<char>(byte + 1);
        return bytes;
    };
    const std::string before = "[A]\r\n\tx:1:2\r\n\t[B]\r\n\t[ENDE_B]\r\n[ENDE_A]\r\n";
    const std::string after = "[A]\r\n\tx:1:7\r\n\t[B]\r\n\t[ENDE_B]\r\n[ENDE_A]\r\n";
    const Row rows[] = {
        {"page 1252, indented", "a.txt", "[A]\r\n\tx:1:\xFC\r\n[ENDE_A]\r\n",
         "[A]\r\n\tx:1:7\r\n[ENDE_A]\r\n"},
        {"page 1252, not indented", "b.txt", "[A]\r\nx:1\r\ny:\x80\x81\r\n[ENDE_A]\r\n",
         "[A]\r\nx:1:7\r\ny:\x80\x81\r\n[ENDE_A]\r\n"},
        {"UTF-8 with mark", "c.txt", "\xEF\xBB\xBF[A]\r\nx:1:ü\r\ny:ü\r\n[ENDE_A]\r\n",
         "\xEF\xBB\xBF[A]\r\nx:1:7\r\ny:ü\r\n[ENDE_A]\r\n"},
        {"UTF-16 little-endian", "d.txt", wide(before, true), wide(after, true)},
        {"UTF-16 big-endian", "e.txt", wide(before, false), wide(after, false)},
        {"shifted by its name", "f.trx", raised(before), raised(after)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string file = Make(row.file, row.before);
        const ToolAnswer dry = RunTool({"tree", "set", "-n", "-v", "-i", file, "", "x", "7", "--index", "2"});
        EXPECT_EQ(dry.status, 0);
        EXPECT_NE(dry.err.find("would write"), std::string::npos);
        EXPECT_EQ(FileContent(file), row.before);
        const ToolAnswer answer = RunTool({"tree", "set", "-i", file, "", "x", "7", "--index", "2"});
        EXPECT_EQ(answer.status, 0) << answer.err;
        EXPECT_EQ(answer.out + answer.err, "");
        EXPECT_EQ(FileContent(file), row.after);
    }
}

TEST_F(TreeTool, RefusesEditsThatWouldLoseSomething) {
    struct Row {
        const char* name;
        std::string content;
        std::vector<std::string> edit;
        int status;
    };
    const std::string good = "[A]\r\nx:1\r\n[ENDE_A]\r\n";
    const Row rows[] = {
        {"value outside of the page", good, {"", "x", "→"}, 2},
        {"line break in a leaf's name", good, {"", "x\ny", "1"}, 2},
        {"bracket in a node's name", good, {"a]b", "x", "1"}, 2},
        {"text behind the tree", good + "more", {"", "x", "1"}, 3},
        {"malformed UTF-8", "\xEF\xBB\xBF[A]\r\nx:\xFF\r\n[ENDE_A]\r\n", {"", "x", "1"}, 3},
        {"angle style that does not come back", "<A>\r\nx:1\r\ny:2\r\n</A>\r\n", {"", "", "1"}, 3},
        {"broken", "[A]\r\n", {"", "x", "1"}, 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string file = Make("file.txt", row.content);
        std::vector<std::string> arguments = {"tree", "set", "-i", file};
        arguments.insert(arguments.end(), row.edit.begin(), row.edit.end());
        const ToolAnswer answer = RunTool(arguments);
        EXPECT_EQ(answer.status, row.status) << answer.err;
        EXPECT_FALSE(answer.err.empty());
        EXPECT_EQ(FileContent(file), row.content);
    }
}

TEST_F(TreeTool, WritesElsewhereWhenAskedTo) {
    const std::string file = Make("in.txt", "[A]\r\n[ENDE_A]\r\n");
    const std::string want = "[A]\r\n[B]\r\nx:-\xE4\r\n[ENDE_B]\r\n[ENDE_A]\r\n";
    const std::string out = (m_folder / "out.txt").string();
    EXPECT_EQ(RunTool({"tree", "set", file, "-o", out, "--", "B", "x", "-ä"}).status, 0);
    EXPECT_EQ(FileContent(out), want);
    EXPECT_EQ(RunTool({"tree", "set", "-i", "-", "B", "x", "1"}, "[A][/]").status, 2);
    const ToolAnswer printed = RunTool({"tree", "set", "-", "--", "B", "x", "-ä"}, "[A][/]");
    EXPECT_EQ(printed.out, "[A]\r\n[B]\r\nx:-ä\r\n[ENDE_B]\r\n[ENDE_A]\r\n");
}

TEST_F(TreeTool, EndsQuietlyWhenNobodyReads) {
    std::string text = "[A]\r\n";
    for (int i = 0; i < 100'000; ++i) text += "x:1\r\n";
    const std::string file = Make("long.txt", text + "[ENDE_A]\r\n");
    for (const std::string trap : {"", "trap '' PIPE; "}) {
        SCOPED_TRACE(trap);
        const ToolAnswer answer =
            RunShell(trap + "{ \"$0\" tree show \"$1\"; echo $? >&2; } | head -n 1", {file});
        EXPECT_EQ(answer.out, "[A]\n");
        EXPECT_EQ(answer.err, "0\n");
    }
    const ToolAnswer full = RunShell("\"$0\" tree show \"$1\" >/dev/full", {file});
    EXPECT_EQ(full.status, 4);
    EXPECT_NE(full.err.find("standard output"), std::string::npos);
}

}  // namespace
