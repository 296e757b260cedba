// SPDX-License-Identifier: MIT
// Runs a fuzz target over files, and over all files of folders, where there is no fuzzer to do
// it. The name of each is printed first, so that the last one tells where a run ended.
#include "fuzz/support/Target.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesAt(const fs::path& place) {
    if (!fs::is_directory(place)) {
        return {place};
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(place)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool Replay(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot open %s\n", path.c_str());
        return false;
    }
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path& path : FilesAt(argv[i])) {
            if (!Replay(path)) {
                return 1;
            }
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count == 0 ? 1 : 0;
}
