#pragma once

// The command line every benchmark of one document in fresh processes takes: the document and,
// optionally, how many fresh processes time each phase.

#include "BareExpat.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace bench {

struct DocumentRun {
    std::vector<unsigned char> document;
    int runs;
};

// Reads "<document.gpx> [runs]"; false, with the reason on stderr, when the arguments are wrong or
// the document cannot be read.
inline bool ReadDocumentRun(int argc, char** argv, int defaultRuns, DocumentRun& run) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s <document.gpx> [runs]\n", argv[0]);
        return false;
    }
    run.runs = argc == 3 ? std::max(1, std::atoi(argv[2])) : defaultRuns;
    run.document = ReadFile(argv[1]);
    if (run.document.empty()) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return false;
    }
    return true;
}

// How a target reads in a benchmark's report.
inline const char* Verdict(bool met) {
    return met ? "met" : "missed";
}

} // namespace bench
