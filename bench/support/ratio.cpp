#include "bench/support/ratio.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <vector>

namespace Ratio {
namespace {
struct Result
{
    Subject subject;
    double candidate = 0;
    double peer = 0;
    std::string skipped;

    double ratio() const
    {
        switch (subject.wanted.kind) {
        case Wanted::TimesFaster:
            return peer / candidate;
        case Wanted::AtMostTimes:
            return candidate / peer;
        case Wanted::AtMost:
            return candidate / subject.wanted.bound;
        }
        return 0;
    }

    bool isReached() const
    {
        const double bound = subject.wanted.bound;
        switch (subject.wanted.kind) {
        case Wanted::TimesFaster:
            return ratio() >= bound;
        case Wanted::AtMostTimes:
            return ratio() <= bound;
        case Wanted::AtMost:
            return candidate <= bound;
        }
        return false;
    }
};

std::vector<Result> &results()
{
    static std::vector<Result> list;
    return list;
}

double cpuOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

Result measure(const Subject &subject, const Pair &pair)
{
    Result result{subject, std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
                  pair.skipped};
    const bool alone = subject.wanted.kind == Wanted::AtMost;
    for (int round = 0; round < subject.rounds && result.skipped.empty(); ++round) {
        const double candidate = pair.candidate();
        const double peer = alone ? 0 : pair.peer();
        if (candidate < 0 || peer < 0)
            result.skipped = "a side could not run";
        result.candidate = std::min(result.candidate, candidate);
        result.peer = std::min(result.peer, peer);
    }
    return result;
}

void runOne(benchmark::State &state, const Subject &subject, const std::function<Pair()> &prepare)
{
    for (auto _ : state) {
        const Result result = measure(subject, prepare());
        results().push_back(result);
        state.SetIterationTime(0);
        if (!result.skipped.empty()) {
            state.SkipWithError(result.skipped.c_str());
            return;
        }
        state.counters["candidate"] = result.candidate;
        if (subject.wanted.kind != Wanted::AtMost) {
            state.counters["peer"] = result.peer;
            state.counters["ratio"] = result.ratio();
        }
        state.counters["wanted"] = subject.wanted.bound;
        state.SetLabel(result.isReached() ? "ok" : "MISS");
    }
}

std::string number(double value)
{
    char text[64];
    const int decimals = std::fabs(value) < 10 ? 2 : std::fabs(value) < 100 ? 1 : 0;
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string wantedText(const Subject &subject)
{
    const std::string bound = number(subject.wanted.bound);
    switch (subject.wanted.kind) {
    case Wanted::TimesFaster:
        return "peer at least " + bound + "x";
    case Wanted::AtMostTimes:
        return "at most " + bound + "x of peer";
    case Wanted::AtMost:
        return "at most " + bound;
    }
    return {};
}

void writeTable(std::FILE *file)
{
    std::fprintf(file, "| what | per | candidate | peer | ratio | wanted | result |\n"
                       "|---|---|---:|---:|---:|---|---|\n");
    for (const Result &result : results()) {
        const Subject &subject = result.subject;
        if (!result.skipped.empty()) {
            std::fprintf(file, "| %s | %s | | | | %s | skipped: %s |\n", subject.name.c_str(),
                         subject.unit.c_str(), wantedText(subject).c_str(), result.skipped.c_str());
            continue;
        }
        const bool alone = subject.wanted.kind == Wanted::AtMost;
        const std::string measure = " " + subject.measure;
        std::fprintf(file, "| %s | %s | %s | %s | %s | %s | %s |\n", subject.name.c_str(),
                     subject.unit.c_str(), (number(result.candidate) + measure).c_str(),
                     alone ? "" : (number(result.peer) + measure).c_str(),
                     alone ? "" : (number(result.ratio()) + "x").c_str(),
                     wantedText(subject).c_str(), result.isReached() ? "ok" : "**miss**");
    }
}
} // namespace

bool add(const Subject &subject, const std::function<Pair()> &prepare)
{
    benchmark::RegisterBenchmark(
        subject.name.c_str(),
        [subject, prepare](benchmark::State &state) { runOne(state, subject, prepare); })
        ->Iterations(1)
        ->UseManualTime();
    return true;
}

double processCpu()
{
    return cpuOf(CLOCK_PROCESS_CPUTIME_ID);
}

double threadCpu()
{
    return cpuOf(CLOCK_THREAD_CPUTIME_ID);
}

int run(int argc, char **argv)
{
    constexpr const char *Option = "--table=";
    std::string tableFile;
    std::vector<char *> others;
    for (int i = 0; i < argc; ++i) {
        if (std::strncmp(argv[i], Option, std::strlen(Option)) == 0)
            tableFile = argv[i] + std::strlen(Option);
        else
            others.push_back(argv[i]);
    }
    int count = int(others.size());
    others.push_back(nullptr);
    benchmark::Initialize(&count, others.data());
    if (benchmark::ReportUnrecognizedArguments(count, others.data()))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    writeTable(stdout);
    if (!tableFile.empty()) {
        std::FILE *file = std::fopen(tableFile.c_str(), "w");
        if (!file) {
            std::perror(tableFile.c_str());
            return 1;
        }
        writeTable(file);
        std::fclose(file);
    }
    return int(std::count_if(results().begin(), results().end(), [](const Result &result) {
        return result.skipped.empty() && !result.isReached();
    }));
}

} // namespace Ratio
