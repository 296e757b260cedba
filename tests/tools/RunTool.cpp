// SPDX-License-Identifier: MIT
#include "tests/tools/RunTool.h"

#include "tests/tools/TemporaryFolder.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
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

int Wait(pid_t process) {
    int status = 0;
    if (::waitpid(process, &status, 0) != process) {
        throw std::runtime_error("the tool got lost");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
    const int status = Wait(process);
    return {status, folder.Content("out"), folder.Content("err")};
}

} // namespace geomtool::test
