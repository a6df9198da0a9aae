#ifndef NEXO_TESTS_PLATFORM_SUPPORT_H
#define NEXO_TESTS_PLATFORM_SUPPORT_H

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/platform/NativePath.h"

// What the tests of this folder share.

namespace test {

namespace fs = std::filesystem;

/// A test with a folder of its own.
class InOwnFolder : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "nexo-test-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    void TearDown() override {
        std::error_code ignored;
        fs::permissions(folder_, fs::perms::owner_all, ignored);
        fs::remove_all(folder_, ignored);
    }

    /// Native path of a name in the folder, and the same in the interface's form.
    fs::path Native(const std::string& name) const { return folder_ / name; }
    CString Path(const std::string& name) const {
        return nexo::platform::PathFromNative((folder_ / name).string());
    }
    void Put(const std::string& name, const std::string& content) const {
        std::ofstream(Native(name), std::ios::binary) << content;
    }
    std::string Get(const std::string& name) const {
        std::ifstream in(Native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    /// Number of names in the folder, hidden ones included.
    std::ptrdiff_t CountNames() const {
        return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
    }

    fs::path folder_;
};

}  // namespace test

#endif
