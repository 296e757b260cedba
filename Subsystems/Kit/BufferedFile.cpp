// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/BufferedFile.h"

#include "Subsystems/Kit/Errors.h"

#include <utility>

namespace kit {

namespace {

constexpr const wchar_t* MODULE = L"Kit";
constexpr const wchar_t* FILE_NAME = L"BufferedFile";
constexpr int LINE_OPEN = 30;
constexpr int LINE_CLOSE = 40;
constexpr int LINE_FLUSH = 50;

} // namespace

CBufferedFile::CBufferedFile(const GString& path, const GString& mode) {
    Open(path, mode);
}

CBufferedFile::~CBufferedFile() {
    if (m_stream != nullptr) {
        std::fclose(m_stream);
    }
}

void CBufferedFile::Open(const GString& path, const GString& mode) {
    Close();
    m_fileName = path;
    m_stream = std::fopen(path.Narrow().c_str(), mode.Narrow().c_str());
    if (m_stream == nullptr) {
        ThrowKitError(MODULE, FILE_NAME, LINE_OPEN, L"Cannot open file \"%s\"", path.c_str());
    }
}

void CBufferedFile::Close() {
    if (m_stream != nullptr && std::fclose(std::exchange(m_stream, nullptr)) != 0) {
        Throw_ERR_KIT_FILE_WRITE(MODULE, FILE_NAME, LINE_CLOSE, m_fileName, L"Close");
    }
}

void CBufferedFile::Flush() {
    if (m_stream != nullptr && std::fflush(m_stream) != 0) {
        Throw_ERR_KIT_FILE_WRITE(MODULE, FILE_NAME, LINE_FLUSH, m_fileName, L"Flush");
    }
}

} // namespace kit
