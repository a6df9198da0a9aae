#include "ToolRun.h"

namespace {

namespace fs = std::filesystem;
using LogTool = ToolTest;

TEST_F(LogTool, PurgesOldLogs) {
    const std::string old = Make("old.csv", "text"), fresh = Make("new.csv", "text");
    fs::last_write_time(
        old, fs::file_time_type::clock::now() - std::chrono::hours(24 * 8) - std::chrono::minutes(1));
    const auto purge = [&](const char* days, std::vector<std::string> more) {
        std::vector<std::string> arguments = {"log", "purge", "--days", days, "--dir", m_folder};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunTool(arguments);
    };
    EXPECT_EQ(purge("8", {}).status, 1) << "none is older than eight whole days";
    const ToolAnswer would = purge("7", {"--dry-run", "-v"});
    EXPECT_EQ(would.status, 0) << would.err;
    EXPECT_NE(would.out.find("old.csv\n"), std::string::npos);
    EXPECT_NE(would.err.find("would delete"), std::string::npos);
    EXPECT_TRUE(fs::exists(old));
    EXPECT_TRUE(IsJson(purge("7", {"--json"}).out));
    EXPECT_FALSE(fs::exists(old));
    EXPECT_TRUE(fs::exists(fresh));
    EXPECT_EQ(purge("-1", {}).status, 2);
    EXPECT_EQ(RunTool({"log", "purge", "--days", "0", "--dir", fresh}).status, 4);
}

}  // namespace
