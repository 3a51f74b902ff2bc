// Makes docs/host-events.md from the event catalogue.
//
//     host-events FILE            writes the page
//     host-events --check FILE    fails when the file is not what would be written
#include "hostapi/eventcatalogue.h"
#include "hostapi/eventcodes.h"

#include <QFile>

#include <cstdio>

namespace {

const char Introduction[] = R"(# Host events

*Made by `host-events` from `hostapi/eventcodes.h`; change that file, not this page.*

The host and its plug-ins talk by `BaseEvent`s (`hostapi/baseevent.h`). An event has a code, a
payload, and the ids of its sender and its receiver; an empty receiver means every plug-in.

- The payload holds the arguments of the tables below, in order, written with `QDataStream` in
  its default version. `int` is 32 bits wide, an enumeration is an `int`, a `bool` one byte.
- Records (`FriendData`, `VcardInfo` and so on) are declared in `hostapi/hostrecords.h`, with
  their members in wire order.
- A jid is an account with its server, such as `u17@corp.example`. A flag called inner tells the
  contacts of the roster (true) from external contacts (false).
- A payload that ends early is read as if default values followed: empty texts and lists, 0,
  false. A container that announces more elements than there are bytes is read as empty, and so
  is everything behind it.
- Events that are addressed to another plug-in are ignored, and so are unknown codes.
- Everything happens on the GUI thread. The plug-in sends with `QCoreApplication::sendEvent`, so
  a host may answer from inside the call.

    BaseEvent event(Inbound::ContactAdded, payload, hostId, plugin->getPluginId());
    QCoreApplication::sendEvent(plugin->getEventReceiver(), &event);

)";

// The receivers in the order of the page.
const char *const receivers[] = {PluginId::Roster, PluginId::Chat, PluginId::Rooms, PluginId::Mail,
                                 PluginId::Everybody};

QString cell(const char *text)
{
    return QString::fromUtf8(text).replace(QLatin1Char('|'), QLatin1String("\\|"));
}

QString row(const EventInfo &info)
{
    QStringList fields;
    for (const auto &field : EventCatalogue::payloadFields(info))
        fields.append(QStringLiteral("`%1` %2").arg(field.type, field.name));
    return QStringLiteral("| %1 | `%2` | %3 | %4 |\n")
        .arg(QString::number(info.code), QString::fromLatin1(info.name),
             fields.join(QStringLiteral(", ")), cell(info.purpose));
}

QString tableHead()
{
    return QStringLiteral("| code | name | payload | purpose |\n|---|---|---|---|\n");
}

bool isReserved(const EventInfo &info)
{
    return QString::fromLatin1(info.purpose).startsWith(QLatin1String("reserved"));
}

QString requestsTo(const QString &receiver)
{
    QString rows;
    QStringList reserved;
    for (const EventInfo &info : EventCatalogue::all()) {
        if (info.direction != EventInfo::FromPlugin ||
            QString::fromLatin1(info.receiver) != receiver)
            continue;
        if (isReserved(info))
            reserved.append(QString::number(info.code));
        else
            rows += row(info);
    }

    const QString id = receiver.isEmpty() ? QStringLiteral("an empty receiver id")
                                          : QStringLiteral("`%1`").arg(receiver);
    QString section = QStringLiteral("### To %1: %2\n\n%3%4\n")
                          .arg(EventCatalogue::receiverName(receiver), id, tableHead(), rows);
    if (!reserved.isEmpty()) {
        section += QStringLiteral("Reserved, with whatever payload the caller gives: %1.\n\n")
                       .arg(reserved.join(QStringLiteral(", ")));
    }
    return section;
}

QString page()
{
    QString text = QString::fromUtf8(Introduction);
    text += QStringLiteral("## From the host to the plug-in: `%1`\n\n")
                .arg(QString::fromLatin1(PluginId::FriendUi));
    text += tableHead();
    for (const EventInfo &info : EventCatalogue::all()) {
        if (info.direction == EventInfo::ToPlugin)
            text += row(info);
    }
    text += QStringLiteral("\n## From the plug-in to the host\n\n"
                           "The sender is always `%1`.\n\n")
                .arg(QString::fromLatin1(PluginId::FriendUi));
    for (const char *receiver : receivers)
        text += requestsTo(QString::fromLatin1(receiver));
    text.chop(1); // one line end at the end of the file
    return text;
}

int check(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && file.readAll() == page().toUtf8())
        return 0;
    std::fprintf(stderr,
                 "%s is not what the catalogue yields; write it again with: host-events %s\n",
                 qPrintable(path), qPrintable(path));
    return 1;
}

int write(const QString &path)
{
    QFile file(path);
    const QByteArray bytes = page().toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return 0;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--check") == 0)
        return check(QString::fromLocal8Bit(argv[2]));
    if (argc == 2 && argv[1][0] != '-')
        return write(QString::fromLocal8Bit(argv[1]));
    std::fprintf(stderr, "usage: host-events [--check] FILE\n");
    return 2;
}
