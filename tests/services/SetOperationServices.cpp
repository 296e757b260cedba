// SPDX-License-Identifier: MIT
// The engine: set operations on records, as contours and as strips, and their files.
#include "tests/services/Services.h"
#include "tests/services/Workload.h"
#include "tests/support/PolygonView.h"

#include <cstdio>
#include <memory>

namespace geom::test {

namespace {

constexpr int SIZE = 40;

void SetOperations(int rounds, Digest& results) {
    Random random(101);
    ForEachFamily(random, rounds, SIZE, [&](Operands operands) {
        const PolygonView subject(operands.subject);
        const PolygonView clip(operands.clip);
        for (const gpc_op operation : {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION}) {
            gpc_polygon result = {0, nullptr, nullptr};
            results.AddOutcome(
                [&] { gpc_polygon_clip(operation, &subject.Get(), &clip.Get(), &result); });
            results.Add(result);
            gpc_free_polygon(&result);
        }
    });
}

void Strips(int rounds, Digest& results) {
    Random random(102);
    ForEachFamily(random, rounds, SIZE, [&](Operands operands) {
        const PolygonView subject(operands.subject);
        const PolygonView clip(operands.clip);
        for (const gpc_op operation : {GPC_DIFF, GPC_INT, GPC_XOR, GPC_UNION}) {
            gpc_tristrip result = {0, nullptr};
            results.AddOutcome(
                [&] { gpc_tristrip_clip(operation, &subject.Get(), &clip.Get(), &result); });
            results.Add(result);
            gpc_free_tristrip(&result);
        }
        gpc_tristrip whole = {0, nullptr};
        results.AddOutcome([&] { gpc_polygon_to_tristrip(&subject.Get(), &whole); });
        results.Add(whole);
        gpc_free_tristrip(&whole);
    });
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

std::string Content(std::FILE* file) {
    std::rewind(file);
    std::string content;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
        content += static_cast<char>(c);
    }
    std::rewind(file);
    return content;
}

// Writes a polygon, reads it back, and adds the bytes of the file and what was read.
template <typename Write, typename Read>
void AddFile(const gpc_polygon& polygon, Write write, Read read, Digest& results) {
    const File file(std::tmpfile(), std::fclose);
    if (file == nullptr) {
        std::perror("a temporary file");
        std::abort();
    }
    results.Add(write(file.get(), 1, &polygon));
    results.Add(Content(file.get()));
    gpc_polygon copy = {0, nullptr, nullptr};
    results.Add(read(file.get(), 1, &copy));
    results.Add(copy);
    gpc_free_polygon(&copy);
}

void TextFiles(int rounds, Digest& results) {
    Random random(103);
    ForEachFamily(random, rounds, SIZE, [&](Operands operands) {
        const PolygonView subject(operands.subject);
        AddFile(subject.Get(), gpc_write_polygon, gpc_read_polygon, results);
    });
}

void BinaryFiles(int rounds, Digest& results) {
    Random random(104);
    ForEachFamily(random, rounds, SIZE, [&](Operands operands) {
        const PolygonView subject(operands.subject);
        AddFile(subject.Get(), gpc_write_polygon_binary, gpc_read_polygon_binary, results);
    });
}

// One operation of a size at which the sweep's index over long lists is at work.
void LargeSetOperations(int rounds, Digest& results) {
    Random random(105);
    for (int round = 0; round < rounds; ++round) {
        for (const MakeOperands make : {Stars, Combs, Saws, TriangleMeshes}) {
            Operands operands = make(random, 1500);
            const PolygonView subject(operands.subject);
            const PolygonView clip(operands.clip);
            gpc_polygon result = {0, nullptr, nullptr};
            gpc_polygon_clip(GPC_XOR, &subject.Get(), &clip.Get(), &result);
            results.Add(result);
            gpc_free_polygon(&result);
        }
    }
}

} // namespace

void AddSetOperationServices(std::vector<Service>& services) {
    services.push_back({"set operations", Means::Arithmetic, SetOperations});
    services.push_back({"large set operations", Means::Arithmetic, LargeSetOperations});
    services.push_back({"triangle strips", Means::Arithmetic, Strips});
    services.push_back({"text files", Means::Arithmetic, TextFiles});
    services.push_back({"binary files", Means::Arithmetic, BinaryFiles});
}

} // namespace geom::test
