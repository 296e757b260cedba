// SPDX-License-Identifier: MIT
#include "tools/geomtool/Progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace geomtool {

namespace {

constexpr std::size_t WIDTH = 30;
constexpr std::chrono::milliseconds PATIENCE(1000);
constexpr std::chrono::milliseconds INTERVAL(100);
/// Back to the start of the line and wipe it.
const char* const WIPE = "\r\x1b[K";

std::string KnownBar(double fraction) {
    const double clamped = std::clamp(fraction, 0.0, 1.0);
    const auto filled = static_cast<std::size_t>(clamped * WIDTH);
    std::string bar(filled, '=');
    if (filled < WIDTH) {
        bar += '>';
    }
    bar.resize(WIDTH, ' ');
    return bar;
}

std::string UnknownBar(double seconds) {
    constexpr std::size_t BLOCK = 5;
    constexpr std::size_t PATH = WIDTH - BLOCK;
    constexpr double CELLS_PER_SECOND = 10;
    const auto way = static_cast<std::size_t>(std::fmod(seconds * CELLS_PER_SECOND, 2.0 * PATH));
    const std::size_t at = way <= PATH ? way : 2 * PATH - way;
    std::string bar(WIDTH, ' ');
    return bar.replace(at, BLOCK, BLOCK, '=');
}

void WriteToStandardError(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

} // namespace

std::string ProgressLine(const std::string& stage, double fraction, double seconds) {
    const bool known = fraction >= 0;
    std::string line = stage + " [" + (known ? KnownBar(fraction) : UnknownBar(seconds)) + "] ";
    if (known) {
        const int percent = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100);
        line += std::to_string(percent) + " %  ";
    }
    return line + std::to_string(static_cast<long long>(seconds)) + " s";
}

Progress::Progress()
    : Progress(::isatty(STDERR_FILENO) == 1 ? Sink(WriteToStandardError) : Sink(), PATIENCE,
               INTERVAL) {}

Progress::Progress(Sink sink, std::chrono::milliseconds delay, std::chrono::milliseconds interval)
    : m_sink(std::move(sink)) {
    if (m_sink) {
        m_thread = std::thread([this, delay, interval] { Run(delay, interval); });
    }
}

Progress::~Progress() {
    Finish();
}

void Progress::Finish() {
    if (m_thread.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_finished = true;
        }
        m_wake.notify_all();
        m_thread.join();
    }
}

void Progress::Begin(const std::string& stage) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_stage = stage;
    m_fraction = -1;
}

void Progress::Step(std::size_t done, std::size_t total) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_fraction = total > 0 ? static_cast<double>(done) / static_cast<double>(total) : 1;
}

void Progress::Run(std::chrono::milliseconds delay, std::chrono::milliseconds interval) {
    std::unique_lock<std::mutex> lock(m_mutex);
    bool drawn = false;
    std::chrono::milliseconds wait = delay;
    while (!m_wake.wait_for(lock, wait, [this] { return m_finished; })) {
        m_sink(WIPE + Line());
        drawn = true;
        wait = interval;
    }
    if (drawn) {
        m_sink(WIPE);
    }
}

std::string Progress::Line() {
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - m_start;
    return ProgressLine(m_stage, m_fraction, elapsed.count());
}

} // namespace geomtool
