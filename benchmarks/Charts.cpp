// SPDX-License-Identifier: MIT
#include "Charts.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <fstream>

namespace geom::bench {

namespace {

constexpr int COLUMNS = 3;
constexpr double PANEL_WIDTH = 300;
constexpr double PANEL_HEIGHT = 210;
constexpr double LEFT = 48; // of the plot within its panel
constexpr double RIGHT = 12;
constexpr double TOP = 30;
constexpr double BOTTOM = 34;
constexpr double LEGEND_HEIGHT = 34;

constexpr const char* INK = "#37474f";
constexpr const char* GRID = "#dfe5e8";

/// Tenths of a pixel: shorter than a picture shows.
std::string Number(double value) {
    const long long tenths = std::llround(value * 10);
    std::string text = std::to_string(tenths / 10);
    if (tenths % 10 != 0) {
        text += "." + std::to_string(tenths % 10);
    }
    return text;
}

std::string Text(double x, double y, const std::string& anchor, int size, const std::string& text,
                 const char* colour = INK) {
    return "<text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" text-anchor=\"" + anchor +
           "\" font-size=\"" + std::to_string(size) + "\" fill=\"" + colour + "\">" + text +
           "</text>\n";
}

std::string Line(double x1, double y1, double x2, double y2, const char* colour) {
    return "<path d=\"M" + Number(x1) + " " + Number(y1) + "L" + Number(x2) + " " + Number(y2) +
           "\" stroke=\"" + colour + "\"/>\n";
}

/// The same for a library in every chart; ours stands out.
const char* ColourOf(const Library* library) {
    static const std::vector<const char*> colours = {"#1f7a74", "#37474f", "#c39a4f",
                                                     "#c8553d", "#6a5fa8", "#4d8fc4",
                                                     "#9dc3e2", "#a0748b", "#8595a0"};
    const auto& all = Libraries();
    const auto at =
        static_cast<std::size_t>(std::find(all.begin(), all.end(), library) - all.begin());
    return colours[std::min(at, colours.size() - 1)];
}

bool IsOurs(const Library* library) {
    return library == Libraries().front();
}

std::string PowerOfTen(int exponent, const char* const (&suffixes)[4]) {
    if (exponent < 0) {
        return "0." + std::string(static_cast<std::size_t>(-exponent) - 1, '0') + "1" + suffixes[0];
    }
    const int thousands = std::min(exponent / 3, 3);
    return "1" + std::string(static_cast<std::size_t>(exponent - 3 * thousands), '0') +
           suffixes[thousands];
}

std::string TimeLabel(int exponent) {
    return PowerOfTen(exponent, {" ns", " µs", " ms", " s"});
}

std::string SizeLabel(int exponent) {
    return PowerOfTen(exponent, {"", "k", "M", "G"});
}

/// Whole powers of ten around values.
struct Decades {
    int first = 0;
    int last = 0;

    explicit Decades(const std::vector<double>& values) {
        const auto ends = std::minmax_element(values.begin(), values.end());
        first = static_cast<int>(std::floor(std::log10(*ends.first) + 1e-9));
        last = static_cast<int>(std::ceil(std::log10(*ends.second) - 1e-9));
        last = std::max(last, first + 1);
    }

    /// Where a value lies from 0 to 1.
    double Part(double value) const { return (std::log10(value) - first) / (last - first); }
};

/// The measured results of a workload as lines, one for each library.
class Chart {
public:
    Chart(const Workload& workload, const std::vector<const Result*>& results, double x, double y)
        : m_workload(workload), m_results(results), m_left(x + LEFT), m_top(y + TOP),
          m_sizes(Values(results, [](const Result& r) { return double(r.size); })),
          m_times(Values(results, [](const Result& r) { return r.nanoseconds; })) {}

    std::string Draw() const { return Frame() + Curves(); }

private:
    template <typename Get>
    static std::vector<double> Values(const std::vector<const Result*>& results, Get get) {
        std::vector<double> values;
        for (const Result* result : results) {
            values.push_back(get(*result));
        }
        return values;
    }

    static constexpr double WIDTH = PANEL_WIDTH - LEFT - RIGHT;
    static constexpr double HEIGHT = PANEL_HEIGHT - TOP - BOTTOM;

    double X(double size) const { return m_left + WIDTH * m_sizes.Part(size); }
    double Y(double time) const { return m_top + HEIGHT * (1 - m_times.Part(time)); }

    std::string Frame() const;
    std::string Curves() const;
    std::string Curve(const Library* library) const;

