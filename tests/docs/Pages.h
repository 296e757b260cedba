// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// \file
/// Reading the files of the source tree.

namespace geom::test {

/// The root of the source tree.
std::filesystem::path SourceTree();

/// The files of a folder with an ending such as ".md", sorted.
std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder,
                                           const std::string& ending);

std::string ReadText(const std::filesystem::path& path);

} // namespace geom::test
