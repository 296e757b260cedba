// SPDX-License-Identifier: MIT
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define GEOM_TEST_LEAK_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define GEOM_TEST_LEAK_SANITIZER
#endif
#endif
#if defined(GEOM_TEST_LEAK_SANITIZER)
#include <sanitizer/lsan_interface.h>
#endif

namespace geom::test {

/// While it lives, blocks may be lost without the leak sanitizer's complaint: when its own memory
/// runs out, the tessellator of the OpenGL Utility library gives nothing back.
class LeaksAllowed {
public:
    explicit LeaksAllowed(bool allowed = true) : m_allowed(allowed) { Switch(true); }
    LeaksAllowed(const LeaksAllowed&) = delete;
    LeaksAllowed& operator=(const LeaksAllowed&) = delete;
    ~LeaksAllowed() { Switch(false); }

private:
    void Switch(bool on) const {
#if defined(GEOM_TEST_LEAK_SANITIZER)
        if (m_allowed) {
            on ? __lsan_disable() : __lsan_enable();
        }
#else
        static_cast<void>(on);
        static_cast<void>(m_allowed);
#endif
    }

    bool m_allowed;
};

} // namespace geom::test
