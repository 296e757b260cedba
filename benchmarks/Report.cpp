// SPDX-License-Identifier: MIT
#include "Report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <ostream>

namespace geom::bench {

namespace {

using Row = std::vector<std::string>;

const Library* Ours() {
    return Libraries().front();
}

/// Three significant digits, none of them after a long number.
std::string Short(double value) {
    char text[32];
    const int decimals = value < 1 ? 3 : value < 10 ? 2 : value < 100 ? 1 : 0;
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string Ratio(double ratio) {
    if (std::fabs(ratio) < 0.001) {
        return "<0.001";
    }
    char text[32];
    std::snprintf(text, sizeof text, ratio < 0.1 ? "%.3f" : "%.2f", ratio);
    return text;
}

std::string Grouped(int value) {
    std::string text = std::to_string(value);
    for (std::size_t i = text.size(); i > 3; i -= 3) {
        text.insert(i - 3, ",");
    }
    return text;
}

class Tables {
public:
    explicit Tables(const std::vector<Result>& results) : m_results(results) {}

    void Write(std::ostream& out) const;

private:
    using Results = std::vector<const Result*>;

    const Result* Find(const Workload* workload, int size, const Library* library) const;
    std::vector<const Library*> LibrariesOf(const std::string& group) const;
    std::string Growth(const Result& ours) const;
    Row RowOf(const Result& ours, const std::vector<const Library*>& libraries) const;
    void WriteGroup(const std::string& group, std::ostream& out) const;

    const std::vector<Result>& m_results;
};

const Result* Tables::Find(const Workload* workload, int size, const Library* library) const {
    for (const Result& result : m_results) {
        if (result.workload == workload && result.size == size && result.library == library) {
            return &result;
        }
    }
    return nullptr;
}

std::vector<const Library*> Tables::LibrariesOf(const std::string& group) const {
    std::vector<const Library*> libraries;
    for (const Library* library : Libraries()) {
        const bool takesPart =
            std::any_of(m_results.begin(), m_results.end(), [&](const Result& result) {
                return result.library == library && result.workload->group == group;
            });
        if (takesPart && library != Ours()) {
            libraries.push_back(library);
        }
    }
    return libraries;
}

/// The exponent with which the time of a task grows since the size before. Where the number of
/// lines or queries does not grow, a task is one of them and its size is that of the polygon.
std::string Growth(const Result& before, const Result& now) {
    double time = now.nanoseconds / before.nanoseconds;
    double size = static_cast<double>(now.size) / before.size;
    if (now.units > before.units) {
        time *= now.units / before.units;
        size = now.work / before.work;
    }
    return Ratio(std::log(time) / std::log(size));
}

std::string Tables::Growth(const Result& ours) const {
    const Result* before = nullptr;
    for (int size : ours.workload->sizes) {
        if (size >= ours.size) {
            break;
        }
        const Result* found = Find(ours.workload, size, Ours());
        before = found != nullptr && found->remark.empty() ? found : before;
    }
    return before == nullptr || !ours.remark.empty() ? "" : bench::Growth(*before, ours);
}

Row Tables::RowOf(const Result& ours, const std::vector<const Library*>& libraries) const {
    Row row = {ours.workload->name, Grouped(ours.size), ours.workload->unit};
    const bool measured = ours.remark.empty();
    row.push_back(measured ? Short(ours.nanoseconds) : ours.remark);
    row.push_back(Growth(ours));
    row.push_back(measured && ours.memory >= 0 ? Short(ours.memory) : "");
    row.push_back(measured && ours.output > 0 ? Short(ours.output) : "");
    for (const Library* library : libraries) {
        const Result* peer = Find(ours.workload, ours.size, library);
        if (peer == nullptr) {
            row.emplace_back();
        } else if (!peer->remark.empty()) {
            row.push_back(peer->remark);
        } else if (!measured) {
            row.push_back(Short(peer->nanoseconds));
        } else {
            row.push_back(Short(peer->nanoseconds) + " (" +
                          Ratio(ours.nanoseconds / peer->nanoseconds) + ")");
        }
    }
    return row;
}

void WriteAligned(const std::vector<Row>& rows, std::ostream& out) {
    std::vector<std::size_t> widths(rows.front().size(), 3);
    for (const Row& row : rows) {
        for (std::size_t c = 0; c < row.size(); ++c) {
            widths[c] = std::max(widths[c], row[c].size());
        }
    }
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            const std::string padding(widths[c] - rows[r][c].size(), ' ');
            out << "| " << (c == 0 ? rows[r][c] + padding : padding + rows[r][c]) << ' ';
        }
        out << "|\n";
        for (std::size_t c = 0; r == 0 && c < widths.size(); ++c) {
            out << '|' << std::string(widths[c] + 1, '-') << (c == 0 ? '-' : ':');
        }
        out << (r == 0 ? "|\n" : "");
    }
}

void Tables::WriteGroup(const std::string& group, std::ostream& out) const {
    const std::vector<const Library*> libraries = LibrariesOf(group);
    std::vector<Row> rows = {{"workload", "n", "per", "ns", "growth", "bytes", "out"}};
    for (const Library* library : libraries) {
        rows.front().push_back(library->Name());
    }
    for (const Result& result : m_results) {
        if (result.library == Ours() && result.workload->group == group) {
            rows.push_back(RowOf(result, libraries));
        }
    }
    if (rows.size() > 1) {
        out << "\n## " << group << "\n\n";
        WriteAligned(rows, out);
    }
}

void Tables::Write(std::ostream& out) const {
    std::string group;
    for (const Workload& workload : Workloads()) {
        if (workload.group != group) {
            group = workload.group;
            WriteGroup(group, out);
        }
    }
}

std::string Processor() {
    std::ifstream info("/proc/cpuinfo");
    const std::string key = "model name";
    for (std::string line; std::getline(info, line);) {
        if (line.compare(0, key.size(), key) == 0) {
            return line.substr(line.find(':') + 2);
        }
    }
    return "unknown";
}

std::string PeerNames() {
    std::string names;
    for (const Library* library : Libraries()) {
        names += library == Ours() ? "" : (names.empty() ? "" : ", ") + library->Name();
    }
    return names;
}

} // namespace

