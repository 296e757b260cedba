// SPDX-License-Identifier: MIT
#pragma once

#include "Subsystems/Kit/Export.h"
#include "Subsystems/Kit/GString.h"

#include <cstdio>

namespace kit {

/// A file opened through the C runtime's buffered streams. Closed by its destructor.
class KIT_API CBufferedFile {
public:
    /// A file that is not open.
    CBufferedFile() = default;
    /// Opens as Open does.
    CBufferedFile(const GString& path, const GString& mode);
    CBufferedFile(const CBufferedFile&) = delete;
    CBufferedFile& operator=(const CBufferedFile&) = delete;
    ~CBufferedFile();

    /// Opens the file with a mode of fopen ("rb", "wb", ...), closing what was open before.
    /// Throws an Exception that names the file when it cannot be opened; the object is then
    /// closed but keeps the name.
    void Open(const GString& path, const GString& mode);
    /// Closes the file; throws an Exception when buffered data could not be written. Does
    /// nothing when no file is open.
    void Close();
    /// Hands buffered data to the system; throws an Exception when that fails.
    void Flush();
    bool IsOpen() const { return m_stream != nullptr; }
    const GString& GetFileName() const { return m_fileName; }
    /// The underlying stream, owned by this object; null when no file is open.
    std::FILE* GetStream() const { return m_stream; }

private:
    GString m_fileName;
    std::FILE* m_stream = nullptr;
};

} // namespace kit
