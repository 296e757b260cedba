// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace geomtool {

/// One line that shows how far the work has come: "clipping [=====>    ]  52 %  3 s". A negative
/// fraction means that nobody knows; then a block runs to and fro.
std::string ProgressLine(const std::string& stage, double fraction, double seconds);

/// Shows a progress line while it lives, once the work has taken longer than a delay, and wipes
/// it away at the end. Drawn by a thread of its own, since one call of the library can take long.
class Progress {
public:
    using Sink = std::function<void(const std::string&)>;

    /// Draws on standard error after a second, and only when that is a terminal.
    Progress();
    /// \param sink receives what is to be drawn, from another thread; empty for no drawing.
    Progress(Sink sink, std::chrono::milliseconds delay, std::chrono::milliseconds interval);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// Names the work that begins now. How long it takes is not known until the first Step.
    void Begin(const std::string& stage);
    void Step(std::size_t done, std::size_t total);
    /// Wipes the line away for good, before something else is printed.
    void Finish();

private:
    void Run(std::chrono::milliseconds delay, std::chrono::milliseconds interval);
    std::string Line();

    Sink m_sink;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_finished = false;
    std::string m_stage;
    double m_fraction = -1;
    std::thread m_thread;
};

} // namespace geomtool
