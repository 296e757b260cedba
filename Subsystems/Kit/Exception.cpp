// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Exception.h"

namespace kit {

Exception::Exception(const GString& module, const GString& file, int line, const GString& message,
                     bool flag)
    : m_module(module), m_file(file), m_line(line), m_message(message), m_flag(flag) {}

} // namespace kit
