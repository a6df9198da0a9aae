#include "nexo/diag/LogContainer.h"

#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/Fork.h"
#include "support/TemporaryFolder.h"

namespace {

class LogContainer : public testing::Test {
protected:
    ~LogContainer() override {
        logs_.enableLogging(true);
        for (const wchar_t* name : {L"a", L"b"}) logs_.endLog(name);
    }

    TemporaryFolder folder_;
    CLogContainer& logs_ = CLogContainer::GetInstance();
};

TEST_F(LogContainer, WritesTextsAsTheyAreToTheLogOfTheName) {
    logs_.doLog(L"a", L"unknown");
    logs_.startLog(L"a", folder_.Path("a.txt"));
    logs_.startLog(L"b", folder_.Write("b.txt", "old content"));
    logs_.doLog(L"a", L"%s;\r\n%d", L"x\u00E9\u03B1", 5);
    logs_.doLog(L"b", L"-1");
    logs_.doLog(L"A", L"names keep their case");
    EXPECT_EQ(logs_.hasLogNameUsed(L"a"), 1);
    EXPECT_EQ(logs_.hasLogNameUsed(L"A"), 0);
    EXPECT_EQ(folder_.Read("a.txt"), "x\xE9?;\r\n5");
    EXPECT_EQ(folder_.Read("b.txt"), "-1");

    logs_.startLog(L"a", folder_.Path("other.txt"));
    logs_.doLog(L"a", L"+");
    EXPECT_EQ(folder_.Read("a.txt"), "x\xE9?;\r\n5+") << "a started log stays as it is";
    logs_.endLog(L"a");
    logs_.endLog(L"a");
    EXPECT_EQ(logs_.hasLogNameUsed(L"a"), 0);
    logs_.startLog(L"a", folder_.Path("a.txt"));
    EXPECT_EQ(folder_.Read("a.txt"), "") << "a new start empties the file";
}

TEST_F(LogContainer, DoesNothingWhileDisabled) {
    logs_.startLog(L"a", folder_.Path("a.txt"));
    logs_.enableLogging(false);
    EXPECT_FALSE(logs_.isEnabled());
    EXPECT_EQ(logs_.hasLogNameUsed(L"a"), 0);
    logs_.doLog(L"a", L"dropped");
    logs_.startLog(L"b", folder_.Path("b.txt"));
    logs_.enableLogging(true);
    EXPECT_EQ(logs_.hasLogNameUsed(L"a"), 1);
    EXPECT_EQ(logs_.hasLogNameUsed(L"b"), 0);
    EXPECT_EQ(folder_.Read("a.txt"), "");
}

TEST_F(LogContainer, CleansPathsAndKeepsOnlyLogsWithAFile) {
    const std::pair<const char*, const char*> rows[] = {{"a*b?.txt", "a_b_.txt"},
                                                        {"\"<x>|.txt", "__x__.txt"},
                                                        {"12:30.txt", "12_30.txt"},
                                                        {"a\tb\x01.txt", "a_b_.txt"},
                                                        {"no/file.txt", nullptr}};
    for (const auto& [path, file] : rows) {
        logs_.startLog(L"a", folder_.Path(path));
        logs_.doLog(L"a", L"text");
        EXPECT_EQ(logs_.hasLogNameUsed(L"a"), file ? 1 : 0) << path;
        if (file) {
            EXPECT_EQ(folder_.Read(file), "text") << path;
        }
        logs_.endLog(L"a");
    }
    logs_.startLog(L"a", nullptr);
    EXPECT_EQ(logs_.hasLogNameUsed(L"a"), 0);
}

TEST_F(LogContainer, ThreadsAndProcessesWriteWholeTexts) {
    constexpr int count = 2000, threads = 4;
    const std::string lines[threads] = {"one 1", "number two 2", "the third one of all 3", "4"};
    logs_.startLog(L"a", folder_.Path("a.txt"));
    const auto work = [&] {
        std::vector<std::thread> workers;
        for (const std::string& line : lines)
            workers.emplace_back([&] {
                for (int i = 0; i < count; ++i) {
                    logs_.doLog(L"a", L"%S\n", line.c_str());
                    if (i % 100 == 0) logs_.startLog(L"b", folder_.Path("b.txt"));
                    if (logs_.hasLogNameUsed(L"b")) logs_.endLog(L"b");
                }
            });
        for (std::thread& worker : workers) worker.join();
        return true;
    };
    ChildProcess second(work);
    ASSERT_TRUE(work() && second.Succeeds());

    std::map<std::string, int> seen;
    std::istringstream text(folder_.Read("a.txt"));
    for (std::string line; std::getline(text, line);) ++seen[line];
    EXPECT_EQ(seen.size(), std::size(lines));
    for (const std::string& line : lines) EXPECT_EQ(seen[line], 2 * count) << line;
}

}  // namespace
