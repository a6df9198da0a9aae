// A flushed log line beside spdlog and the bare system call, and stopwatches beside their clock.

#include <fcntl.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "compare.h"
#include "nexo/diag/LogContainer.h"
#include "nexo/diag/Logger.h"
#include "nexo/diag/StopWatch.h"
#include "nexo/platform/Clock.h"

namespace {

constexpr std::size_t kLines = 5000;

void CompareLines(const std::filesystem::path& folder) {
    const auto file = [&](const char* name) { return (folder / name).string(); };
    CLogger& log = CLogger::GetInstance();
    log.SetLogDir(CString(folder.c_str()));
    log.SetLogName(L"nexo");
    log.SetCurrentFile(L"C:\\Projects\\House.asd");
    log.Start();
    CLogContainer& logs = CLogContainer::GetInstance();
    logs.startLog(L"named", CString(file("named.txt").c_str()));
    const auto spd = spdlog::basic_logger_st("spdlog", file("spdlog.txt"));
    spd->set_pattern("%n;%v;C:\\Projects\\House.asd;%s;%#;%H:%M:%S.%e");
    spd->flush_on(spdlog::level::trace);
    std::ofstream stream(file("stream.txt"));
    const int bare = open(file("bare.txt").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    const std::string line =
        "Import;1234 nodes read from floor plan;C:\\Projects\\House.asd;import/Reader.cpp;117;12:34:56.789\n";

    nexo::bench::Comparison table("a log line, flushed", kLines);
    table.Add("CLogger", [&] {
        for (std::size_t i = 0; i < kLines; ++i)
            log.Write(L"Import", "import/Reader.cpp", 117, L"%d nodes read from %s", 1234, L"floor plan");
        return kLines;
    });
    table.Peer("spdlog, flush_on", 0.85, [&] {
        const spdlog::source_loc place{"import/Reader.cpp", 117, "Read"};
        for (std::size_t i = 0; i < kLines; ++i)
            spd->log(place, spdlog::level::info, "{} nodes read from {}", 1234, "floor plan");
        return kLines;
    });
    table.Peer("bare write(2)", 1.2, [&] {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < kLines; ++i)
            sum += static_cast<std::size_t>(write(bare, line.data(), line.size()));
        return sum;
    });
    table.Peer("ofstream and endl, made text", 0, [&] {
        for (std::size_t i = 0; i < kLines; ++i) stream << line << std::flush;
        return kLines;
    });
    table.Peer("CLogContainer", 0, [&] {
        for (std::size_t i = 0; i < kLines; ++i)
            logs.doLog(L"named", L"%d nodes read from %s\n", 1234, L"floor plan");
        return kLines;
    });
    table.Print(40);
    close(bare);
    log.Stop();
    logs.endLog(L"named");
}

void CompareStopWatches() {
    constexpr std::size_t count = 100000;
    nexo::bench::Comparison table("a stopwatch, started and stopped", count);
    table.Add("CStopWatch", [&] {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            CStopWatch::Start(7);
            sum += CStopWatch::Stop(7);
        }
        return sum;
    });
    table.Peer("two readings of the clock", 1.5, [&] {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < 2 * count; ++i)
            sum += static_cast<std::size_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        return sum;
    });
    table.Print();
}

}  // namespace

int main() {
    const auto folder =
        std::filesystem::temp_directory_path() / ("nexo-log-bench." + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    CompareLines(folder);
    CompareStopWatches();
    std::filesystem::remove_all(folder);
}
