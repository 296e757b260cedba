// SPDX-License-Identifier: MIT
#include "tests/docs/Pages.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace geom::test {

std::filesystem::path SourceTree() {
    return GEOM_SOURCE_TREE;
}

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder,
                                           const std::string& ending) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.size() > ending.size() &&
            name.compare(name.size() - ending.size(), ending.size(), ending) == 0) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string ReadText(const std::filesystem::path& path) {
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace geom::test
