// What the list of service numbers asks the back end for while somebody scrolls through
// it, and what the first page of a history costs.
#include "bench/support/countingserver.h"
#include "bench/support/firstshow.h"
#include "bench/support/ratio.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/cservicenotable.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicenummodel.h"
#include "tests/support/fakecontext.h"
#include "tests/support/files.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QSet>
#include <QTemporaryDir>

#include <memory>

namespace {
constexpr int Numbers = 500;
constexpr int Stops = 12;

struct Counts
{
    int rows = 0; // that were seen
    int requests = 0;
    int mostAtOnce = 0;
};

QList<CServiceNumData> sampleNumbers()
{
    QList<CServiceNumData> numbers;
    for (int i = 0; i < Numbers; ++i) {
        CServiceNumData number;
        number.code = QStringLiteral("n%1").arg(i);
        number.name = QStringLiteral("Number %1").arg(i);
        number.icon = number.code + QLatin1String(".png");
        numbers.append(number);
    }
    return numbers;
}

void addSeenRows(const QAbstractItemView &view, QSet<int> *rows)
{
    const int height = view.viewport()->height();
    for (int y = 0; y < height; ++y) {
        const QModelIndex index = view.indexAt(QPoint(5, y));
        if (index.isValid())
            rows->insert(index.row());
    }
}

// In long strides, as with the bar, and a look at where each ends.
Counts scrollThrough()
{
    const QTemporaryDir folder;
    const CountingServer server("image/png", "not decoded", 5);
    FakeContext host;
    host.user = QStringLiteral("u1");
    host.baseFolder = folder.path();
    host.programFolder = folder.path();
    writeFile(folder.filePath(QStringLiteral("allurl.ini")),
              "[ImFile]\ndownloadPointUrl=" + server.url().toEncoded() + "icon\n");
    const HostContextScope scope(&host);
    auto *hub = FriendUISignalSender::instance();
    emit hub->signal_logout();
    emit hub->signal_notifyAddServiceNum(sampleNumbers());

    CServiceNoTable table;
    table.model()->setNumbers(ServiceNumbers::instance().subscriptions());
    table.resize(300, 600);
    table.show();
    QSet<int> seen;
    QScrollBar *bar = table.verticalScrollBar();
    const auto icons = [&] { return PictureFiles::serviceIcons().isBusy(); };
    for (int stop = 0; stop <= Stops; ++stop) {
        bar->setValue(bar->maximum() * stop / Stops);
        table.repaint();
        addSeenRows(table, &seen);
        QElapsedTimer limit;
        limit.start();
        while (icons() && !limit.hasExpired(10000))
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    emit hub->signal_logout();
    return {seen.size(), server.requests(), server.mostAtOnce()};
}

const Counts &counts()
{
    static const Counts once = scrollThrough();
    return once;
}

const bool registered[] = {
    Ratio::add({"Icons asked for while 500 service numbers are scrolled through, rows seen",
                "scroll", Ratio::atMostTimes(1), "requests", 1},
               [] {
                   return Ratio::Pair{[] { return double(counts().requests); },
                                      [] { return double(counts().rows); }};
               }),
    Ratio::add({"Icons on their way at once", "scroll", Ratio::atMost(PictureFiles::IconsAtATime),
                "requests", 1},
               [] {
                   return Ratio::Pair{[] { return double(counts().mostAtOnce); }, {}};
               }),
    Ratio::add({"First page of a history from loading the browser on, bare web view", "page",
                Ratio::atMostTimes(1.25), "ms"},
               [] {
                   return Ratio::Pair{[] { return FirstShow::measure(FirstShow::Page); },
                                      [] { return FirstShow::measure(FirstShow::BarePage); }};
               }),
};
} // namespace
