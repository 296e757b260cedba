// SPDX-License-Identifier: MIT
#include "tests/tools/RunTool.h"

#include "tests/tools/TemporaryFolder.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace geomtool::test {

namespace {

/// The files that the process has as its standard streams.
class Redirection {
public:
    explicit Redirection(const TemporaryFolder& folder) {
        posix_spawn_file_actions_init(&m_actions);
        Open(STDIN_FILENO, folder.File("in"), O_RDONLY);
        Open(STDOUT_FILENO, folder.File("out"), O_WRONLY | O_CREAT);
        Open(STDERR_FILENO, folder.File("err"), O_WRONLY | O_CREAT);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;
    ~Redirection() { posix_spawn_file_actions_destroy(&m_actions); }

    const posix_spawn_file_actions_t* Actions() const { return &m_actions; }

private:
    void Open(int number, const std::string& path, int flags) {
        posix_spawn_file_actions_addopen(&m_actions, number, path.c_str(), flags, 0600);
    }

    posix_spawn_file_actions_t m_actions;
};

/// Waits for the process to end, and fills in all but what it has written.
ToolRun Wait(pid_t process) {
    int status = 0;
    rusage usage = {};
    if (::wait4(process, &status, 0, &usage) != process) {
        throw std::runtime_error("the tool got lost");
    }
    const timeval& time = usage.ru_utime;
    const timeval& inSystem = usage.ru_stime;
    const double seconds = static_cast<double>(time.tv_sec + inSystem.tv_sec) +
                           1e-6 * static_cast<double>(time.tv_usec + inSystem.tv_usec);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, {}, {}, usage.ru_maxrss, seconds};
}

} // namespace

ToolRun RunGeomtool(const std::vector<std::string>& arguments, const std::string& input) {
    const TemporaryFolder folder;
    folder.Create("in", input);
    std::vector<std::string> words = {GEOMTOOL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);
    pid_t process = 0;
    const Redirection redirection(folder);
    if (::posix_spawn(&process, GEOMTOOL, redirection.Actions(), nullptr, argv.data(), environ) !=
        0) {
        throw std::runtime_error("the tool cannot be started");
    }
    ToolRun run = Wait(process);
    run.output = folder.Content("out");
    run.errors = folder.Content("err");
    return run;
}

} // namespace geomtool::test
