// SPDX-License-Identifier: MIT
// Prints a digest of the results of every service on generated input, and their totals: by the
// means that the services use, and of all. Builds whose digests agree give the same results to
// the bit.
//
//   determinism                  all services
//   determinism --arithmetic     those that must agree on every machine
//   determinism --stored FILE    checks those against digests that were printed before
#include "tests/services/Services.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

namespace geom::test {
namespace {

constexpr int ROUNDS = 12;

const char* NameOf(Means means) {
    switch (means) {
    case Means::Arithmetic: return "arithmetic";
    case Means::Platform: return "platform";
    case Means::Tessellator: return "tessellator";
    }
    return "";
}

std::string Line(std::uint64_t digest, const std::string& what) {
    char text[32];
    std::snprintf(text, sizeof text, "%016" PRIx64 " ", digest);
    return text + what + '\n';
}

// The digests of all services of the means up to the last, and the totals, a line each.
std::string Report(Means last) {
    std::string report;
    Digest all;
    const std::vector<Service> services = Services();
    std::string totals;
    for (Means means = Means::Arithmetic; means <= last;
         means = static_cast<Means>(static_cast<int>(means) + 1)) {
        Digest total;
        for (const Service& service : services) {
            if (service.means == means) {
                const std::uint64_t digest = DigestOf(service, ROUNDS);
                report += Line(digest, service.name);
                total.Add(digest);
                all.Add(digest);
            }
        }
        totals += Line(total.Value(), std::string("total of ") + NameOf(means));
    }
    return report + totals + (last == Means::Arithmetic ? "" : Line(all.Value(), "total of all"));
}

std::vector<std::string> LinesOf(std::istream&& text) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

// Whether the stored digests are those of this build; names the services that differ.
bool AgreesWith(const char* path) {
    const std::vector<std::string> stored = LinesOf(std::ifstream(path));
    const std::vector<std::string> found = LinesOf(std::istringstream(Report(Means::Arithmetic)));
    const std::size_t count = std::max(stored.size(), found.size());
    bool agrees = true;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string expected = i < stored.size() ? stored[i] : "(nothing)";
        const std::string actual = i < found.size() ? found[i] : "(nothing)";
        if (expected != actual) {
            std::cout << "stored " << expected << "\n found " << actual << "\n";
            agrees = false;
        }
    }
    return agrees;
}

} // namespace
} // namespace geom::test

int main(int argc, char** argv) {
    using namespace geom::test;
    if (argc == 1) {
        std::cout << Report(Means::Tessellator);
    } else if (argc == 2 && std::strcmp(argv[1], "--arithmetic") == 0) {
        std::cout << Report(Means::Arithmetic);
    } else if (argc == 3 && std::strcmp(argv[1], "--stored") == 0) {
        return AgreesWith(argv[2]) ? 0 : 1;
    } else {
        std::cerr << "usage: determinism [--arithmetic | --stored FILE]\n";
        return 2;
    }
    return 0;
}
