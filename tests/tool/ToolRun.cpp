#include "ToolRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

fs::path MakeFolder() {
    std::string name = (fs::temp_directory_path() / "nexo-tool-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    return name;
}

ToolAnswer Run(const std::string& program, std::vector<std::string> arguments, const std::string& input) {
    const fs::path folder = MakeFolder();
    const auto file = [&](const char* name) { return (folder / name).string(); };
    std::ofstream(file("in"), std::ios::binary) << input;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, file("in").c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, file("out").c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, file("err").c_str(), O_WRONLY | O_CREAT, 0600);
    arguments.insert(arguments.begin(), program);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    const int failed = posix_spawn(&child, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int state = 0;
    if (failed != 0 || waitpid(child, &state, 0) != child) return {-1, "", program + " does not start"};
    const ToolAnswer answer{WIFEXITED(state) ? WEXITSTATUS(state) : -WTERMSIG(state),
                            FileContent(file("out")), FileContent(file("err"))};
    fs::remove_all(folder);
    return answer;
}

// Steps over one JSON value; npos when there is none.
std::size_t SkipJson(const std::string& text, std::size_t at) {
    constexpr auto npos = std::string::npos;
    const auto is = [&](char c) { return at < text.size() && text[at] == c; };
    if (is('"')) {
        for (++at; at < text.size() && text[at] != '"'; ++at) {
            if (static_cast<unsigned char>(text[at]) < 0x20) return npos;
            if (text[at] == '\\') ++at;
        }
        return is('"') ? at + 1 : npos;
    }
    if (is('{') || is('[')) {
        const char end = is('{') ? '}' : ']';
        for (bool first = true; ++at, !(first && is(end)); first = false) {
            if (end == '}') {
                at = SkipJson(text, at);
                if (at == npos || !is(':')) return npos;
                ++at;
            }
            at = SkipJson(text, at);
            if (at == npos) return npos;
            if (is(end)) break;
            if (!is(',')) return npos;
        }
        return at + 1;
    }
    for (const char* word : {"true", "false", "null"})
        if (text.compare(at, std::string(word).size(), word) == 0) return at + std::string(word).size();
    char* end = nullptr;
    std::strtod(text.c_str() + at, &end);
    const auto stop = static_cast<std::size_t>(end - text.c_str());
    return stop > at ? stop : npos;
}

}  // namespace

ToolAnswer RunTool(std::vector<std::string> arguments, const std::string& input) {
    return Run(NEXO_TOOL, std::move(arguments), input);
}

ToolAnswer RunShell(const std::string& script, const std::vector<std::string>& arguments) {
    std::vector<std::string> all = {"-c", script, NEXO_TOOL};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return Run("/bin/sh", all, {});
}

bool IsJson(const std::string& text) {
    const std::size_t end = SkipJson(text, 0);
    return end != std::string::npos && text.substr(end) == "\n";
}

std::string FileContent(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

ToolTest::ToolTest() : m_folder(MakeFolder()) {}

ToolTest::~ToolTest() {
    fs::remove_all(m_folder);
}

std::string ToolTest::Make(const std::string& name, const std::string& content) const {
    std::ofstream(m_folder / name, std::ios::binary) << content;
    return (m_folder / name).string();
}
