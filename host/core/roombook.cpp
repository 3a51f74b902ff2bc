#include "host/core/roombook.h"

#include "host/core/corestore.h"
#include "host/core/recordsql.h"

#include <QDateTime>

#include <algorithm>

namespace {
const char RoomColumns[] =
    "roomJid,roomName,memberCount,headImage,classify,ownerJid,managerJid,createTime,version,"
    "topsigntype,topsigndate,noticesubject,noticecontent,localExist,isExist,isOpenBarCode,"
    "isOpenJoinValidate,isAutoRelease,isOpenWaterMark,isInnerMuc,companyCode,forbidden";
const char MessageColumns[] = "sessionJid,fromJid,toJid,body,time,kind,displayName,icon,appKey";
const char ReadMembers[] = "SELECT roomJid,jid,name,role FROM roommembers ORDER BY rowid";
const char InsertMember[] = "INSERT INTO roommembers(roomJid,jid,name,role) VALUES(?,?,?,?)";
const char DeleteMembers[] = "DELETE FROM roommembers WHERE roomJid=?";
const char DeleteRoom[] = "DELETE FROM rooms WHERE roomJid=?";
const char NewestFirst[] = " WHERE sessionJid=? ORDER BY id DESC LIMIT ?";

const QString RoomCounter = QStringLiteral("room");
const QString SeededKey = QStringLiteral("roomsSeeded");

enum Role
{
    Member = 0,
    Manager = 1,
    Owner = 2
};
} // namespace

RoomBook::RoomBook(CoreStore *store, const SampleCompany *company)
    : m_store(store), m_company(company)
{
}

QString RoomBook::roomDomain()
{
    return QStringLiteral("conference.") + SampleCompany::domain();
}

bool RoomBook::load(bool sampleRooms)
{
    m_rooms.clear();
    m_members.clear();
    if (sampleRooms && m_store->meta(SeededKey).isEmpty())
        return m_store->inTransaction([this] { return seed(); });

    QSqlQuery rooms = m_store->prepared(RecordSql::selectStatement("rooms", RoomColumns));
    if (!m_store->run(&rooms))
        return false;
    while (rooms.next()) {
        MucData room;
        RecordSql::read(rooms, &room);
        m_rooms.insert(room.roomJid, room);
    }
    QSqlQuery members = m_store->prepared(QString::fromLatin1(ReadMembers));
    if (!m_store->run(&members))
        return false;
    while (members.next()) {
        m_members[members.value(0).toString()].append(
            {members.value(1).toString(), members.value(2).toString(), members.value(3).toInt()});
    }
    return true;
}

bool RoomBook::seed()
{
    static const struct
    {
        const char *name;
        MucData::MucClassify classify;
        int size;
        int owner; // position of the owner among the members; 0 is the own user
        bool manager;
        bool forbidden;
    } rooms[] = {
        {"项目组周会", MucData::PreferredRoom, 12, 0, false, false},
        {"Release train", MucData::PreferredRoom, 8, 3, true, false},
        {"研发中心", MucData::AddressBookRoom, 40, 1, false, false},
        {"午饭去哪儿吃", MucData::LocalRoom, 6, 2, false, false},
        {"公司通知", MucData::AddressBookRoom, 60, 4, false, true},
        {"Support & Sales <handover>", MucData::LocalRoom, 5, 0, false, false},
    };
    int next = 1;
    for (const auto &entry : rooms) {
        QList<MucMemberData> members;
        for (int i = 0; i < qMin(entry.size, m_company->people()); ++i) {
            const int index = i == 0 ? 0 : next;
            if (i > 0)
                next = next % qMax(1, m_company->people() - 1) + 1;
            const SamplePerson person = m_company->person(index);
            members.append({person.uid + QLatin1Char('@') + SampleCompany::domain(), person.name,
                            i == 0 && entry.manager ? Manager : Member});
        }
        if (members.size() < 2)
            continue;
        const int owner = qMin(entry.owner, members.size() - 1);
        members.move(owner, 0);
        MucData room;
        if (!create(QString::fromUtf8(entry.name), members, &room))
            return false;
        room.classify = entry.classify;
        room.forbidden = entry.forbidden;
        if (!write(room, m_members.value(room.roomJid)))
            return false;
    }
    return m_store->setMeta(SeededKey, QStringLiteral("1"));
}

bool RoomBook::room(const QString &jid, MucData *out) const
{
    const auto found = m_rooms.constFind(jid);
    if (found == m_rooms.constEnd())
        return false;
    *out = *found;
    return true;
}

