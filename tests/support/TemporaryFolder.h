#ifndef NEXO_TESTS_SUPPORT_TEMPORARYFOLDER_H
#define NEXO_TESTS_SUPPORT_TEMPORARYFOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "nexo/base/CString.h"

/// A folder of its own for one test, removed with all it holds at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "nexo-test-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& Native() const { return folder_; }
    [[nodiscard]] std::filesystem::path Native(std::string_view name) const { return folder_ / name; }

    /// The path of a file in the folder as the library's functions take it.
    [[nodiscard]] CString Path(std::string_view name) const { return CString(Native(name).c_str()); }

    /// Writes a file and returns its path.
    CString Write(std::string_view name, std::string_view bytes) const {
        std::ofstream(Native(name), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return Path(name);
    }

    [[nodiscard]] std::string Read(std::string_view name) const {
        std::ifstream file(Native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path folder_;
};

#endif
