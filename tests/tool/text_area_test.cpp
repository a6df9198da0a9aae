#include "ToolRun.h"

namespace {

using TextTool = ToolTest;

TEST_F(TextTool, TellsWhatAFileIs) {
    struct Row {
        const char* name;
        std::string bytes;
        std::vector<const char*> facts;
    };
    const Row rows[] = {
        {"page 1252",
         "\xFC\r\nb\r\n",
         {"\"encoding\":\"code page 1252\"", "\"crlf\":2", "\"lines\":2", "\"validUtf8\":false"}},
        {"UTF-8 without mark", "ü\nb", {"\"validUtf8\":true", "\"lf\":1", "\"lines\":2", "\"characters\":4"}},
        {"UTF-8 with mark",
         "\xEF\xBB\xBFx\U0001F600→",
         {"UTF-8 with mark", "\"characters\":3", "\"codeUnits\":4", "\"notIn1252\":3",
          "\"firstNotIn1252\":{\"line\":1,\"column\":2}"}},
        {"UTF-16",
         std::string("\xFF\xFE"
                     "a\0\r\0",
                     6),
         {"UTF-16 little-endian with mark", "\"cr\":1", "\"lines\":1"}},
        {"shifted", "b\x0E\x0B", {"\"looksShifted\":true", "\"shifted\":false"}},
        {"empty", "", {"\"lines\":0", "\"bytes\":0", "\"looksShifted\":false"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const ToolAnswer answer = RunTool({"text", "info", "--json", "-"}, row.bytes);
        EXPECT_TRUE(IsJson(answer.out));
        for (const char* fact : row.facts)
            EXPECT_NE(answer.out.find(fact), std::string::npos) << fact << answer.out;
        EXPECT_EQ(RunTool({"text", "info", "-"}, row.bytes).status, 0);
    }
}

TEST_F(TextTool, ConvertsBetweenEncodings) {
    struct Row {
        std::vector<std::string> options;
        std::string in;
        std::string out;
        int status = 0;
    };
    const Row rows[] = {
        {{"--to", "utf8"}, "\xFC\x80", "\xEF\xBB\xBFü€"},
        {{"--to", "utf8-nomark"}, std::string("\xFF\xFE\xFC\0", 4), "ü"},
        {{"--to", "utf16le"}, "\xFC", std::string("\xFF\xFE\xFC\0", 4)},
        {{"--to", "oem"}, "\xFC", "\x81"},
        {{"--from", "437", "--to", "1252"}, "\x81", "\xFC"},
        {{"--from", "utf8-nomark", "--to", "1252"}, "ü→", "\xFC?"},
        {{"--from", "utf8-nomark", "--to", "1252", "--strict"}, "ü→", "", 3},
        {{"--to", "1252", "--shifted"}, "b\x0B", "a\n"},
        {{"--to", "1252", "--shift-output"}, "a\n", "b\x0B"},
        {{"--to", "klingon"}, "a", "", 2},
        {{}, "a", "", 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.options));
        std::vector<std::string> arguments = {"text", "convert", "-"};
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        const ToolAnswer answer = RunTool(arguments, row.in);
        EXPECT_EQ(answer.status, row.status) << answer.err;
        EXPECT_EQ(answer.out, row.out);
    }
    const std::string out = (m_folder / "out").string();
    EXPECT_EQ(RunTool({"text", "convert", "-n", "-", "--to", "1252", "-o", out}, "a").status, 0);
    EXPECT_FALSE(std::filesystem::exists(out));
    EXPECT_TRUE(IsJson(RunTool({"text", "convert", "--json", "-", "--to", "1252", "-o", out}, "a").out));
    EXPECT_EQ(FileContent(out), "a");
}

TEST_F(TextTool, HandlesRecordsAndPatterns) {
    struct Row {
        std::vector<std::string> arguments;
        int status;
        const char* out;
    };
    const Row rows[] = {
        {{"text", "record", "get", "a:b®:c", "2"}, 0, "b:\n"},
        {{"text", "record", "get", "a; b", "2", "--sep", "; "}, 0, "b\n"},
        {{"text", "record", "set", "a:b", "4", "x:y"}, 0, "a:b::x®y\n"},
        {{"text", "record", "set", "a", "1", "ü", "--json"}, 0, "{\"record\":\"ü\"}\n"},
        {{"text", "record", "get", "a", "1", "--sep", ""}, 2, ""},
        {{"text", "match", "*.txt", "a.txt", "b.doc"}, 0, "a.txt\n"},
        {{"text", "match", "Ä?", "äx"}, 1, ""},
        {{"text", "match", "-I", "Ä?", "äx"}, 0, "äx\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        const ToolAnswer answer = RunTool(row.arguments);
        EXPECT_EQ(answer.status, row.status) << answer.err;
        EXPECT_EQ(answer.out, row.out);
    }
}

}  // namespace