int RoomBook::role(const QString &roomJid, const QString &jid) const
{
    const QList<MucMemberData> list = m_members.value(roomJid);
    const auto found = std::find_if(list.constBegin(), list.constEnd(),
                                    [&](const MucMemberData &member) { return member.jid == jid; });
    return found == list.constEnd() ? Member : found->role;
}

// --- Changing -----------------------------------------------------------------

bool RoomBook::write(const MucData &room, const QList<MucMemberData> &members)
{
    const bool done = m_store->inTransaction([&] {
        QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("rooms", RoomColumns));
        RecordSql::bind(&insert, room);
        if (!m_store->run(&insert) ||
            !m_store->run(QString::fromLatin1(DeleteMembers), {room.roomJid}))
            return false;
        QSqlQuery member = m_store->prepared(QString::fromLatin1(InsertMember));
        for (const MucMemberData &entry : members) {
            member.addBindValue(room.roomJid);
            RecordSql::bind(&member, entry);
            if (!m_store->run(&member))
                return false;
        }
        return true;
    });
    if (!done)
        return false;
    m_rooms.insert(room.roomJid, room);
    m_members.insert(room.roomJid, members);
    return true;
}

bool RoomBook::create(const QString &subject, const QList<MucMemberData> &members, MucData *out)
{
    const qint64 number = members.size() < 2 ? 0 : m_store->nextNumber(RoomCounter);
    if (number == 0)
        return false;
    QList<MucMemberData> seats = members;
    seats.first().role = Owner;
    MucData room;
    room.roomJid = QStringLiteral("r%1@%2").arg(QString::number(number), roomDomain());
    room.roomName = subject.trimmed();
    if (room.roomName.isEmpty()) {
        QStringList names;
        for (int i = 0; i < qMin(3, seats.size()); ++i)
            names.append(seats.at(i).name);
        room.roomName = names.join(QString::fromUtf8("、"));
    }
    room.memberCount = QString::number(seats.size());
    room.ownerJid = seats.first().jid;
    room.createTime = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    room.version = QStringLiteral("1");
    room.companyCode = SampleCompany::companyCode();
    for (const MucMemberData &seat : qAsConst(seats)) {
        if (seat.role == Manager)
            room.managerJid = seat.jid;
    }
    if (!write(room, seats))
        return false;
    *out = room;
    return true;
}

bool RoomBook::rename(const QString &roomJid, const QString &jid, const QString &subject)
{
    MucData changed;
    if (subject.trimmed().isEmpty() || role(roomJid, jid) == Member || !room(roomJid, &changed))
        return false;
    changed.roomName = subject.trimmed();
    return write(changed, m_members.value(roomJid));
}

bool RoomBook::classify(const QString &roomJid, MucData::MucClassify classify)
{
    MucData changed;
    if (classify < MucData::LocalRoom || classify > MucData::PreferredRoom ||
        !room(roomJid, &changed))
        return false;
    changed.classify = classify;
    return write(changed, m_members.value(roomJid));
}

bool RoomBook::forget(const QString &roomJid)
{
    const bool done = m_store->inTransaction([&] {
        return m_store->run(QString::fromLatin1(DeleteMembers), {roomJid}) &&
               m_store->run(QString::fromLatin1(DeleteRoom), {roomJid});
    });
    if (done) {
        m_rooms.remove(roomJid);
        m_members.remove(roomJid);
    }
    return done;
}

bool RoomBook::quit(const QString &roomJid, const QString &jid)
{
    return m_rooms.contains(roomJid) && role(roomJid, jid) != Owner && forget(roomJid);
}

bool RoomBook::dismiss(const QString &roomJid, const QString &jid)
{
    return role(roomJid, jid) == Owner && forget(roomJid);
}

// --- Messages -----------------------------------------------------------------

bool RoomBook::addMessage(const MessageData &message)
{
    QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("messages", MessageColumns));
    RecordSql::bind(&insert, message);
    return m_store->run(&insert);
}

QList<MessageData> RoomBook::messages(const QString &sessionJid, int limit) const
{
    QList<MessageData> list;
    QSqlQuery query = m_store->prepared(RecordSql::selectStatement("messages", MessageColumns) +
                                        QString::fromLatin1(NewestFirst));
    query.addBindValue(sessionJid);
    query.addBindValue(qMax(0, limit));
    if (!m_store->run(&query))
        return list;
    while (query.next()) {
        MessageData message;
        RecordSql::read(query, &message);
        list.append(message);
    }
    std::reverse(list.begin(), list.end());
    return list;
}
