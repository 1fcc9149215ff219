#pragma once

// The flags that the benchmark programs in this directory take besides Google Benchmark's own:
//   --sizes=a,b,c   the vertex counts to run, in rising order
//   --limit_s=S     the longest single operation that is timed, in seconds

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// Reads the arguments that benchmark::Initialize left. `valid` says whether a vertex count fits
// the program's shapes, and `rule` describes the counts it accepts. False, with a message, for
// an argument it does not know or a count that does not fit.
inline bool ParseOwnFlags(int argc, char** argv, std::vector<int>& sizes, double& limitSeconds,
                          bool (*valid)(int), const char* rule) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg.rfind("--sizes=", 0) == 0) {
            sizes.clear();
            const std::string rest = arg.substr(8);
            std::size_t pos = 0;
            for (;;) {
                const std::size_t comma = rest.find(',', pos);
                const std::string item = rest.substr(pos, comma - pos);
                const int n = std::atoi(item.c_str());
                if (!valid(n)) {
                    std::fprintf(stderr, "bad size '%s' (%s)\n", item.c_str(), rule);
                    return false;
                }
                sizes.push_back(n);
                if (comma == std::string::npos) {
                    break;
                }
                pos = comma + 1;
            }
            std::sort(sizes.begin(), sizes.end());
        } else if (arg.rfind("--limit_s=", 0) == 0) {
            limitSeconds = std::atof(arg.c_str() + 10);
        } else {
            std::fprintf(stderr, "unknown argument '%s'\n", arg.c_str());
            return false;
        }
    }
    return true;
}
