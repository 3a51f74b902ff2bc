// What one log entry costs the thread that logs, against an asynchronous logger
// that blocks when its queue is full and writes to a rotating file.
#include "bench/support/ratio.h"
#include "common/clogthread.h"
#include "common/context.h"
#include "common/logfilewriter.h"
#include "common/logging.h"

#include <QTemporaryDir>

#include <spdlog/async.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace {
#define BENCH_LOG_TEXT "entry fun AddFriend::slot_addFriend()"

constexpr int BurstLength = 20;
constexpr int Bursts = 250;
// Long enough for the throttle of the log thread (10 ms each 100 entries), so
// that each burst meets an idle logger.
constexpr std::chrono::milliseconds Pause{4};

// The clock of single calls is the wall's: reading a thread's CPU clock is a
// system call and costs more than what it would measure.
template <class Call> double quantileOfCalls(double quantile, Call &&call)
{
    using Clock = std::chrono::steady_clock;
    std::vector<double> costs;
    costs.reserve(BurstLength * Bursts);
    for (int burst = 0; burst < Bursts; ++burst) {
        for (int i = 0; i < BurstLength; ++i) {
            const Clock::time_point before = Clock::now();
            call();
            const std::chrono::duration<double, std::nano> cost = Clock::now() - before;
            costs.push_back(cost.count());
        }
        std::this_thread::sleep_for(Pause);
    }
    const auto at = costs.begin() + std::ptrdiff_t(quantile * double(costs.size() - 1));
    std::nth_element(costs.begin(), at, costs.end());
    return *at;
}

// A host with a log. It stays for ever, as the log front end keeps the thread.
class LogHost : public ApplicationContext
{
public:
    static void start()
    {
        static LogHost *host = new LogHost;
        Q_UNUSED(host)
    }

    LogFileWriter *logWriter() const override { return m_writer; }
    CLogThread *logThread() const override { return m_thread; }

private:
    LogHost()
    {
        m_thread->start();
        setHostContext(this);
    }

    QTemporaryDir m_folder;
    LogFileWriter *m_writer = new LogFileWriter(m_folder.filePath(QStringLiteral("bench.log")));
    CLogThread *m_thread = new CLogThread;
};

struct AsyncPeer
{
    AsyncPeer()
    {
        const auto sink = std::make_shared<spdlog::sinks::rotating_file_sink_mt>(
            folder.filePath(QStringLiteral("peer.log")).toStdString(),
            LogFileWriter::DefaultMaximumFileSize, LogFileWriter::DefaultMaximumBackupIndex);
        logger = std::make_shared<spdlog::async_logger>("peer", sink, pool,
                                                        spdlog::async_overflow_policy::block);
        logger->set_level(spdlog::level::debug);
        logger->set_pattern("[%Y-%m-%d %H:%M:%S.%e][%l][%s:%#]: %v");
    }

    QTemporaryDir folder;
    std::shared_ptr<spdlog::details::thread_pool> pool =
        std::make_shared<spdlog::details::thread_pool>(8192, 1);
    std::shared_ptr<spdlog::async_logger> logger;
};

Ratio::Pair quantile(double which)
{
    LogHost::start();
    const auto peer = std::make_shared<AsyncPeer>();
    return {[which] { return quantileOfCalls(which, [] { LOG_DEBUG(BENCH_LOG_TEXT); }); },
            [which, peer] {
                return quantileOfCalls(which, [&] {
                    peer->logger->log(spdlog::source_loc{__FILE__, __LINE__, ""},
                                      spdlog::level::debug, BENCH_LOG_TEXT);
                });
            }};
}

const bool registered[] = {
    Ratio::add({"Log entry, calling thread, median", "entry", Ratio::atMostTimes(0.5)},
               [] { return quantile(0.5); }),
    Ratio::add({"Log entry, calling thread, 99th percentile", "entry", Ratio::atMostTimes(0.5)},
               [] { return quantile(0.99); }),
};
} // namespace
