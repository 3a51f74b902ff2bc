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
const char ReadMembers[] = "SELECT roomJid,jid,name,role FROM roommembers ORDER BY rowid";
const char InsertMember[] = "INSERT INTO roommembers(roomJid,jid,name,role) VALUES(?,?,?,?)";
const char DeleteMembers[] = "DELETE FROM roommembers WHERE roomJid=?";
const char DeleteRoom[] = "DELETE FROM rooms WHERE roomJid=?";

const QString RoomCounter = QStringLiteral("room");
const QString SeededKey = QStringLiteral("roomsSeeded");

enum Role
{
    Member = 0,
    Manager = 1,
    Owner = 2
};

int placeOf(const QList<MucMemberData> &members, const QString &jid)
{
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const MucMemberData &member) { return member.jid == jid; });
    return found == members.end() ? -1 : int(found - members.begin());
}
} // namespace

RoomBook::RoomBook(CoreStore *store, const SampleRoster *sample) : m_store(store), m_sample(sample)
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
        int owner;   // position of the owner among the members; 0 is the own user
        int manager; // of a manager; -1: there is none
        bool forbidden;
        bool listed;
    } rooms[] = {
        {"项目组周会", MucData::PreferredRoom, 12, 0, 4, false, true},
        {"Release train", MucData::PreferredRoom, 8, 3, 0, false, true},
        {"研发中心", MucData::AddressBookRoom, 40, 1, 5, false, true},
        {"午饭去哪儿吃", MucData::LocalRoom, 6, 2, -1, false, true},
        {"公司通知", MucData::AddressBookRoom, 60, 4, 6, true, true},
        {"Support & Sales <handover>", MucData::LocalRoom, 5, 0, 2, false, true},
        {"新员工培训", MucData::AddressBookRoom, 24, 0, -1, false, true},
        {"羽毛球俱乐部", MucData::AddressBookRoom, 18, 2, 0, false, true},
        {"Zeta 客户项目", MucData::PreferredRoom, 9, 1, -1, false, true},
        {"年会节目组", MucData::LocalRoom, 7, 3, 0, false, true},
        {"拼车回家", MucData::LocalRoom, 4, 1, -1, false, false},
    };
    int next = 1;
    for (const auto &entry : rooms) {
        QList<MucMemberData> members;
        const int people = m_sample->company().people();
        for (int i = 0; i < qMin(entry.size, people); ++i) {
            const SamplePerson person = m_sample->mate(i == 0 ? 0 : next);
            if (i > 0)
                next = next % qMax(1, people - 1) + 1;
            members.append({person.uid + QLatin1Char('@') + SampleCompany::domain(), person.name,
                            i == entry.manager ? Manager : Member});
        }
        if (members.size() < 2)
            continue;
        members.move(qMin(entry.owner, members.size() - 1), 0);
        MucData room;
        if (!create(QString::fromUtf8(entry.name), members, &room))
            return false;
        room.classify = entry.classify;
        room.forbidden = entry.forbidden;
        room.localExist = entry.listed;
        if (!write(room, m_members.value(room.roomJid)))
            return false;
    }
    return m_store->setMeta(SeededKey, QStringLiteral("1"));
}

QList<MucData> RoomBook::rooms() const
{
    QList<MucData> listed;
    for (const MucData &room : m_rooms) {
        if (room.localExist)
            listed.append(room);
    }
    return listed;
}

bool RoomBook::room(const QString &jid, MucData *out) const
{
    const auto found = m_rooms.constFind(jid);
    if (found == m_rooms.constEnd())
        return false;
    *out = *found;
    return true;
}

bool RoomBook::isMember(const QString &roomJid, const QString &jid) const
{
    return placeOf(m_members.value(roomJid), jid) >= 0;
}

int RoomBook::role(const QString &roomJid, const QString &jid) const
{
    const QList<MucMemberData> list = m_members.value(roomJid);
    const int place = placeOf(list, jid);
    return place < 0 ? int(Member) : list.at(place).role;
}

// --- Changing -----------------------------------------------------------------

