// Reports how often boolean combination agrees with Boost.Geometry on a hard corpus: stars with
// many spikes whose boundaries cross many times, pairs that share all or part of an edge, and
// pairs that touch at a vertex or where a vertex of one lies on an edge of the other.
//
// A case agrees as in the peer test: Combine's rings, read under the even-odd rule, and
// Boost.Geometry's result differ by an area within 0.01 times the operands' perimeters, and
// they give the same membership for random points farther than 0.1 from every boundary. Each
// result is also measured against the exact region, integrated from the operands, so that a
// disagreement can be put down to one side: "Combine off" and "peer off" count the cases where
// that side's region differs from the exact one by more than the same band.
//
// Usage: combine_agreement [pairs per family] [--list]
//   --list prints every case that does not agree, with its seed and measures.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "support/PolygonCorpus.h"

namespace {

using ravelin::_RvCombineMode;
using ravelin::CombineDifference;
using ravelin::CombineIntersection;
using ravelin::CombineUnion;
using ravelin::testing_support::CompareWithPeer;
using ravelin::testing_support::ModeName;
using ravelin::testing_support::OutlinePair;
using ravelin::testing_support::PeerComparison;

constexpr std::array<_RvCombineMode, 3> kModes{CombineDifference, CombineIntersection,
                                               CombineUnion};
constexpr int kSamplesPerCase = 200;

struct Family {
    const char* name;
    OutlinePair (*make)(std::uint32_t seed);
};

// Counts of cases in one mode.
struct Counts {
    int cases = 0;
    int agreed = 0;
    int combineOff = 0;
    int peerOff = 0;
    int peerFailed = 0;

    void Add(const Counts& o) {
        cases += o.cases;
        agreed += o.agreed;
        combineOff += o.combineOff;
        peerOff += o.peerOff;
        peerFailed += o.peerFailed;
    }
};

void PrintRow(const char* family, const char* mode, const Counts& c) {
    const double rate = c.cases == 0 ? 0.0 : 100.0 * c.agreed / c.cases;
    std::printf("%-32s %-13s %6d %6d %8.2f%% %12d %9d %11d\n", family, mode, c.cases, c.agreed,
                rate, c.combineOff, c.peerOff, c.peerFailed);
}

// The kind of pair in a label: what comes before " seed".
std::string KindOf(const std::string& label) {
    return label.substr(0, label.find(" seed"));
}

}  // namespace

int main(int argc, char** argv) {
    int pairs = 1000;
    bool list = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--list") == 0) {
            list = true;
        } else {
            pairs = std::stoi(argv[i]);
        }
    }

    const Family families[] = {
        {"spiky stars", ravelin::testing_support::SpikyStarPair},
        {"shared edges", ravelin::testing_support::SharedEdgePair},
        {"touching vertices", ravelin::testing_support::TouchingVertexPair},
    };

    std::vector<std::string> disagreements;
    // Rows per kind of pair, in the order they first come up, then per family, then in all.
    std::vector<std::string> kinds;
    std::vector<std::array<Counts, 3>> kindCounts;
    std::vector<std::array<Counts, 3>> familyCounts;
    std::array<Counts, 3> total;
    for (const Family& family : families) {
        std::array<Counts, 3>& fc = familyCounts.emplace_back();
        for (int k = 0; k < pairs; ++k) {
            const auto seed = static_cast<std::uint32_t>(k + 1);
            const OutlinePair pair = family.make(seed);
            const std::string kind = KindOf(pair.label);
            auto at = std::find(kinds.begin(), kinds.end(), kind);
            if (at == kinds.end()) {
                kinds.push_back(kind);
                kindCounts.emplace_back();
                at = kinds.end() - 1;
            }
            std::array<Counts, 3>& kc = kindCounts[static_cast<std::size_t>(at - kinds.begin())];
            for (std::size_t m = 0; m < 3; ++m) {
                const PeerComparison c =
                    CompareWithPeer(pair.a, pair.b, kModes[m],
                                    seed * 4 + static_cast<std::uint32_t>(m), kSamplesPerCase);
                Counts n;
                n.cases = 1;
                if (c.Agrees()) {
                    n.agreed = 1;
                } else if (list) {
                    disagreements.push_back(pair.label + ", " + ModeName(kModes[m]) + ": " +
                                            c.Describe());
                }
                if (c.peerFailed) {
                    n.peerFailed = 1;
                } else {
                    n.combineOff =
                        c.ravelinError > c.band || c.shortRings != 0 || !c.combined ? 1 : 0;
                    n.peerOff = c.peerError > c.band ? 1 : 0;
                }
                kc[m].Add(n);
                fc[m].Add(n);
                total[m].Add(n);
            }
        }
    }

    std::printf("Combine against Boost.Geometry: %d pairs per family, %d sample points per case\n",
                pairs, kSamplesPerCase);
    std::printf("\n%-32s %-13s %6s %6s %9s %12s %9s %11s\n", "kind of pair", "mode", "cases",
                "agree", "rate", "Combine off", "peer off", "peer threw");
    for (std::size_t k = 0; k < kinds.size(); ++k) {
        for (std::size_t m = 0; m < 3; ++m) {
            PrintRow(kinds[k].c_str(), ModeName(kModes[m]), kindCounts[k][m]);
        }
    }
    std::printf("\n%-32s %-13s %6s %6s %9s %12s %9s %11s\n", "family", "mode", "cases", "agree",
                "rate", "Combine off", "peer off", "peer threw");
    for (std::size_t f = 0; f < familyCounts.size(); ++f) {
        for (std::size_t m = 0; m < 3; ++m) {
            PrintRow(families[f].name, ModeName(kModes[m]), familyCounts[f][m]);
        }
    }
    for (std::size_t m = 0; m < 3; ++m) {
        PrintRow("hard corpus", ModeName(kModes[m]), total[m]);
    }
    if (list) {
        std::printf("\nCases that do not agree:\n");
        for (const std::string& d : disagreements) {
            std::printf("  %s\n", d.c_str());
        }
    }
    return 0;
}
