// SPDX-License-Identifier: MIT
#include "geometry/geom.h"
#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace geom {
namespace {

using test::ExpectError;

static_assert(std::is_same_v<geom::IError, kit::IError> &&
              std::is_same_v<geom::Exception, kit::Exception>);

TEST(ThrowErrorImpl, NullModuleMeansThisLibrary) {
    ExpectError([] { ThrowErrorImpl(nullptr, L"Host", 7, L"no pen"); }, "Geometry", "Host", 7,
                "no pen");
}

TEST(ThrowErrorImpl, GivenModuleIsKept) {
    ExpectError([] { ThrowErrorImpl(L"App", L"Host", 7, L"x"); }, "App", "Host", 7, "x");
}

TEST(ThrowInternalError, CarriesModuleFileAndLine) {
    ExpectError([] { ThrowInternalError(L"ClipUtil", 381); }, "Geometry", "ClipUtil", 381);
}

TEST(GPCException, IsCaughtAsTheFoundationsException) {
    ExpectError([] { throw GPCException("Gpc", 12); }, "GPC Library", "Gpc", 12,
                "Internal Error in General Polygon Clipping library.\nPlease report this to "
                "Vexlor Software at https://www.vexlor.example/support.");
    static_assert(!std::has_virtual_destructor_v<GPCException>);
    static_assert(sizeof(GPCException) == sizeof(Exception));
}

} // namespace
} // namespace geom
