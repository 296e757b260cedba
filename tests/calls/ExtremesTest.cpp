// SPDX-License-Identifier: MIT
// Calls each public function with extreme numbers: in each position alone, in all of them, and
// in some at random. It returns or reports what its header says, in bounded time, leaves its
// inputs alone, and does the same when called again.
//
// Ends with what was tried. The option --report=FILE writes it to a file, too: a line for each
// figure, its name and its value with a tabulator between.
#include "tests/calls/Trial.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <limits>
#include <utility>

namespace geom::test {
namespace {

using Limits = std::numeric_limits<double>;

const double EXTREMES[] = {1e-300,
                           -1e-300,
                           1e150,
                           -1e150,
                           1e300,
                           -1e300,
                           Limits::max(),
                           Limits::lowest(),
                           Limits::denorm_min(),
                           -Limits::denorm_min(),
                           1e-310,
                           -1e-310,
                           0.0,
                           -0.0,
                           Limits::quiet_NaN(),
                           Limits::infinity(),
                           -Limits::infinity()};

/// Seconds of processor time that no call may exceed. They take microseconds; this is room for
/// slow machines and instrumented builds.
constexpr double LONGEST_CALL = 5.0;

double ProcessorTime() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// Hands out the usual numbers, counts them, and takes the time and the error of the call.
class NumberConductor : public Conductor {
public:
    double Number(double usual) override { return Replace(m_position++, usual); }
    int Many() const override { return 20; }
    void Run(void (*call)(void*), void (*)(void*), void* context) override {
        const double start = ProcessorTime();
        try {
            call(context);
        } catch (...) {
            DescribeException(m_error, sizeof m_error);
        }
        m_seconds = std::max(m_seconds, ProcessorTime() - start);
    }

    std::size_t Positions() const { return m_position; }
    const char* Error() const { return m_error; }
    double Seconds() const { return m_seconds; }

protected:
    virtual double Replace(std::size_t /*position*/, double usual) { return usual; }

private:
    std::size_t m_position = 0;
    double m_seconds = 0;
    char m_error[300] = "";
};

constexpr std::size_t EVERYWHERE = std::numeric_limits<std::size_t>::max();

class OneExtreme : public NumberConductor {
public:
    OneExtreme(std::size_t position, double value) : m_at(position), m_value(value) {}

protected:
    double Replace(std::size_t position, double usual) override {
        return m_at == EVERYWHERE || m_at == position ? m_value : usual;
    }

private:
    std::size_t m_at;
    double m_value;
};

class SomeExtremes : public NumberConductor {
public:
    explicit SomeExtremes(unsigned seed) : m_random(seed) {}

protected:
    double Replace(std::size_t /*position*/, double usual) override {
        constexpr int COUNT = static_cast<int>(std::size(EXTREMES));
        return m_random.OneIn(3) ? EXTREMES[m_random.Between(0, COUNT - 1)] : usual;
    }

private:
    Random m_random;
};

struct Totals {
    std::size_t calls = 0;
    std::size_t positions = 0;
    std::size_t trials = 0;
    std::size_t errors = 0;
    double longest = 0;
    std::string slowest;
};

Totals totals;

bool IsAmong(const Errors& stated, const std::string& error) {
    return std::any_of(stated.begin(), stated.end(), [&](const std::string& beginning) {
        return error.compare(0, beginning.size(), beginning) == 0;
    });
}

/// One trial; what came out, its error included.
std::uint64_t Try(const PublicCall& call, NumberConductor& conductor) {
    Trial trial(conductor);
    call.run(trial);
    const std::string error = conductor.Error();
    trial.Result(error);
    ++totals.trials;
    if (!error.empty()) {
        ++totals.errors;
        EXPECT_TRUE(IsAmong(call.numbers, error)) << error;
    }
    EXPECT_LT(conductor.Seconds(), LONGEST_CALL);
    if (conductor.Seconds() > totals.longest) {
        totals.longest = conductor.Seconds();
        totals.slowest = call.name;
    }
    return trial.Value();
}

template <typename MakeConductor>
void TryTwice(const PublicCall& call, MakeConductor make) {
    auto first = make();
    auto second = make();
    EXPECT_EQ(Try(call, first), Try(call, second)) << "two calls do not give the same";
}

class Extremes : public testing::TestWithParam<PublicCall> {};

INSTANTIATE_TEST_SUITE_P(Of, Extremes, testing::ValuesIn(AllCalls()));

TEST_P(Extremes, GiveResultsOrStatedErrors) {
    const PublicCall& call = GetParam();
    SCOPED_TRACE(call.name);
    NumberConductor plain;
    Try(call, plain);
    EXPECT_STREQ(plain.Error(), "");
    const std::size_t positions = plain.Positions();
    ++totals.calls;
    totals.positions += positions;
    if (positions == 0) {
        return;
    }
    for (const double value : EXTREMES) {
        for (std::size_t i = 0; i < positions && !HasFailure(); ++i) {
            SCOPED_TRACE(testing::Message() << value << " in position " << i);
            TryTwice(call, [&] { return OneExtreme(i, value); });
        }
        SCOPED_TRACE(testing::Message() << value << " everywhere");
        TryTwice(call, [&] { return OneExtreme(EVERYWHERE, value); });
    }
    for (unsigned seed = 0; seed < 200 && !HasFailure(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        TryTwice(call, [&] { return SomeExtremes(seed); });
    }
}

class Report : public testing::Environment {
public:
    void SetFile(std::string path) { m_path = std::move(path); }

    void TearDown() override {
        const std::vector<std::pair<std::string, std::string>> figures = {
            {"calls", std::to_string(totals.calls)},
            {"positions of numbers", std::to_string(totals.positions)},
            {"extreme values", std::to_string(std::size(EXTREMES))},
            {"trials", std::to_string(totals.trials)},
            {"trials that reported a stated error", std::to_string(totals.errors)},
            {"longest call in milliseconds", std::to_string(1000 * totals.longest)},
            {"longest call", totals.slowest},
        };
        for (const auto& [name, value] : figures) {
            std::printf("%s: %s\n", name.c_str(), value.c_str());
        }
        if (!m_path.empty()) {
            std::ofstream file(m_path);
            for (const auto& [name, value] : figures) {
                file << name << '\t' << value << '\n';
            }
        }
    }

private:
    std::string m_path;
};

} // namespace

void PrintTo(const PublicCall& call, std::ostream* out) {
    *out << call.name;
}

} // namespace geom::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    auto* const report = new geom::test::Report; // owned by the test framework
    testing::AddGlobalTestEnvironment(report);
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], "--report=", 9) == 0) {
            report->SetFile(argv[i] + 9);
        }
    }
    return RUN_ALL_TESTS();
}
