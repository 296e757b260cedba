// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>

namespace geom::test {

/// The public names that a header declares: types, functions, and the public members of classes
/// that are types or functions, each as Class::Member. Overloads are one name. Left out are
/// fields, enumerators, constants, destructors and what stands in a namespace `detail`.
///
/// Reads the header's text, not more of C++ than the project's headers use.
std::set<std::string> PublicNames(const std::string& headerText);

} // namespace geom::test
