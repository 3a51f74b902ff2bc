// What a user can do with contacts and groups, whether by menu, key or drag: asks
// where it must, and sends the request to the host. Nothing changes here before
// the host answers.
#pragma once

#include <QObject>
#include <QStringList>

class FriendTreeModel;
class QWidget;

class FriendCommands : public QObject
{
    Q_OBJECT

public:
    // `inner` tells the roster's tree from that of the external contacts; `view`
    // is the parent of every dialog.
    FriendCommands(FriendTreeModel *model, bool inner, QWidget *view);

    void createGroup();
    void renameGroup(const QString &groupId);
    void deleteGroup(const QString &groupId);
    void refreshGroups();

    // Chat, remark and deletion are for others: the own jid is left alone.
    void openChat(const QString &jid);
    void openHistory(const QString &jid);
    void viewDetail(const QString &jid);
    void changeRemark(const QString &jid);
    void deleteContact(const QString &jid);
    // One question for all of them; the own row is left out.
    void deleteContacts(const QStringList &jids);
    // External contacts only.
    void blacklist(const QString &jid);
    // Contacts that are in the group already stay; the own row never moves.
    void moveContacts(const QStringList &jids, const QString &groupId);

    // All leave the own jid out, and do nothing without another.
    void createGroupChat(const QStringList &jids);
    void sendFile(const QStringList &jids);
    void writeMail(const QStringList &jids);

    // Whether the group may be renamed and deleted.
    bool isGroupEditable(const QString &groupId) const;

    // A creation was answered; whether it was asked for here.
    bool groupCreated(const QString &name) { return m_askedFor.removeOne(name); }

signals:
    void blacklisting(const QString &jid); // the request is about to be sent

private:
    QStringList groupNames() const;
    QString refusal(const QString &name) const;

    FriendTreeModel *m_model;
    const bool m_inner;
    QWidget *m_view;
    QStringList m_askedFor; // names of groups whose creation is under way
};
