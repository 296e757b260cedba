// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Exception.h"
#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/GString.h"

namespace kit {

/// The base of error objects that can be handed to the exception logger.
class KIT_API IError {
public:
    IError() = default;
    IError(const IError&) = default;
    IError& operator=(const IError&) = default;
    virtual ~IError() = 0;
};

/// Throws an Exception for an internal inconsistency or an argument that a caller must not
/// pass.
[[noreturn]] KIT_API void ThrowInternalError(const GString& module, const GString& file, int line);

/// Throws an Exception for a failed memory allocation.
[[noreturn]] KIT_API void Throw_ERR_KIT_NOGLOBALMEM(const GString& module, const GString& file,
                                                    int line);

/// Throws an Exception for a failed read; the message names the file and the operation.
[[noreturn]] KIT_API void Throw_ERR_KIT_FILE_READ(const GString& module, const GString& file,
                                                  int line, const GString& fileName,
                                                  const GString& operation);

/// Throws an Exception for a failed write; the message names the file and the operation.
[[noreturn]] KIT_API void Throw_ERR_KIT_FILE_WRITE(const GString& module, const GString& file,
                                                   int line, const GString& fileName,
                                                   const GString& operation);

/// Throws an Exception with a formatted message.
///
/// The format is that of wprintf with the meaning that wide formats have on Windows, whatever
/// the platform: %s takes a wide text, %S a narrow one (%ls and %hs say so explicitly).
/// Numbers, characters and pointers take the standard flags, widths and length modifiers.
[[noreturn]] KIT_API void ThrowKitError(const GString& module, const GString& file, int line,
                                        const wchar_t* format, ...);

/// Writes one line about an error to standard error and returns. The error may be null.
KIT_API void LogExceptionInfo(const GString& module, const GString& file, int line,
                              const IError* error);

} // namespace kit