void WriteTables(const std::vector<Result>& results, std::ostream& out) {
    Tables(results).Write(out);
}

void WritePage(const std::vector<Result>& results, std::ostream& out) {
    out << "# Benchmarks\n\n"
           "Written by `scripts/bench --peers`; run it to see the figures of your machine.\n\n"
        << "- Processor: " << Processor() << "\n"
        << "- Compiler: " << GEOM_BENCHMARK_COMPILER << "\n"
        << "- Compared with: " << PeerNames() << "\n\n"
        << "Times are nanoseconds of processor time of the process, the least of several runs,\n"
           "divided by what the column *per* says. Vertices are those of both operands; *n* is\n"
           "the size of each operand (of the polygon, where lines or points ask one). *growth*\n"
           "is the exponent with which the time of a task grows since the row above, against\n"
           "vertices and crossings in set operations and *n* elsewhere; *bytes* is the peak of\n"
           "working memory with the result, and *out* the vertices of the result, both per unit,\n"
           "too. Behind the time of another library stands the share of it that ours\n"
           "takes. Its result had to have the same area, length or count first: *differs* says\n"
           "that it had not, *fails* that it gave none, and *slow* that it would have taken many\n"
           "seconds. Turning the input into the library's own types is not counted; building an\n"
           "index is. Inputs are made by `benchmarks/Inputs.cpp` or come from `data/`.\n"
           "[Performance](performance.md) draws these figures and says where they come from.\n";
    WriteTables(results, out);
}

} // namespace geom::bench
