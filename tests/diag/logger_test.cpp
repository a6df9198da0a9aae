#include "nexo/diag/Logger.h"

#include <sys/mman.h>
#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <new>
#include <regex>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "nexo/base/Format.h"
#include "nexo/base/Time.h"
#include "nexo/diag/ModuleVersion.h"
#include "support/Fork.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view header = "Group;Message;Current File;Source File;Line;Time\n";

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0, end; at < text.size(); at = end + 1) {
        end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
    }
    return lines;
}

class Logger : public testing::Test {
protected:
    Logger() : log_(CLogger::GetInstance()) {
        log_.SetLogDir(folder_.Path(""));
        log_.SetLogName(L"run.csv");
        log_.SetCurrentFile(L"");
    }
    ~Logger() override { log_.Stop(); }

    /// The lines of a log without header and times, whose form is checked.
    std::vector<std::string> Entries(const char* name = "run.csv") const {
        std::string text = folder_.Read(name);
        EXPECT_TRUE(text.starts_with(header) && text.ends_with('\n')) << text;
        std::vector<std::string> lines = LinesOf(text.substr(header.size()));
        static const std::regex time(";([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]\\.[0-9]{3}$");
        for (std::string& line : lines) {
            EXPECT_TRUE(std::regex_search(line, time)) << line;
            line.erase(line.rfind(';'));
        }
        return lines;
    }

    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.Native()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryFolder folder_;
    CLogger& log_;
};

TEST_F(Logger, WritesOneCleanLineForEachEvent) {
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"text", "text"},       {L"a;b\nc", "a,b|c"}, {L"a\r\nb\rc", "a||b|c"},
        {L"a\rb", "a\rb"},  // a carriage return alone stays
        {L"-5 K", " -5 K"},      {L"5-3", "5-3"},      {L"\u00E4;\u20AC\u03B1\u2019", "\xE4,\x80?\x92"},
        {L"\xD83D\xDE00", "??"}, {L"100%%", "100%"},   {L"", ""},
    };
    ASSERT_EQ(log_.Start(), 1);
    log_.SetCurrentFile(L"C:\\gr\u00FCn;rot.asd");
    for (const auto& [message, want] : rows) log_.Write(L"Gr", message);
    log_.Write(L"Gr", "dir/file.cpp", 42, L"%s=%d", L"x;y", -7);
    log_.Write(nullptr, nullptr);
    log_.Write(L"Long", L"%5000d", 1);

    const std::vector<std::string> lines = Entries();
    ASSERT_EQ(lines.size(), std::size(rows) + 3);
    const std::string file = ";C:\\gr\xFCn;rot.asd;";
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(lines[i], std::string("Gr;") + rows[i].second + file + ";");
    EXPECT_EQ(lines[std::size(rows)], "Gr;x,y=-7" + file + "dir/file.cpp;42");
    EXPECT_EQ(lines[std::size(rows) + 1], "(null);" + file + ";");
    EXPECT_EQ(lines.back(), "Long;" + std::string(4999, ' ') + "1" + file + ";");
}

TEST_F(Logger, GoesOnBehindTheLinesOfAnEarlierRun) {
    log_.Write(L"G", L"dropped before the start");
    ASSERT_EQ(log_.Start(), 1);
    ASSERT_EQ(log_.Start(), 1);
    log_.Write(L"G", L"first");
    log_.Stop();
    EXPECT_EQ(log_.IsStarted(), 0);
    log_.Write(L"G", L"dropped");
    ASSERT_EQ(log_.Start(), 1);
    log_.Write(L"G", L"second");
    EXPECT_EQ(Entries(), (std::vector<std::string>{"G;first;;;", "G;second;;;"}));
}

TEST_F(Logger, NamesItsFileAndFolder) {
    log_.SetLogName(L"my.log.txt");
    log_.SetLogDir(folder_.Path("new"));
    ASSERT_EQ(log_.Start(), 1) << "one level is created";
    EXPECT_TRUE(fs::exists(folder_.Native("new/my.log.csv")));
    log_.Stop();
    log_.SetLogDir(folder_.Path("a/b"));
    EXPECT_EQ(log_.Start(), 0) << "two are not";
    log_.SetLogName(L"");
    log_.SetLogDir(folder_.Path(""));
    const CTime before = CTime::GetCurrentTime();
    ASSERT_EQ(log_.Start(), 1);
    const auto exists = [&](CTime day) {
        const CString name =
            nexo::Formatted(L"Log_%d.%d.%d.csv", day.GetYear(), day.GetMonth(), day.GetDay());
        return fs::exists(folder_.Native(std::string(CStringA(name))));
    };
    EXPECT_TRUE(exists(before) || exists(CTime::GetCurrentTime())) << "midnight may fall between";
    log_.Stop();
    fs::create_directory(folder_.Native("folder.csv"));
    log_.SetLogName(L"folder");
    EXPECT_EQ(log_.Start(), 0) << "the name belongs to a folder";
}

TEST_F(Logger, TellsTheVersionOfARegisteredModule) {
    const CString module = folder_.Write("app", "");
    nexo::RegisterModuleVersion(module, {L"14.2", 120789});
    ASSERT_EQ(log_.Start(), 1);
    log_.WriteStartup(module);
    log_.WriteStartup(folder_.Path("./APP"));
    log_.WriteStartup(folder_.Path("other"));
    EXPECT_EQ(Entries(),
              (std::vector<std::string>{"Start;Version 14.2 (120789);;;", "Start;Version 14.2 (120789);;;",
                                        "Start;Version information is missing;;;"}));
}

