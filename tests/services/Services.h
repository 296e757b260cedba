// SPDX-License-Identifier: MIT
#pragma once

#include "tests/services/Digest.h"

#include <cstdint>
#include <vector>

/// \file
/// Every service of the library at work on generated input, with a digest of what comes out.

namespace geom::test {

/// What the results of a service are made with besides comparisons and whole numbers.
enum class Means {
    Arithmetic, ///< sums, products, quotients and square roots, the same to the bit everywhere
    Platform,   ///< sines, arc tangents and the like, whose last bits belong to the platform
    Tessellator ///< the tessellator of the installed GLU, besides
};

struct Service {
    const char* name;
    Means means;
    /// Runs the service on `rounds` times its unit of work and adds all results. The same input
    /// for the same number in every call, on every thread.
    void (*run)(int rounds, Digest& results);
};

/// All services; those of the tessellator only where the library has them.
std::vector<Service> Services();

/// The digest of one run.
std::uint64_t DigestOf(const Service& service, int rounds);

// The parts that Services() puts together, each a source file.
void AddFoundationServices(std::vector<Service>& services);
void AddSetOperationServices(std::vector<Service>& services);
void AddPolygonServices(std::vector<Service>& services);
void AddClippingServices(std::vector<Service>& services);
void AddLineServices(std::vector<Service>& services);
void AddMeasureServices(std::vector<Service>& services);
void AddCurveServices(std::vector<Service>& services);
void AddSpaceServices(std::vector<Service>& services);
void AddTessellatorServices(std::vector<Service>& services);

} // namespace geom::test
