#include "ToolRun.h"

namespace {

using TableTool = ToolTest;

TEST_F(TableTool, Evaluates) {
    const std::string curve = "# pump\nflow;head\r\n\n10;50,5\r\n0; 10\n-2;8\n";
    const std::string surface = "\t0\t10\n1\t0\t1\n3\t2\t5\n";
    const struct {
        const char* name;
        const std::string& file;
        std::vector<std::string> arguments;
        int status;
        const char* out;
    } rows[] = {
        {"falling curve with heading and decimal comma", curve, {"5"}, 0, "30.25\n"},
        {"extrapolated to a negative place", curve, {"-e", "-3"}, 0, "7\n"},
        {"surface as JSON", surface, {"2", "5", "--json"}, 0, "{\"x\":2,\"y\":5,\"value\":2}\n"},
        {"sorted, near points dropped", "3,30\n1,10\n2.999,29\n", {"2", "--sort", "0.01"}, 0, "20\n"},
        {"a place that is no number", curve, {"five"}, 2, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<std::string> arguments = {"table", "eval", "-"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ToolAnswer answer = RunTool(arguments, row.file);
        EXPECT_EQ(answer.status, row.status) << answer.err;
        EXPECT_EQ(answer.out, row.out);
    }
}

TEST_F(TableTool, NamesThePlaceThatIsBroken) {
    const struct {
        const char* file;
        std::vector<std::string> place;
        const char* where;
    } rows[] = {
        {"0,1\n1,\n", {"0"}, ":2:3: "},
        {"0,1\n1,2,3\n", {"0"}, ":2:1: "},
        {"0;1\n1;2\n\n 1;3\n", {"0"}, ":4:2: "},
        {"3,4\n", {"1", "-e"}, ":1:1: "},
        {"x,0,1\n0,1,2\n", {"0", "0"}, ":1:1: "},
        {"x,0,0\n0,1,2\n1,1,2\n", {"0", "0"}, ":1:5: "},
        {"x,0,1\n0,1,2\n1,1\n", {"0", "0"}, ":3:1: "},
        {"", {"0"}, ":1:1: "},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"table", "eval", Make("table.csv", row.file)};
        arguments.insert(arguments.end(), row.place.begin(), row.place.end());
        const ToolAnswer answer = RunTool(arguments);
        EXPECT_EQ(answer.status, 3) << row.file;
        EXPECT_NE(answer.err.find(row.where), std::string::npos) << answer.err;
    }
}

}  // namespace
