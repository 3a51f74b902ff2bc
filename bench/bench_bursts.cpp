// What arrives in great numbers through the hub, against models that do nothing but
// take it.
#include "bench/support/baremodel.h"
#include "bench/support/ratio.h"
#include "contacts/latest/latestmodel.h"
#include "contacts/latest/latestroles.h"
#include "contacts/latest/mylatestfriendwidget.h"
#include "contacts/rooms/mucwidget.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/localuser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

using Hub = FriendUISignalSender;

// --- Messages ------------------------------------------------------------------

constexpr int Messages = 10000;
constexpr int Conversations = 500;
constexpr int AtOnce = 100; // in one turn of the event loop
constexpr int FrameMs = 16;

QVector<MessageData> messages(int count, int conversations)
{
    static const QDateTime begin(QDate(2026, 11, 20), QTime(8, 0));
    QRandomGenerator random(3);
    QVector<MessageData> list;
    for (int i = 0; i < count; ++i) {
        const int number = count == conversations ? i : random.bounded(conversations);
        MessageData message;
        message.fromJid = QStringLiteral("user%1@corp.example").arg(number);
        message.toJid = QStringLiteral("u1@corp.example");
        message.displayName = QStringLiteral("Somebody %1").arg(number);
        message.body = QStringLiteral("What there is to say, number %1").arg(i);
        message.time = begin.addSecs(i).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        list.append(message);
    }
    return list;
}

// A page on screen that already shows all the conversations.
struct ShownLatest
{
    ShownLatest()
    {
        page.resize(284, 640);
        page.show();
        for (const MessageData &message : messages(Conversations, Conversations))
            emit Hub::instance()->signal_latestFriend(true, message);
        QTimer tick; // the loop goes on even when nothing comes
        tick.start(FrameMs);
        for (int i = 0; i < 500 && page.model()->rowCount() < Conversations; ++i)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    void burst(const QVector<MessageData> &list) const
    {
        for (int i = 0; i < list.size(); ++i) {
            emit Hub::instance()->signal_latestFriend(true, list.at(i));
            if (i % AtOnce == AtOnce - 1)
                QApplication::processEvents();
        }
        QApplication::processEvents();
    }

    LocalUser user;
    MyLatestFriendWidget page;
};

double messagesOurs()
{
    const ShownLatest shown;
    const QVector<MessageData> list = messages(Messages, Conversations);
    return Ratio::cpuPerUnit(Messages, [&] { shown.burst(list); });
}

// Every conversation moves to the end and changes once for each frame's worth of
// messages, with nothing else to do.
double messagesBare()
{
    ShownBareModel shown;
    for (int i = 0; i < Conversations; ++i)
        shown.model.append(QStringLiteral("Somebody %1").arg(i));
    QApplication::processEvents();
    QRandomGenerator random(3);
    return Ratio::cpuPerUnit(Messages, [&] {
        for (int i = 0; i < Messages; ++i) {
            shown.model.moveToEnd(random.bounded(Conversations - 1));
            if (i % Conversations == Conversations - 1)
                QApplication::processEvents();
        }
    });
}

// How often the row that changed most did so in a frame.
double changesPerFrame()
{
    const ShownLatest shown;
    QHash<QString, int> changes;
    int all = 0;
    QObject::connect(shown.page.model(), &QAbstractItemModel::dataChanged, shown.page.model(),
                     [&](const QModelIndex &index) {
                         ++changes[index.data(LatestRole::Id).toString()];
                         ++all;
                     });
    const QVector<MessageData> list = messages(Messages, Conversations);
    QElapsedTimer timer;
    timer.start();
    shown.burst(list);
    const double frames = double(timer.elapsed()) / FrameMs + 1;
    const int most = changes.isEmpty() ? 0 : *std::max_element(changes.begin(), changes.end());
    std::fprintf(stderr, "%d messages: %d row changes in %.0f frames\n", Messages, all, frames);
    return changes.size() == Conversations ? most / frames : -1;
}

// --- Rooms ---------------------------------------------------------------------

constexpr int Rooms = 5000;

QVector<MucData> rooms()
{
    QRandomGenerator random(9);
    QVector<MucData> list;
    for (int i = 0; i < Rooms; ++i) {
        MucData room;
        room.roomJid = QStringLiteral("room%1@conference.corp.example").arg(i);
        room.roomName = QString::fromUtf8("项目%1组").arg(random.bounded(1000000));
        room.memberCount = QString::number(3 + i % 60);
        room.classify = MucData::AddressBookRoom;
        list.append(room);
    }
    return list;
}

double roomsOurs()
{
    const LocalUser user;
    const QVector<MucData> list = rooms();
    MucWidget page;
    page.resize(284, 640);
    page.show();
    QApplication::processEvents();
    return Ratio::cpuPerUnit(Rooms, [&] {
        for (const MucData &room : list)
            emit Hub::instance()->signal_addMuc(room, true);
        QApplication::processEvents();
    });
}

double roomsBare()
{
    QVector<MucData> list = rooms();
    std::sort(list.begin(), list.end(),
              [](const MucData &a, const MucData &b) { return a.roomName < b.roomName; });
    ShownBareModel shown;
    std::vector<MucData> records; // a model without them could tell nothing but names
    const QObject receiver;
    QObject::connect(Hub::instance(), &Hub::signal_addMuc, &receiver,
                     [&](const MucData &room, bool) {
                         records.push_back(room);
                         shown.model.append(room.roomName);
                     });
    return Ratio::cpuPerUnit(Rooms, [&] {
        for (const MucData &room : list)
            emit Hub::instance()->signal_addMuc(room, true);
        QApplication::processEvents();
    });
}

const bool registered[] = {
    Ratio::add({"A message of a burst into the latest contacts, a row moved in a bare model",
                "message", Ratio::atMostTimes(30)},
               [] {
                   return Ratio::Pair{messagesOurs, messagesBare};
               }),
    Ratio::add({"Changes of one row in a burst of 10,000 messages", "frame", Ratio::atMost(1),
                "changes", 3},
               [] {
                   return Ratio::Pair{changesPerFrame, {}};
               }),
    Ratio::add(
        {"5,000 rooms one by one, in order into a bare model", "room", Ratio::atMostTimes(3)},
        [] {
            return Ratio::Pair{roomsOurs, roomsBare};
        }),
};

} // namespace
