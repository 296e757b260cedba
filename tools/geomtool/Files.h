// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// \file
/// Whole files in and out. The name "-" stands for standard input or output.

namespace geomtool {

bool IsStandardStream(const std::string& path);

/// The name of an input in messages.
std::string DisplayName(const std::string& path);

/// The bytes of a file. Throws an InputError when it cannot be read.
std::string ReadFile(const std::string& path);

/// Writes a file so that it is either complete or was not touched: the bytes go to a temporary
/// file in the same folder, which then takes the name. What is no ordinary file, such as a pipe
/// or a device, is written to as it is. Throws an InputError when anything fails.
void WriteFile(const std::string& path, std::string_view bytes);

} // namespace geomtool
