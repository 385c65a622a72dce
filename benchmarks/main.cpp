// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_batches.h"
#include "bench_export.h"
#include "bench_frame.h"
#include "bench_photo.h"
#include "bench_pick.h"
#include "bench_raytrace.h"
#include "bench_shadow.h"
#include "bench_tiles.h"

#include <cstdio>
#include <cstring>

namespace {

using namespace ogl::bench;

/// Adapts a measurement that cannot fail.
template <void (*measure)()> bool always() {
    measure();
    return true;
}

struct Bench {
    const char* name;
    bool (*run)(); ///< false when no view can be made to measure in
};

constexpr Bench kBenches[] = {
    {"batches", always<benchBatches>},
    {"export", always<benchExport>},
    {"frame", benchFrame},
    {"photo", benchPhoto},
    {"pick", always<benchPick>},
    {"raytrace", always<benchRayTrace>},
    {"shadow", benchShadow},
    {"tiles", benchTiles},
};

int usage() {
    std::printf("Usage: ogl_bench [NAME...]\n\nMeasures all, or what is named, and prints a line "
                "per figure: name, value, unit. Names:");
    for (const Bench& bench : kBenches)
        std::printf(" %s", bench.name);
    std::printf("\n");
    return 0;
}

bool isWanted(int argc, char** argv, const char* name) {
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], name) == 0)
            return true;
    return argc == 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--help") == 0)
        return usage();
    for (const Bench& bench : kBenches)
        if (isWanted(argc, argv, bench.name) && !bench.run()) {
            std::fprintf(stderr, "ogl_bench: %s: no view can be made to measure in\n", bench.name);
            return 1;
        }
    return 0;
}
