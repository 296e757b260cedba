// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/Errors.h"

#include "Formatting.h"

#include <cstdarg>
#include <cstdio>
#include <string>
#include <typeinfo>

namespace kit {

IError::~IError() = default;

namespace {

[[noreturn]] void ThrowFileError(const GString& module, const GString& file, int line,
                                 const wchar_t* failure, const GString& fileName,
                                 const GString& operation) {
    const std::wstring message =
        std::wstring(failure) + L" \"" + fileName.c_str() + L"\" (" + operation.c_str() + L")";
    throw Exception(module, file, line, message.c_str(), false);
}

} // namespace

void ThrowInternalError(const GString& module, const GString& file, int line) {
    throw Exception(module, file, line, L"Internal error", false);
}

void Throw_ERR_KIT_NOGLOBALMEM(const GString& module, const GString& file, int line) {
    throw Exception(module, file, line, L"Out of memory", false);
}

void Throw_ERR_KIT_FILE_READ(const GString& module, const GString& file, int line,
                             const GString& fileName, const GString& operation) {
    ThrowFileError(module, file, line, L"Cannot read file", fileName, operation);
}

void Throw_ERR_KIT_FILE_WRITE(const GString& module, const GString& file, int line,
                              const GString& fileName, const GString& operation) {
    ThrowFileError(module, file, line, L"Cannot write file", fileName, operation);
}

void ThrowKitError(const GString& module, const GString& file, int line, const wchar_t* format,
                   ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::wstring message;
    try {
        message = FormatWide(format, arguments);
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
    throw Exception(module, file, line, message.c_str(), false);
}

// Called while another exception is being handled, which a failed allocation of this one must not
// replace.
void LogExceptionInfo(const GString& module, const GString& file, int line, const IError* error) {
    const char* kind = error != nullptr ? typeid(*error).name() : "none";
    try {
        std::fprintf(stderr, "%s: exception in %s, line %d (error object: %s)\n",
                     module.Narrow().c_str(), file.Narrow().c_str(), line, kind);
    } catch (...) {
        std::fprintf(stderr, "exception in line %d (error object: %s)\n", line, kind);
    }
}

} // namespace kit
