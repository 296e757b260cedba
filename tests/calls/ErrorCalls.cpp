// SPDX-License-Identifier: MIT
#include "geometry/Errors.h"
#include "tests/calls/Trial.h"

#include <cwchar>

namespace geom::test {

namespace {

/// The runtime has room for an exception for which the heap has none.
const Errors THROWING = Together({{"bad_alloc"}, TOLERATED});

} // namespace

Calls ErrorCalls() {
    return {
        {"ModuleName",
         {},
         {},
         [](Trial& t) { t.Answer([] { return std::wcslen(ModuleName()); }); }},
        {"ThrowErrorImpl",
         THROWING,
         {},
         [](Trial& t) {
             t.Answer([] {
                 try {
                     ThrowErrorImpl(nullptr, L"file", 7, L"message");
                 } catch (const Exception& e) {
                     return e.Line();
                 }
             });
         }},
        {"ThrowInternalError",
         THROWING,
         {},
         [](Trial& t) {
             t.Answer([] {
                 try {
                     ThrowInternalError(L"file", 7);
                 } catch (const Exception& e) {
                     return e.Line();
                 }
             });
         }},
    };
}

} // namespace geom::test
