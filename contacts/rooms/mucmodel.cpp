#include "contacts/rooms/mucmodel.h"

#include "common/displaytext.h"
#include "contacts/rooms/mucroles.h"

#include <utility>

namespace {
QString countOrNone(const QString &count)
{
    return count.isEmpty() ? QStringLiteral("0") : count;
}

// A room that nobody has named is called by its address.
QString shownName(const MucRow &room)
{
    const QString name = displayText(room.name);
    return name.isEmpty() ? displayText(jidUser(room.jid)) : name;
}

QString spokenText(const MucRow &room)
{
    QString text =
        QString::fromUtf8("%1 (%2人)").arg(shownName(room), displayText(room.memberCount));
    if (room.forbidden)
        text += QLatin1String(", ") + QObject::tr("roomforbidden");
    return text;
}
} // namespace

QVariant MucModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const MucRow &room = at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return shownName(room);
    case Qt::ToolTipRole:
        return toolTipText(room.name);
    case Qt::AccessibleTextRole:
        return spokenText(room);
    case MucRole::Name:
        return room.name;
    case MucRole::HeadPath:
        return room.headPath;
    case MucRole::SortKey:
        return MucRules::sortKey(room.name, room.classify);
    case MucRole::Id:
        return room.jid;
    case MucRole::ShakeOffset:
        return room.shake;
    case MucRole::MemberCount:
        return room.memberCount;
    case MucRole::Forbidden:
        return room.forbidden;
    case MucRole::Classify:
        return int(room.classify);
    default:
        return QVariant();
    }
}

MucModel::Page MucModel::pageOf(const MucRow &room)
{
    return MucRules::isAddressBookRoom(room.classify) ? AddressBookPage : LocalPage;
}

void MucModel::setPage(Page page)
{
    if (m_page == page)
        return;
    m_page = page;
    rebuild();
}

bool MucModel::add(const MucData &room, const QString &headPath)
{
    if (room.roomJid.isEmpty())
        return false;
    MucRow row;
    row.jid = room.roomJid;
    row.name = room.roomName;
    row.memberCount = countOrNone(room.memberCount);
    row.headPath = headPath;
    row.place = MucRules::placeOf(room.roomName, room.classify);
    row.classify = room.classify;
    row.forbidden = room.forbidden;
    const bool inAddressBook = pageOf(row) == AddressBookPage;
    if (!putNew(std::move(row)))
        return false;
    m_addressBookCount += inAddressBook;
    return true;
}

bool MucModel::removeRoom(const QString &jid)
{
    const MucRow *room = find(jid);
    if (!room)
        return false;
    m_addressBookCount -= pageOf(*room) == AddressBookPage;
    return remove(jid);
}

void MucModel::removeAll()
{
    m_addressBookCount = 0;
    clear();
}

bool MucModel::setName(const QString &jid, const QString &name)
{
    const MucRow *room = find(jid);
    if (!room || room->name == name)
        return false;
    return change(jid, [&name](MucRow &row) {
        row.name = name;
        row.place = MucRules::placeOf(name, row.classify);
    });
}

bool MucModel::setClassify(const QString &jid, MucData::MucClassify classify)
{
    const MucRow *room = find(jid);
    if (!room || room->classify == classify)
        return false;
    m_addressBookCount += int(MucRules::isAddressBookRoom(classify)) -
                          int(MucRules::isAddressBookRoom(room->classify));
    return change(jid, [classify](MucRow &row) {
        row.classify = classify;
        row.place = MucRules::placeOf(row.name, classify);
    });
}

template <class Value>
bool MucModel::set(const QString &jid, Value MucRow::*field, const Value &value,
                   const QVector<int> &roles)
{
    const MucRow *room = find(jid);
    if (!room || room->*field == value)
        return false;
    return change(
        jid, [field, &value](MucRow &row) { row.*field = value; }, roles);
}

bool MucModel::setHeadPath(const QString &jid, const QString &path)
{
    return set(jid, &MucRow::headPath, path, {MucRole::HeadPath});
}

bool MucModel::setMemberCount(const QString &jid, const QString &count)
{
    return set(jid, &MucRow::memberCount, countOrNone(count),
               {MucRole::MemberCount, Qt::AccessibleTextRole});
}

bool MucModel::setForbidden(const QString &jid, bool forbidden)
{
    return set(jid, &MucRow::forbidden, forbidden, {MucRole::Forbidden, Qt::AccessibleTextRole});
}

bool MucModel::setShake(const QString &jid, const QPoint &offset)
{
    return set(jid, &MucRow::shake, offset, {MucRole::ShakeOffset});
}
