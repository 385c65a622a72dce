// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Stands in for an importing process. The first argument says what it does, and for the importer's
// command the name of the model file; the last argument is its output file.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

int main(int argc, char** argv) {
    std::string what = argc > 1 ? argv[1] : "";
    if (what == "import-worker")
        what = std::filesystem::path(argv[2]).stem().string();
    if (what == "crash") {
        std::signal(SIGSEGV, SIG_DFL);
        std::raise(SIGSEGV);
    }
    if (what == "abort")
        std::abort();
    if (what == "exit")
        return 7;
    if (std::FILE* file = std::fopen(argv[argc - 1], "wb")) {
        // The arguments before the last one, each ended by a zero byte.
        for (int k = 1; k < argc - 1; ++k)
            std::fwrite(argv[k], 1, std::strlen(argv[k]) + 1, file);
        std::fclose(file);
    }
    std::printf("chatter on standard output\n");
    std::fprintf(stderr, "chatter on standard error\n");
    return 0;
}
