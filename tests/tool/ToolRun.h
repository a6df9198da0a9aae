#ifndef NEXO_TESTS_TOOL_TOOLRUN_H
#define NEXO_TESTS_TOOL_TOOLRUN_H

#include <gtest/gtest.h>
#include <filesystem>
#include <string>
#include <vector>

/// What one run of the command answered.
struct ToolAnswer {
    int status;
    std::string out;
    std::string err;
};

/// Runs the built command, or another program, with standard input from a text.
ToolAnswer RunTool(std::vector<std::string> arguments, const std::string& input = {});
ToolAnswer RunShell(const std::string& script, const std::vector<std::string>& arguments);

/// Whether a text is one JSON value and a line end.
bool IsJson(const std::string& text);

std::string FileContent(const std::filesystem::path& file);

/// A folder of its own for each test, removed afterwards.
class ToolTest : public testing::Test {
protected:
    ToolTest();
    ~ToolTest() override;
    std::string Make(const std::string& name, const std::string& content) const;

    std::filesystem::path m_folder;
};

#endif
