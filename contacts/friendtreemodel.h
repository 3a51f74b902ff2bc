// The friend tree's data: groups in a fixed order, each with its contacts sorted
// by presence block and pinyin.
//
// The order is always right when a function returns, by moving single rows to
// the place that a binary search finds; the model is never reset and never sorts
// through the toolkit. While the order is frozen (the pointer is over the list)
// rows keep their place and catch up at the thaw; roles are right at once.
//
// Contacts are known by jid, groups by id. A contact is in exactly one group; one
// whose group is unknown stands in the default group until the group arrives.
#pragma once

#include "contacts/friendtreeroles.h"
#include "contacts/friendtreerows.h"
#include "hostapi/rosterrecords.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QMap>

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

class FriendTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    // `contactKind`: ContactRow for inner, ExternalContactRow for external contacts.
    explicit FriendTreeModel(RowKind contactKind, QObject *parent = nullptr);
    ~FriendTreeModel() override;

    void setOwnJid(const QString &jid);

    // --- Groups ---------------------------------------------------------------
    void mergeGroups(const QList<GroupData> &groups); // adds and renames, removes none
    bool hasGroup(const QString &id) const;
    QString groupName(const QString &id) const;       // null when unknown
    QString groupIdByName(const QString &name) const; // null when unknown
    QList<GroupData> groups() const;                  // in the order of the rows
    bool renameGroup(const QString &id, const QString &name);
    // Contacts that are left in the group move to the default group.
    bool removeGroup(const QString &id);
    // Empty while there is no frequent-contacts group.
    QString frequentGroupId() const { return m_frequentGroupId; }

    // --- Contacts -------------------------------------------------------------
    // Adds, or updates by jid. Records without jid, and those of the other kind, are
    // ignored; who has become one of the other kind is removed.
    void mergeContacts(const QList<FriendData> &contacts);
    bool removeContact(const QString &jid);
    bool moveContact(const QString &jid, const QString &groupId);
    bool hasContact(const QString &jid) const;
    bool contact(const QString &jid, FriendData *out) const;
    QString groupOf(const QString &jid) const; // id of the group that shows it
    // Lets `change` alter a contact's record (not its jid). False when unknown.
    bool changeContact(const QString &jid, const std::function<void(FriendData &)> &change);
    // What the host tells of the person besides the record has changed.
    void profileChanged(const QString &jid);
    int contactCount() const { return int(m_contacts.size()); }
    QStringList contactsOfGroup(const QString &groupId) const; // jids, hidden ones included

    // --- Presence and marks ---------------------------------------------------
    // Contacts that are not in the list yet get theirs when they arrive.
    void setPresence(const QMap<QString, PresenceData> &presence);
    void setAllOffline(); // until the next setPresence()
    // Rows show the constant presence 1 while set; the order is unchanged.
    void setPresenceUnknown(bool unknown);
    void setCooperation(const QMap<QString, bool> &relations);
    void setHideOffline(bool hide);
    bool hidesOffline() const { return m_hideOffline; }
    int onlineCount() const;

    // Rows keep their places while frozen.
    void setOrderFrozen(bool frozen);

    // --- Rows -----------------------------------------------------------------
    QModelIndex contactIndex(const QString &jid) const; // invalid when unknown or hidden
    QModelIndex groupIndex(const QString &id) const;

    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QStringList mimeTypes() const override;

signals:
    // A row was moved below another group's.
    void groupOfContactChanged();

private:
    using Contact = FriendTreeContact;
    using Group = FriendTreeGroup;
    using Rows = FriendTreeRows;
    using Contacts = std::vector<Contact *>;

    // Not noexcept on purpose: the map then keeps the hash with each entry, and
    // does not compute it again for every neighbour that it passes.
    struct JidHash
    {
        size_t operator()(const QString &jid) const { return qHash(jid); }
    };

    Group *group(const QString &id) const;
    Group *addGroup(const QString &id, const QString &name);
    Group *defaultGroup();
    Group *groupFor(const FriendData &record);
    int groupRowFor(const QString &id, const QString &name) const;
    void renumberGroups(int first);
    // Files contacts whose group has arrived after them, and drops the default group
    // that was made for them.
    void adoptStrays();
    void noteBuiltInGroups(const QString &oldName, const QString &newName);

    Contact *find(const QString &jid) const;
    bool isMine(const FriendData &record) const;
    void setUp(Contact *contact, const FriendData &record);
    void applyRecord(Contact *contact, const FriendData &record);
    bool shouldHide(const Contact *contact) const;
    FriendTreePlace placeOf(const Contact *contact) const;
    FriendTreeSort::Block blockOf(const Contact *contact) const;
    void detach(Contact *contact);
    void attach(Contact *contact, Group *group);
    void transfer(Contact *contact, Group *target);
    void arrive(Contact *contact, Group *group); // joins the group's arrivals
    void attachArrivals(Group *group);
    void insertRuns(Group *group, const Rows &sorted);
    // After a change: puts the contact in its place, unless the order is frozen,
    // and announces it.
    void contactUpdated(Contact *contact, bool sameName = false);
    int moveWithin(Contact *contact, const FriendTreePlace &place); // the row it ends in
    void sortGroup(Group *group);
    void presenceChanged(Contact *contact);
    void presenceChanged(Group *group, const Contacts &changed);
    bool changePresence(Contact *contact, const PresenceData &presence);
    PresenceData presenceFor(const QString &jid);
    void hideRows(Group *group);
    void showRows(Group *group);

    QModelIndex indexOf(const Contact *contact) const;
    QModelIndex indexOf(const Group *group) const;
    void contactChanged(const Contact *contact);
    void groupChanged(Group *group);
    void announceChangedGroups();
    QVariant groupData(const Group &group, int role) const;
    QVariant contactData(const Contact &contact, int role) const;
    QString companyOf(const Contact &contact) const;
    QStringList externalTexts(const Contact &contact) const;

    const RowKind m_contactKind;
    QString m_ownJid;
    const Contact *m_ownContact = nullptr;        // the row of m_ownJid, if there is one
    std::vector<std::unique_ptr<Group>> m_groups; // in the order of the rows
    QHash<QString, Group *> m_groupById;
    mutable std::unordered_map<QString, Contact, JidHash> m_contacts;
    QHash<QString, PresenceData> m_presenceOfStrangers;
    std::vector<Group *> m_changedGroups; // whose header is to be announced
    QString m_frequentGroupId;
    QString m_hostDefaultId;        // of the host's group that has the default group's name
    bool m_defaultMadeHere = false; // the default group, since the host had none
    Contacts m_outOfPlace;          // while the order is frozen
    bool m_orderFrozen = false;
    bool m_hideOffline = false;
    bool m_presenceUnknown = false;
    bool m_allOffline = false;
};
