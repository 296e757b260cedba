// SPDX-License-Identifier: MIT
#include "Measure.h"

#include <algorithm>
#include <ctime>
#include <fstream>
#include <string>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace geom::bench {

namespace {

constexpr int LEAST_RUNS = 3;

/// Processor time of the whole process: other programs on the machine do not count.
double ProcessSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// A line of the kernel's account of this process, in bytes; negative where there is none.
double StatusBytes(const std::string& key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, key.size(), key) == 0) {
            return std::stod(line.substr(key.size())) * 1024;
        }
    }
    return -1;
}

/// Gives free memory back and lets the kernel take the peak anew, from what is in use.
double StartPeak() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << "5";
    return StatusBytes("VmRSS:");
}

double PeakSince(double start) {
    const double peak = StatusBytes("VmHWM:");
    return start < 0 || peak < 0 ? -1 : std::max(0.0, peak - start);
}

double TimedRun(const Job& job) {
    const double start = ProcessSeconds();
    job.run();
    return ProcessSeconds() - start;
}

} // namespace

Measurement Measure(const Job& job, const Effort& effort) {
    Measurement result;
    const double start = StartPeak();
    result.seconds = TimedRun(job);
    result.memory = PeakSince(start);
    result.answer = job.answer();
    job.clear();
    double total = result.seconds;
    for (int runs = 1; 2 * total < effort.longest && (runs < LEAST_RUNS || total < effort.enough);
         ++runs) {
        const double seconds = TimedRun(job);
        job.clear();
        result.seconds = std::min(result.seconds, seconds);
        total += std::max(seconds, 1e-6);
    }
    return result;
}

} // namespace geom::bench
