// The user's group chats, of which the rows are those of one page: the address
// book's or the local ones.
#pragma once

#include "contacts/rooms/mucrules.h"
#include "controls/keyedlistmodel.h"

struct MucRow
{
    QString jid;
    QString name; // as it came
    QString memberCount;
    QString headPath;
    MucRules::Place place; // follows name and classify
    MucData::MucClassify classify = MucData::LocalRoom;
    bool forbidden = false;
    QPoint shake;
};

class MucModel : public KeyedListModel<MucRow, MucRules::Place>
{
public:
    enum Page
    {
        LocalPage = 0,
        AddressBookPage = 1
    };

    using KeyedListModel::KeyedListModel;

    QVariant data(const QModelIndex &index, int role) const override;

    Page page() const { return m_page; }
    void setPage(Page page);
    int addressBookCount() const { return m_addressBookCount; }
    int localCount() const { return recordCount() - m_addressBookCount; }
    // The page that a room belongs to.
    static Page pageOf(const MucRow &room);

    // False when the room has no jid or is there already; then nothing changes.
    bool add(const MucData &room, const QString &headPath);
    bool removeRoom(const QString &jid);
    void removeAll();

    // All are false, and change nothing, when the room is unknown or is so already.
    bool setName(const QString &jid, const QString &name);
    bool setClassify(const QString &jid, MucData::MucClassify classify);
    bool setHeadPath(const QString &jid, const QString &path);
    bool setMemberCount(const QString &jid, const QString &count); // empty: "0"
    bool setForbidden(const QString &jid, bool forbidden);
    bool setShake(const QString &jid, const QPoint &offset); // pixels

protected:
    QString keyOf(const MucRow &room) const override { return room.jid; }
    MucRules::Place placeOf(const MucRow &room) const override { return room.place; }
    bool isShown(const MucRow &room) const override { return pageOf(room) == m_page; }

private:
    template <class Value>
    bool set(const QString &jid, Value MucRow::*field, const Value &value,
             const QVector<int> &roles);

    Page m_page = AddressBookPage;
    int m_addressBookCount = 0;
};