TEST_F(Logger, PurgesOldFilesOnly) {
    using std::chrono::hours;
    const std::tuple<const char*, hours, bool> rows[] = {
        {"now.csv", hours(0), true},     {"almost.csv", hours(23), true}, {"day.csv", hours(24), false},
        {"Old.CSV", hours(1000), false}, {"old.txt", hours(1000), true},  {"future.csv", hours(-1), true}};
    ASSERT_EQ(log_.Start(), 1);
    const auto age = [&](const char* name, hours by) {
        fs::last_write_time(folder_.Native(name),
                            fs::file_time_type::clock::now() - by - std::chrono::seconds(1));
    };
    for (const auto& [name, by, kept] : rows) {
        folder_.Write(name, "text");
        age(name, by);
    }
    fs::create_directory(folder_.Native("folder.csv"));
    age("folder.csv", hours(1000));
    age("run.csv", hours(1000));
    log_.PurgeLogFiles(0);
    for (const auto& [name, by, kept] : rows) EXPECT_EQ(fs::exists(folder_.Native(name)), kept) << name;
    EXPECT_TRUE(fs::exists(folder_.Native("folder.csv")));
    EXPECT_TRUE(fs::exists(folder_.Native("run.csv"))) << "open";
    log_.PurgeLogFiles(-1);
    EXPECT_FALSE(fs::exists(folder_.Native("now.csv")));
    EXPECT_TRUE(fs::exists(folder_.Native("future.csv"))) << "its age of -1 days does not exceed -1";
}

TEST_F(Logger, TwoProcessesGetFilesOfTheirOwnAndTearNoLine) {
    constexpr int count = 100000;
    const auto work = [&](const wchar_t* group) {
        for (int i = 0; i < count; ++i) log_.Write(group, L"line %d of many", i);
        return true;
    };
    // The first one holds the file before the second asks for it.
    ASSERT_EQ(log_.Start(), 1);
    ChildProcess second([&] {
        log_.Stop();
        return log_.Start() == 1 && work(L"second");
    });
    ASSERT_TRUE(work(L"first") && second.Succeeds());

    const std::vector<std::string> files = Files();
    ASSERT_EQ(files.size(), 2u);
    EXPECT_TRUE(std::regex_match(files[1], std::regex("run_[0-9]+\\.csv"))) << files[1];
    for (const std::string& file : files) {
        const std::string text = folder_.Read(file), group = file == "run.csv" ? "first" : "second";
        const std::vector<std::string> lines = LinesOf(text.substr(header.size()));
        ASSERT_EQ(lines.size(), std::size_t{count});
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string want = group + ";line " + std::to_string(i) + " of many;;;;";
            ASSERT_TRUE(lines[i].starts_with(want) && lines[i].size() == want.size() + 12) << lines[i];
        }
    }
}

TEST_F(Logger, KeepsEveryLineOfAKilledProcess) {
    void* shared = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(shared, MAP_FAILED);
    auto& returned = *new (shared) std::atomic<int>(0);
    for (int round = 1; round <= 5; ++round) {
        fs::remove(folder_.Native("run.csv"));
        returned = 0;
        ChildProcess writer([&] {
            if (log_.Start() != 1) return false;
            for (int i = 0;; returned = ++i) log_.Write(L"G", L"line %d", i);
        });
        while (returned < 1000 * round) std::this_thread::yield();
        writer.Kill();
        const std::vector<std::string> lines = Entries();
        ASSERT_GE(lines.size(), static_cast<std::size_t>(returned.load()));
        for (std::size_t i = 0; i < lines.size(); ++i)
            ASSERT_EQ(lines[i], "G;line " + std::to_string(i) + ";;;");
    }
    munmap(shared, 4096);
}

TEST_F(Logger, LeavesOutLinesThatDoNotFitOnTheDisk) {
    ChildProcess writer([&] {
        signal(SIGXFSZ, SIG_IGN);
        rlimit limit{1000, RLIM_INFINITY};
        if (log_.Start() != 1 || setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
        for (int i = 0; i < 100; ++i) log_.Write(L"G", L"line %d", i);
        limit.rlim_cur = RLIM_INFINITY;
        setrlimit(RLIMIT_FSIZE, &limit);
        log_.Write(L"G", L"there is room again");
        return true;
    });
    ASSERT_TRUE(writer.Succeeds());
    const std::vector<std::string> lines = Entries();
    ASSERT_TRUE(lines.size() > 10 && lines.size() < 60) << lines.size();
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
        EXPECT_EQ(lines[i], "G;line " + std::to_string(i) + ";;;");
    EXPECT_EQ(lines.back(), "G;there is room again;;;");

    ChildProcess starter([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10, RLIM_INFINITY};
        log_.SetLogName(L"new");
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 && log_.Start() == 0 && log_.IsStarted() == 0;
    });
    EXPECT_TRUE(starter.Succeeds()) << "there is no room for the header";
    EXPECT_FALSE(fs::exists(folder_.Native("new.csv")));
}

}  // namespace
