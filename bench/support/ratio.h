// Benchmarks that compare. Candidate and peer run in turn in one process, a few
// rounds each, and the cheapest round of both counts: on a machine that others use
// too, only such a ratio says anything.
//
//     const bool registered = Ratio::add(
//         {"Pinyin of a name, codec", "name", Ratio::timesFaster(9)}, [] {
//             auto names = std::make_shared<QStringList>(sampleNames());
//             return Ratio::Pair{[=] { return Ratio::cpuPerUnit(names->size(), [&] { ... }); },
//                                [=] { return ...; }};
//         });
//
// Each comparison is one Google Benchmark (its filter and output options work),
// its counters hold the figures, and main() collects them as a Markdown table.
#pragma once

#include <functional>
#include <string>

namespace Ratio {

// What the comparison has to show.
struct Wanted
{
    enum Kind
    {
        TimesFaster, // peer / candidate is at least `bound`
        AtMostTimes, // candidate / peer is at most `bound`
        AtMost       // the candidate itself is at most `bound`; there is no peer
    };
    Kind kind;
    double bound;
};
inline Wanted timesFaster(double bound)
{
    return {Wanted::TimesFaster, bound};
}
inline Wanted atMostTimes(double bound)
{
    return {Wanted::AtMostTimes, bound};
}
inline Wanted atMost(double bound)
{
    return {Wanted::AtMost, bound};
}

struct Subject
{
    std::string name;
    std::string unit; // what one cost is for, such as "name"
    Wanted wanted;
    std::string measure = "ns"; // what a cost counts
    int rounds = 5;
};

// Runs one round and returns its cost for one unit; set-up outside of what it
// times is its own. A negative cost says that it cannot run here.
using Work = std::function<double()>;

struct Pair
{
    Work candidate;
    Work peer;                // none with AtMost
    std::string skipped = {}; // why the comparison cannot be made here, when it cannot
};

// Announces a comparison. `prepare` runs when its turn has come; what it captures
// lives until both have run. Returns a value so that it can initialise a static.
bool add(const Subject &subject, const std::function<Pair()> &prepare);

// CPU time of this process or this thread so far, in nanoseconds.
double processCpu();
double threadCpu();

// Process CPU time of one call, in nanoseconds for each of `units`.
template <class Function> double cpuPerUnit(double units, Function &&function)
{
    const double before = processCpu();
    function();
    return (processCpu() - before) / units;
}

// Runs what the arguments select, writes the table to the file that --table=FILE
// names, and returns how many comparisons missed what is wanted.
int run(int argc, char **argv);

} // namespace Ratio
