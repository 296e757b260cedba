// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/GString.h"

namespace kit {

/// The one exception type of the libraries, thrown and caught by value.
///
/// It says which module failed, in which source file and line, and why. It has no virtual
/// members; exceptions derived from it add no data.
class KIT_API Exception {
public:
    Exception(const GString& module, const GString& file, int line, const GString& message,
              bool flag);

    const GString& Module() const { return m_module; }
    const GString& File() const { return m_file; }
    int Line() const { return m_line; }
    const GString& Message() const { return m_message; }
    /// Free for the thrower's use; these libraries always pass false.
    bool Flag() const { return m_flag; }

private:
    GString m_module;
    GString m_file;
    int m_line;
    GString m_message;
    bool m_flag;
};

} // namespace kit
