// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace geomtool::test {

/// A new folder that is removed with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "geomtool.XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        m_path = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }
    std::string File(const std::string& name) const { return (m_path / name).string(); }
    std::string Create(const std::string& name, const std::string& content) const {
        std::ofstream(File(name), std::ios::binary) << content;
        return File(name);
    }
    std::string Content(const std::string& name) const {
        std::ifstream stream(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    /// The number of files in the folder.
    std::size_t Count() const {
        const std::filesystem::directory_iterator all(m_path);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

private:
    std::filesystem::path m_path;
};

} // namespace geomtool::test
