// SPDX-License-Identifier: MIT
// Measures every workload with every library that takes it, and writes the tables.
//
//   geom_benchmark [--quick] [--page=FILE] [--charts=FOLDER] [options of Google Benchmark]
#include "Charts.h"
#include "Measure.h"
#include "Report.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>

namespace geom::bench {

namespace {

constexpr Effort THOROUGH = {0.1, 4};
constexpr Effort QUICK = {0.02, 0.5};
/// In a quick run, larger inputs are left out.
constexpr int QUICK_SIZE = 100000;

class Comparison {
public:
    explicit Comparison(const Effort& effort) : m_effort(effort) {}

    /// One case; its iteration is the fastest of several runs.
    void Run(benchmark::State& state, const Workload& workload, int size, const Library& library);

    const std::vector<Result>& Results() const { return m_results; }

private:
    const Input& InputOf(const Workload& workload, int size);
    bool IsTooSlow(const Workload& workload, const Library& library, double units) const;
    double ExpectedValue(const Workload& workload, const Input& input, int size,
                         const Library& library, double value);
    void Report(benchmark::State& state, Result result, const Measurement& measured);

    Effort m_effort;
    std::vector<Result> m_results;
    // The cases of one input follow each other.
    const Workload* m_workload = nullptr;
    int m_size = 0;
    Input m_input;
    double m_expected = 0;
    bool m_isExpected = false;
};

const Input& Comparison::InputOf(const Workload& workload, int size) {
    if (m_workload != &workload || m_size != size) {
        m_input = workload.input(size);
        m_input.work = m_input.work > 0 ? m_input.work : m_input.units;
        m_workload = &workload;
        m_size = size;
        m_isExpected = false;
    }
    return m_input;
}

double TotalSeconds(const Result& result) {
    return result.nanoseconds * result.units * 1e-9;
}

/// Goes by the sizes before. Expects squares where only one is known, and where time already grows
/// much faster than the input, since it then tends to grow faster yet. Our own library is given
/// more time than the others.
bool Comparison::IsTooSlow(const Workload& workload, const Library& library, double units) const {
    std::vector<const Result*> before;
    for (const Result& result : m_results) {
        if (result.workload == &workload && result.library == &library) {
            before.push_back(&result);
        }
    }
    if (before.empty()) {
        return false;
    }
    const Result& last = *before.back();
    if (last.remark == "slow") {
        return true;
    }
    double exponent = 2;
    if (before.size() > 1) {
        const Result& first = *before[before.size() - 2];
        exponent =
            std::log(TotalSeconds(last) / TotalSeconds(first)) / std::log(last.units / first.units);
        exponent = exponent > 1.5 ? std::max(exponent, 2.0) : exponent;
    }
    const double patience = &library == Libraries().front() ? 10 : 1;
    return TotalSeconds(last) * std::pow(units / last.units, exponent) >
           patience * m_effort.longest;
}

/// Our own value; when a filter has left our case out, it is found here.
double Comparison::ExpectedValue(const Workload& workload, const Input& input, int size,
                                 const Library& library, double value) {
    if (&library == Libraries().front()) {
        m_expected = value;
        m_isExpected = true;
    } else if (!m_isExpected) {
        const Job job = workload.job(*Libraries().front(), input);
        job.run();
        m_expected = job.answer().value;
        job.clear();
        m_isExpected = m_size == size;
    }
    return m_expected;
}

void Comparison::Report(benchmark::State& state, Result result, const Measurement& measured) {
    result.nanoseconds = measured.seconds * 1e9 / result.units;
    result.memory = measured.memory < 0 ? -1 : measured.memory / result.units;
    result.output = static_cast<double>(measured.answer.vertices) / result.units;
    state.SetIterationTime(measured.seconds);
    state.counters["ns_per_unit"] = result.nanoseconds;
    state.counters["answer"] = measured.answer.value;
    m_results.push_back(std::move(result));
}

void Comparison::Run(benchmark::State& state, const Workload& workload, int size,
                     const Library& library) {
    const Input& input = InputOf(workload, size);
    Result result = {&workload, size, &library, 0, input.units, input.work, -1, 0, ""};
    Measurement measured;
    for (auto _ : state) {
        try {
            if (IsTooSlow(workload, library, input.units)) {
                result.remark = "slow";
                continue;
            }
            measured = Measure(workload.job(library, input), m_effort);
            const double value = measured.answer.value;
            const double expected = ExpectedValue(workload, input, size, library, value);
            if (!std::isfinite(value)) {
                result.remark = "fails";
            } else if (std::fabs(value - expected) > workload.tolerance * std::fabs(expected)) {
                result.remark = "differs";
            }
        } catch (const std::exception&) {
            result.remark = "fails";
        }
    }
    if (!result.remark.empty()) {
        state.SetLabel(result.remark);
    }
    Report(state, std::move(result), measured);
}

void Register(Comparison& comparison, bool quick) {
    for (const Workload& workload : Workloads()) {
        for (int size : workload.sizes) {
            if (quick && size > QUICK_SIZE && size != workload.sizes.front()) {
                continue;
            }
            for (const Library* library : Libraries()) {
                if (!Takes(*library, workload)) {
                    continue;
                }
                const std::string name = std::string(workload.group) + "/" + workload.name + "/" +
                                         std::to_string(size) + "/" + library->Name();
                benchmark::RegisterBenchmark(
                    name.c_str(),
                    [&comparison, &workload, size, library](benchmark::State& state) {
                        comparison.Run(state, workload, size, *library);
                    })
                    ->Iterations(1)
                    ->UseManualTime()
                    ->Unit(benchmark::kMillisecond);
            }
        }
    }
}

/// Takes an argument of our own out of the list.
bool TakeArgument(int& argc, char** argv, const char* name, std::string& value) {
    for (int i = 1; i < argc; ++i) {
        const std::size_t length = std::strlen(name);
        if (std::strncmp(argv[i], name, length) == 0) {
            value = argv[i] + length;
            std::copy(argv + i + 1, argv + argc, argv + i);
            --argc;
            return true;
        }
    }
    return false;
}

int Main(int argc, char** argv) {
    std::string page, charts, none;
    const bool quick = TakeArgument(argc, argv, "--quick", none);
    TakeArgument(argc, argv, "--page=", page);
    TakeArgument(argc, argv, "--charts=", charts);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    Comparison comparison(quick ? QUICK : THOROUGH);
    Register(comparison, quick);
    benchmark::RunSpecifiedBenchmarks();
    WriteTables(comparison.Results(), std::cout);
    bool isWritten = charts.empty() || DrawCharts(comparison.Results(), charts);
    if (!page.empty()) {
        std::ofstream out(page);
        WritePage(comparison.Results(), out);
        isWritten = out.flush() && isWritten;
    }
    return isWritten ? 0 : 1;
}

} // namespace

} // namespace geom::bench

int main(int argc, char** argv) {
    return geom::bench::Main(argc, argv);
}
