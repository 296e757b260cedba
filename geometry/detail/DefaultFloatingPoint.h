// SPDX-License-Identifier: MIT
#pragma once

#include <cfenv>

namespace geom::detail {

/// While it lives, this thread computes in the default floating-point environment: rounding to
/// nearest, nothing trapped, small numbers kept. Afterwards the host's environment is back as it
/// was, its exception flags included.
///
/// The compiler may move plain arithmetic across the switch; call a function that it cannot see
/// through.
class DefaultFloatingPoint {
public:
    DefaultFloatingPoint() {
        std::fegetenv(&m_host);
        std::fesetenv(FE_DFL_ENV);
    }
    DefaultFloatingPoint(const DefaultFloatingPoint&) = delete;
    DefaultFloatingPoint& operator=(const DefaultFloatingPoint&) = delete;
    ~DefaultFloatingPoint() { std::fesetenv(&m_host); }

private:
    std::fenv_t m_host;
};

} // namespace geom::detail
