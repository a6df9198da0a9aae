#include "ToolRun.h"

namespace {

using HashTool = ToolTest;

TEST_F(HashTool, SumsFilesAndTexts) {
    const std::string check = Make("check", "123456789"), empty = Make("empty", "");
    struct Row {
        std::vector<std::string> arguments;
        int status;
        std::string out;
    };
    const Row rows[] = {
        {{"crc32", check, empty}, 0, "0xcbf43926  " + check + "\n0x00000000  " + empty + "\n"},
        {{"crc32", check, "--is", "0xCBF43926"}, 0, "0xcbf43926  " + check + "\n"},
        {{"crc32", check, empty, "--is", "0xcbf43926"},
         1,
         "0xcbf43926  " + check + "\n0x00000000  " + empty + "\n"},
        {{"crc32", m_folder / "missing"}, 4, ""},
        {{"crc32"}, 2, ""},
        {{"md5", "-"}, 0, "900150983cd24fb0d6963f7d28e17f72  -\n"},
        {{"md5", "--text", "abc"}, 0, "ce1473cf80c6b3fda8e3dfc006adc315  abc\n"},
        {{"md5"}, 2, ""},
        {{"md5", "--json", "-"}, 0, "[{\"name\":\"-\",\"sum\":\"900150983cd24fb0d6963f7d28e17f72\"}]\n"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"hash"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ToolAnswer answer = RunTool(arguments, "abc");
        EXPECT_EQ(answer.status, row.status) << testing::PrintToString(arguments) << answer.err;
        EXPECT_EQ(answer.out, row.out);
    }
}

TEST_F(HashTool, ConvertsBase64) {
    struct Row {
        std::vector<std::string> options;
        std::string in, out;
        int status = 0;
        const char* message = "";
    };
    const Row rows[] = {
        {{"-"}, "Ma", "TWE=\n"},
        {{"-"}, "", "\n"},
        {{"-d", "-"}, "TW\r\nE=\n", "Ma"},
        {{"-d", "-"}, "TWE=\nTWE=", "", 3, "standard input:1:4: \"=\" stands before the end"},
        {{"-d", "-"}, "TWFu\nTW*u", "", 3, "standard input:2:3: a character"},
        {{"-d", "-"}, "TWFuT", "", 3, "standard input:1:6: the length"},
        {{"--text", "A"}, "", "QQA=\n"},
        {{"--text", "-d", "QQA="}, "", "A\n"},
        {{"--text", "-d", "QQA"}, "", "", 3, "QQA: no Base64 text"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"hash", "base64"};
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        const ToolAnswer answer = RunTool(arguments, row.in);
        EXPECT_EQ(answer.status, row.status) << testing::PrintToString(arguments) << answer.err;
        EXPECT_EQ(answer.out, row.out);
        EXPECT_NE(answer.err.find(row.message), std::string::npos) << answer.err;
    }
}

}  // namespace
