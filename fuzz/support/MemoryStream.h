// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace geom::fuzz {

/// A stream that reads bytes in memory. The bytes must outlive it.
class InputStream {
public:
    /// There may be no bytes at all, which not every fmemopen takes.
    explicit InputStream(std::string_view bytes)
        : m_stream(bytes.empty()
                       ? std::fopen("/dev/null", "rb")
                       : ::fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "rb")) {
        if (m_stream == nullptr) {
            std::abort();
        }
    }
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;
    ~InputStream() { std::fclose(m_stream); }

    std::FILE* Get() const { return m_stream; }
    long Position() const { return std::ftell(m_stream); }

private:
    std::FILE* m_stream;
};

/// A stream that collects what is written.
class OutputStream {
public:
    OutputStream() : m_stream(::open_memstream(&m_text, &m_size)) {
        if (m_stream == nullptr) {
            std::abort();
        }
    }
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;
    ~OutputStream() {
        std::fclose(m_stream);
        std::free(m_text);
    }

    std::FILE* Get() const { return m_stream; }
    std::string Content() {
        std::fflush(m_stream);
        return {m_text, m_size};
    }

private:
    char* m_text = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_stream;
};

} // namespace geom::fuzz
