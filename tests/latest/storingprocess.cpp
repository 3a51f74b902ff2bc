// Stores rows in the local database of a user, one transaction each, and says the
// number of each that is stored: what the tests kill, and run two of.
//
//     storingprocess <data folder> <user> <prefix of the jids> <number of rows>
#include "contacts/latest/latestcontactstable.h"
#include "tests/support/fakecontext.h"

#include <QCoreApplication>

#include <cstdio>

namespace {
// A file that others write to without a pause can be busy for as long as a write waits:
// like the list, keeps what was refused and stores it later.
bool stored(const DBFriendData &record)
{
    constexpr int Attempts = 5;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (LatestContactsTable::store({record}))
            return true;
    }
    return false;
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 5)
        return 2;
    FakeContext host;
    host.baseFolder = arguments.at(1);
    host.user = arguments.at(2);
    const HostContextScope scope(&host);
    for (int i = 0; i < arguments.at(4).toInt(); ++i) {
        DBFriendData record;
        record.jid = arguments.at(3) + QString::number(i);
        record.displayName = QString(200, QLatin1Char('n'));
        record.time = QStringLiteral("2026-01-01 00:00:00");
        record.unread = 1;
        if (!stored(record))
            return 1;
        std::printf("%d\n", i);
        std::fflush(stdout);
    }
    return 0;
}
