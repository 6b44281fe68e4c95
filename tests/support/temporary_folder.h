// SPDX-License-Identifier: MIT
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace chimewell::test {

/// A folder of the test's own that goes with all it holds. Its path is short enough for sockets in it.
class TemporaryFolder {
public:
    TemporaryFolder() : path_(::mkdtemp(std::string("/tmp/chimewell-test.XXXXXX").data())) {}
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Writes a file, with the folders it needs, and returns its path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const
    {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    std::string read(const std::filesystem::path& name) const
    {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The names of everything directly in it or in a folder of it, sorted.
    std::vector<std::string> names(const std::filesystem::path& folder = {}) const
    {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(path_ / folder))
            result.push_back(entry.path().filename());
        std::ranges::sort(result);
        return result;
    }

private:
    std::filesystem::path path_;
};

}
