// SPDX-License-Identifier: MIT
// Makes each heap request of each public function fail in turn: the error is the stated one,
// nothing leaks, inputs are as they were, and what is left can be used, assigned and destroyed.
//
// Ends with the number of requests that were made to fail, for each function. The option
// --report=FILE writes to a file those that make any: a line for each, its name and its number
// with a tabulator between.
#include "tests/calls/Trial.h"
#include "tests/support/AllocationProbe.h"
#include "tests/support/LeaksAllowed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <utility>

namespace geom::test {
namespace {

using Caller = AllocationProbe::Caller;

/// Makes one request of a trial fail, and makes the call again afterwards.
class FailingConductor : public Conductor {
public:
    FailingConductor(AllocationProbe& probe, std::size_t failAt)
        : m_probe(probe), m_failAt(failAt) {}

    void Run(void (*call)(void*), void (*afterFailure)(void*), void* context) override {
        if (m_failed) {
            call(context);
            return;
        }
        m_probe.Restart(m_failAt);
        try {
            call(context);
        } catch (...) {
            DescribeException(m_error, sizeof m_error);
        }
        m_failed = m_probe.Failed();
        m_failAt -= std::min(m_failAt, m_probe.Count());
        m_probe.Restart(AllocationProbe::NEVER);
        if (m_error[0] != '\0') {
            afterFailure(context);
            call(context);
        }
    }

    /// Whether there was a request to fail.
    bool Failed() const { return m_failed; }
    /// What the failure was reported as; empty when it was not.
    const char* Error() const { return m_error; }

private:
    AllocationProbe& m_probe;
    std::size_t m_failAt;
    bool m_failed = false;
    char m_error[300] = ""; // no heap while the probe lives
};

/// Makes calls as they are.
class PlainConductor : public Conductor {
public:
    void Run(void (*call)(void*), void (*)(void*), void* context) override { call(context); }
};

std::uint64_t UntroubledResult(const PublicCall& call) {
    PlainConductor conductor;
    Trial trial(conductor);
    call.run(trial);
    return trial.Value();
}

bool IsAmong(const Errors& stated, const std::string& error) {
    return std::any_of(stated.begin(), stated.end(), [&](const std::string& beginning) {
        return error.compare(0, beginning.size(), beginning) == 0;
    });
}

/// One attempt with the given request failing. False when there was no such request.
bool FailOne(const PublicCall& call, Caller caller, std::size_t failAt, std::uint64_t expected) {
    const LeaksAllowed leaks(caller == Caller::Tessellator);
    AllocationProbe probe(AllocationProbe::NEVER, caller);
    char error[300] = "";
    bool failed = false;
    std::uint64_t result = 0;
    {
        FailingConductor conductor(probe, failAt);
        Trial trial(conductor);
        call.run(trial);
        failed = conductor.Failed();
        std::strcpy(error, conductor.Error());
        result = trial.Value();
    }
    // The tessellator gives nothing back when its own memory runs out.
    if (caller != Caller::Tessellator || !failed) {
        const std::ptrdiff_t balance = probe.Balance();
        EXPECT_EQ(balance, 0) << "blocks left after request " << failAt << " failed: " << error;
    }
    EXPECT_EQ(result, expected) << "another result after request " << failAt
                                << " failed: " << error;
    if (failed) {
        const std::string said = error[0] != '\0' ? error : "nothing";
        EXPECT_TRUE(IsAmong(call.memory, said)) << "request " << failAt << ": " << said;
    } else {
        EXPECT_STREQ(error, "") << "without a failed request";
    }
    return failed;
}

struct Row {
    std::string operation;
    std::size_t points;
};

/// The table of all functions, printed and written at the end.
class Report : public testing::Environment {
public:
    void Add(const std::string& operation, std::size_t points) {
        m_rows.push_back({operation, points});
    }
    void SetFile(std::string path) { m_path = std::move(path); }

    void TearDown() override {
        std::size_t operations = 0;
        std::size_t points = 0;
        for (const Row& row : m_rows) {
            std::printf("%-70s %7zu\n", row.operation.c_str(), row.points);
            operations += row.points > 0;
            points += row.points;
        }
        std::printf("%zu calls, of which %zu ask the heap; %zu failed requests\n", m_rows.size(),
                    operations, points);
        if (!m_path.empty()) {
            std::ofstream file(m_path);
            for (const Row& row : m_rows) {
                if (row.points > 0) {
                    file << row.operation << '\t' << row.points << '\n';
                }
            }
        }
    }

private:
    std::vector<Row> m_rows;
    std::string m_path;
};

Report& TheReport() {
    static auto* const report = new Report; // owned by the test framework
    return *report;
}

class EveryAllocation : public testing::TestWithParam<PublicCall> {};

INSTANTIATE_TEST_SUITE_P(Of, EveryAllocation, testing::ValuesIn(AllCalls()));

TEST_P(EveryAllocation, FailsOnce) {
    if (!AllocationProbe::Works()) {
        GTEST_SKIP() << "the heap belongs to a sanitizer in this build";
    }
    const PublicCall& call = GetParam();
    SCOPED_TRACE(call.name);
    const std::uint64_t expected = UntroubledResult(call);
    std::size_t points = 0;
    while (!HasFailure() && FailOne(call, Caller::Library, points, expected)) {
        ++points;
    }
    TheReport().Add(call.name, points);
    EXPECT_EQ(points > 0, !call.memory.empty()) << points << " requests";

    std::size_t inTessellator = 0;
    while (!HasFailure() && FailOne(call, Caller::Tessellator, inTessellator, expected)) {
        ++inTessellator;
    }
    if (inTessellator > 0) {
        TheReport().Add(call.name + ", in the tessellator", inTessellator);
    }
}

} // namespace

void PrintTo(const PublicCall& call, std::ostream* out) {
    *out << call.name;
}

} // namespace geom::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    geom::test::Report& report = geom::test::TheReport();
    testing::AddGlobalTestEnvironment(&report);
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], "--report=", 9) == 0) {
            report.SetFile(argv[i] + 9);
        }
    }
    return RUN_ALL_TESTS();
}
