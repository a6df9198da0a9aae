#include "nexo/diag/LogContainer.h"

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
    struct Row {
        const char* name;
        const char* path;
        const char* file;
    };
    constexpr Row rows[] = {{"wildcards", "a*b?.txt", "a_b_.txt"},
                            {"quotes and brackets", "\"<x>|.txt", "__x__.txt"},
                            {"colon", "12:30.txt", "12_30.txt"},
                            {"control characters", "a\tb\x01.txt", "a_b_.txt"},
                            {"missing folder", "no/file.txt", nullptr}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        logs_.startLog(L"a", folder_.Path(row.path));
        logs_.doLog(L"a", L"text");
        EXPECT_EQ(logs_.hasLogNameUsed(L"a"), row.file ? 1 : 0);
        if (row.file) {
            EXPECT_EQ(folder_.Read(row.file), "text");
            std::filesystem::remove(folder_.Native(row.file));
        }
        logs_.endLog(L"a");
    }
    logs_.startLog(L"a", nullptr);
    EXPECT_EQ(logs_.hasLogNameUsed(L"a"), 0);
}

TEST_F(LogContainer, ThreadsAndProcessesWriteWholeTexts) {
    constexpr int count = 2000, threads = 4;
    logs_.startLog(L"a", folder_.Path("a.txt"));
    const auto work = [&] {
        std::vector<std::thread> workers;
        for (int t = 0; t < threads; ++t)
            workers.emplace_back([&, t] {
                for (int i = 0; i < count; ++i) {
                    logs_.doLog(L"a", L"%s %d\n",
                                std::wstring(static_cast<std::size_t>(t + 1) * 10, L'x').c_str(), t);
                    if (i % 100 == 0 && t == 0) logs_.startLog(L"b", folder_.Path("b.txt"));
                    if (i % 100 == 50 && t == 0) logs_.endLog(L"b");
                    static_cast<void>(logs_.hasLogNameUsed(L"b"));
                }
            });
        for (std::thread& worker : workers) worker.join();
        return true;
    };
    ChildProcess second(work);
    work();
    ASSERT_TRUE(second.Succeeds());

    int seen[threads] = {};
    const std::string text = folder_.Read("a.txt");
    for (std::size_t at = 0, end; at < text.size(); at = end + 1) {
        end = text.find('\n', at);
        ASSERT_NE(end, text.npos);
        const std::string line = text.substr(at, end - at);
        const int thread = line.back() - '0';
        ASSERT_TRUE(thread >= 0 && thread < threads) << line;
        ASSERT_EQ(line,
                  std::string(static_cast<std::size_t>(thread + 1) * 10, 'x') + " " + std::to_string(thread));
        ++seen[thread];
    }
    for (const int lines : seen) EXPECT_EQ(lines, 2 * count);
}

}  // namespace
