// SPDX-License-Identifier: MIT
#include "tools/geomtool/Files.h"

#include "tools/geomtool/InputError.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace geomtool {

namespace {

[[noreturn]] void FailSystem(const std::string& file, const std::string& what, int error) {
    throw ErrorIn(file, what + ": " + std::generic_category().message(error));
}

/// An open file descriptor.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int Get() const { return m_number; }
    bool Close() {
        // The standard streams stay open for what else the process writes.
        return m_number <= STDERR_FILENO || ::close(std::exchange(m_number, -1)) == 0;
    }

private:
    int m_number;
};

void WriteAll(const Descriptor& descriptor, std::string_view bytes, const std::string& name) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor.Get(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            FailSystem(name, "cannot write", errno);
        }
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
}

/// The part of a path up to and with the last slash.
std::string FolderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/') + 1); // npos + 1 is 0
}

/// A file beside its future place, removed again unless it is moved there.
class TemporaryFile {
public:
    TemporaryFile(const std::string& target, const std::string& name)
        : m_name(name), m_path(FolderOf(target) + ".geomtool.XXXXXX"),
          m_descriptor(::mkstemp(m_path.data())) {
        if (m_descriptor.Get() < 0) {
            const int error = errno;
            m_path.clear();
            FailSystem(m_name, "cannot create a file there", error);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!m_path.empty()) {
            ::unlink(m_path.c_str());
        }
    }

    void Write(std::string_view bytes) { WriteAll(m_descriptor, bytes, m_name); }

    void MoveTo(const std::string& target, mode_t mode) {
        if (::fchmod(m_descriptor.Get(), mode) != 0 || !m_descriptor.Close() ||
            ::rename(m_path.c_str(), target.c_str()) != 0) {
            FailSystem(m_name, "cannot write", errno);
        }
        m_path.clear();
    }

private:
    std::string m_name;
    std::string m_path;
    Descriptor m_descriptor;
};

/// The permissions that a new file gets.
mode_t DefaultMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

/// Where a path leads through symbolic links, so that a link is not replaced by a file.
std::string Resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
}

void WriteInPlace(const std::string& path, std::string_view bytes) {
    Descriptor descriptor(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (descriptor.Get() < 0) {
        FailSystem(path, "cannot open for writing", errno);
    }
    WriteAll(descriptor, bytes, path);
    if (!descriptor.Close()) {
        FailSystem(path, "cannot write", errno);
    }
}

} // namespace

bool IsStandardStream(const std::string& path) {
    return path == "-";
}

std::string DisplayName(const std::string& path) {
    return IsStandardStream(path) ? "standard input" : path;
}

std::string ReadFile(const std::string& path) {
    Descriptor descriptor(IsStandardStream(path) ? STDIN_FILENO
                                                 : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (descriptor.Get() < 0) {
        FailSystem(path, "cannot open", errno);
    }
    std::string bytes;
    constexpr std::size_t CHUNK = 1 << 16;
    struct stat status = {};
    if (::fstat(descriptor.Get(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0) {
        bytes.reserve(static_cast<std::size_t>(status.st_size) + CHUNK);
    }
    for (;;) {
        const std::size_t size = bytes.size();
        bytes.resize(size + CHUNK);
        const ssize_t count = ::read(descriptor.Get(), bytes.data() + size, CHUNK);
        if (count < 0 && errno != EINTR) {
            FailSystem(DisplayName(path), "cannot read", errno);
        }
        bytes.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) {
            return bytes;
        }
    }
}

void WriteFile(const std::string& path, std::string_view bytes) {
    if (IsStandardStream(path)) {
        WriteAll(Descriptor(STDOUT_FILENO), bytes, "standard output");
        return;
    }
    const std::string target = Resolved(path);
    struct stat status = {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
        FailSystem(path, "cannot write", EISDIR);
    }
    if (exists && !S_ISREG(status.st_mode)) {
        WriteInPlace(path, bytes);
        return;
    }
    TemporaryFile file(target, path);
    file.Write(bytes);
    file.MoveTo(target, exists ? status.st_mode & 07777 : DefaultMode());
}

} // namespace geomtool