bool RoomBook::write(const MucData &room, const QList<MucMemberData> &members)
{
    MucData stored = room;
    stored.memberCount = QString::number(members.size());
    stored.managerJid.clear();
    for (const MucMemberData &member : members) {
        if (member.role == Owner)
            stored.ownerJid = member.jid;
        else if (member.role == Manager && stored.managerJid.isEmpty())
            stored.managerJid = member.jid;
    }
    const bool done = m_store->inTransaction([&] {
        QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("rooms", RoomColumns));
        RecordSql::bind(&insert, stored);
        if (!m_store->run(&insert) ||
            !m_store->run(QString::fromLatin1(DeleteMembers), {stored.roomJid}))
            return false;
        QSqlQuery insertMember = m_store->prepared(QString::fromLatin1(InsertMember));
        for (const MucMemberData &member : members) {
            insertMember.addBindValue(stored.roomJid);
            RecordSql::bind(&insertMember, member);
            if (!m_store->run(&insertMember))
                return false;
        }
        return true;
    });
    if (!done)
        return false;
    m_rooms.insert(stored.roomJid, stored);
    m_members.insert(stored.roomJid, members);
    return true;
}

template <class Change> bool RoomBook::edit(const QString &roomJid, Change change)
{
    MucData changed;
    QList<MucMemberData> members = m_members.value(roomJid);
    return room(roomJid, &changed) && change(&changed, &members) && write(changed, members);
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
    room.createTime = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    room.version = QStringLiteral("1");
    room.companyCode = m_sample->own().companyCode;
    return write(room, seats) && this->room(room.roomJid, out);
}

bool RoomBook::rename(const QString &roomJid, const QString &jid, const QString &subject)
{
    return edit(roomJid, [&](MucData *room, QList<MucMemberData> *) {
        room->roomName = subject.trimmed();
        return !room->roomName.isEmpty() && role(roomJid, jid) != Member;
    });
}

bool RoomBook::classify(const QString &roomJid, MucData::MucClassify classify)
{
    return edit(roomJid, [&](MucData *room, QList<MucMemberData> *) {
        room->classify = classify;
        return classify >= MucData::LocalRoom && classify <= MucData::PreferredRoom;
    });
}

bool RoomBook::addMembers(const QString &roomJid, const QString &by,
                          const QList<MucMemberData> &members)
{
    return edit(roomJid, [&](MucData *, QList<MucMemberData> *present) {
        const int before = present->size();
        for (const MucMemberData &member : members) {
            if (placeOf(*present, member.jid) < 0)
                present->append({member.jid, member.name, Member});
        }
        return isMember(roomJid, by) && present->size() > before;
    });
}

bool RoomBook::removeMember(const QString &roomJid, const QString &by, const QString &jid)
{
    return edit(roomJid, [&](MucData *, QList<MucMemberData> *present) {
        const int place = placeOf(*present, jid);
        if (place < 0 || role(roomJid, by) <= present->at(place).role)
            return false;
        present->removeAt(place);
        return true;
    });
}

bool RoomBook::setManager(const QString &roomJid, const QString &by, const QString &jid,
                          bool manager)
{
    return edit(roomJid, [&](MucData *, QList<MucMemberData> *present) {
        const int place = placeOf(*present, jid);
        const int wanted = manager ? Manager : Member;
        if (place < 0 || present->at(place).role == Owner || present->at(place).role == wanted)
            return false;
        (*present)[place].role = wanted;
        return role(roomJid, by) == Owner;
    });
}

bool RoomBook::handOver(const QString &roomJid, const QString &by, const QString &jid)
{
    return edit(roomJid, [&](MucData *, QList<MucMemberData> *present) {
        const int from = placeOf(*present, by), to = placeOf(*present, jid);
        if (from < 0 || to < 0 || from == to || present->at(from).role != Owner)
            return false;
        (*present)[from].role = Member;
        (*present)[to].role = Owner;
        return true;
    });
}

bool RoomBook::setForbidden(const QString &roomJid, bool forbidden)
{
    return edit(roomJid, [&](MucData *room, QList<MucMemberData> *) {
        room->forbidden = forbidden;
        return true;
    });
}

bool RoomBook::setHead(const QString &roomJid, const QString &imagePath)
{
    return edit(roomJid, [&](MucData *room, QList<MucMemberData> *) {
        room->headImage = imagePath;
        return true;
    });
}

bool RoomBook::setListed(const QString &roomJid, bool listed)
{
    return edit(roomJid, [&](MucData *room, QList<MucMemberData> *) {
        room->localExist = listed;
        return true;
    });
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
