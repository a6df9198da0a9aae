#include "ToolRun.h"

namespace {

TEST(GuidTool, MakesExpandsAndChecks) {
    struct Row {
        std::vector<std::string> arguments;
        int status;
        std::string out;
    };
    const Row rows[] = {
        {{"from-text", "abc"}, 0, "3FSnJEne3ziwZZty06hSCL\n"},
        {{"expand", "04g$a0qSGHuO00025QrE$V"}, 0, "04abf900-d1c4-11e1-8000-00215ad4efdf\n"},
        {{"expand", "44g$a0qSGHuO00025QrE$V"}, 3, ""},
        {{"check", "04g$a0qSGHuO00025QrE$V", "6b61ce71-1a7a-473c-8f87-4262e0bdb41a"},
         0,
         "compressed  04g$a0qSGHuO00025QrE$V\nguid  6b61ce71-1a7a-473c-8f87-4262e0bdb41a\n"},
        {{"check", "nonsense"}, 1, "none  nonsense\n"},
        {{"check"}, 2, ""},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"guid"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ToolAnswer answer = RunTool(arguments);
        EXPECT_EQ(answer.status, row.status) << testing::PrintToString(arguments) << answer.err;
        EXPECT_EQ(answer.out, row.out);
    }
    const ToolAnswer made = RunTool({"guid", "new", "-c", "2"});
    ASSERT_EQ(made.out.size(), 46u);
    EXPECT_NE(made.out.substr(0, 22), made.out.substr(23, 22));
    EXPECT_EQ(RunTool({"guid", "check", made.out.substr(0, 22)}).status, 0);
    EXPECT_TRUE(IsJson(RunTool({"guid", "new", "--json"}).out));
}

}  // namespace