    const Workload& m_workload;
    const std::vector<const Result*>& m_results;
    double m_left, m_top;
    Decades m_sizes, m_times;
};

std::string Chart::Frame() const {
    std::string svg = Text(m_left - LEFT + 12, m_top - 12, "start", 12, m_workload.name);
    const double bottom = m_top + HEIGHT;
    for (int e = m_sizes.first; e <= m_sizes.last; ++e) {
        const double x = X(std::pow(10.0, e));
        svg += Line(x, m_top, x, bottom, GRID) + Text(x, bottom + 14, "middle", 10, SizeLabel(e));
    }
    for (int e = m_times.first; e <= m_times.last; ++e) {
        const double y = Y(std::pow(10.0, e));
        svg += Line(m_left, y, m_left + WIDTH, y, GRID) +
               Text(m_left - 5, y + 3, "end", 10, TimeLabel(e));
    }
    return svg +
           Text(m_left + WIDTH, bottom + 27, "end", 10, std::string("per ") + m_workload.unit);
}

std::string Chart::Curve(const Library* library) const {
    std::string path, dots;
    for (const Result* result : m_results) {
        if (result->library == library) {
            const std::string x = Number(X(result->size)), y = Number(Y(result->nanoseconds));
            path += (path.empty() ? "M" : "L") + x + " " + y;
            dots += "<circle cx=\"" + x + "\" cy=\"" + y + "\" r=\"" +
                    (IsOurs(library) ? "3.5" : "2.5") + "\"/>";
        }
    }
    if (path.empty()) {
        return "";
    }
    const std::string colour = ColourOf(library);
    return "<g fill=\"" + colour + "\"><path d=\"" + path + "\" fill=\"none\" stroke=\"" + colour +
           "\" stroke-width=\"" + (IsOurs(library) ? "2.5" : "1.3") + "\"/>" + dots + "</g>\n";
}

/// Ours last, so that it lies above the others.
std::string Chart::Curves() const {
    std::string svg;
    for (auto library = Libraries().rbegin(); library != Libraries().rend(); ++library) {
        svg += Curve(*library);
    }
    return svg;
}

/// The charts of a group below each other.
class Sheet {
public:
    void Add(const Workload& workload, const std::vector<const Result*>& measured) {
        const int column = m_count % COLUMNS, row = m_count / COLUMNS;
        m_body +=
            Chart(workload, measured, column * PANEL_WIDTH, LEGEND_HEIGHT + row * PANEL_HEIGHT)
                .Draw();
        ++m_count;
        for (const Result* result : measured) {
            if (std::find(m_shown.begin(), m_shown.end(), result->library) == m_shown.end()) {
                m_shown.push_back(result->library);
            }
        }
    }

    bool IsEmpty() const { return m_count == 0; }
    std::string Svg() const;

private:
    std::string Legend() const;

    std::string m_body;
    std::vector<const Library*> m_shown;
    int m_count = 0;
};

std::string Sheet::Legend() const {
    std::string svg;
    double x = 16;
    for (const Library* library : Libraries()) {
        if (std::find(m_shown.begin(), m_shown.end(), library) == m_shown.end()) {
            continue;
        }
        const std::string name = library->Name();
        svg += "<circle cx=\"" + Number(x) + "\" cy=\"17\" r=\"4\" fill=\"" + ColourOf(library) +
               "\"/>\n" + Text(x + 9, 21, "start", 12, name);
        x += 34 + 7 * static_cast<double>(name.size());
    }
    return svg;
}

std::string Sheet::Svg() const {
    const int columns = std::min(m_count, COLUMNS), rows = (m_count + COLUMNS - 1) / COLUMNS;
    const std::string width = Number(std::max(columns * PANEL_WIDTH, 2 * PANEL_WIDTH));
    const std::string height = Number(LEGEND_HEIGHT + rows * PANEL_HEIGHT);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\" viewBox=\"0 0 " + width + " " + height +
           "\" font-family=\"Helvetica,Arial,sans-serif\">\n<rect width=\"" + width +
           "\" height=\"" + height + "\" fill=\"#ffffff\"/>\n" + Legend() + m_body + "</svg>\n";
}

/// "Lines and dashes" as a part of a file name.
std::string FileName(const std::string& group) {
    std::string name;
    for (const char c : group) {
        name += c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return "cost-" + name + ".svg";
}

Sheet SheetOf(const std::string& group, const std::vector<Result>& results) {
    Sheet sheet;
    for (const Workload& workload : Workloads()) {
        std::vector<const Result*> measured;
        for (const Result& result : results) {
            if (workload.group == group && result.workload == &workload && result.remark.empty()) {
                measured.push_back(&result);
            }
        }
        if (!measured.empty()) {
            sheet.Add(workload, measured);
        }
    }
    return sheet;
}

} // namespace

bool DrawCharts(const std::vector<Result>& results, const std::string& folder) {
    std::string group;
    for (const Workload& workload : Workloads()) {
        if (workload.group == group) {
            continue;
        }
        group = workload.group;
        const Sheet sheet = SheetOf(group, results);
        if (sheet.IsEmpty()) {
            continue;
        }
        std::ofstream out(folder + "/" + FileName(group));
        out << sheet.Svg();
        if (!out.flush()) {
            return false;
        }
    }
    return true;
}

} // namespace geom::bench
