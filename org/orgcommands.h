// What a user can do with the people of the organisation, whether by menu, key or
// double click: refuses what cannot be, and hands the rest to the host or to
// another part of the pane.
#pragma once

#include "http/orgrecords.h"

#include <QObject>
#include <QStringList>

class QWidget;

class OrgCommands : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaximumRecipients = 50; // of one mail

    // `view` is the parent of every box.
    explicit OrgCommands(QWidget *view);

    // People are named by their user ids; the own one is left out where an action
    // is about others.
    void openChat(const QString &uid);
    void openHistory(const QString &uid);
    void viewDetail(const QString &uid);
    void sendFile(const QString &uid);
    void writeMail(const QStringList &uids);
    void createGroupChat(const QStringList &uids);

    // Begins the flow that adds one person.
    void addContact(const QString &uid);
    // False, and the user was told, when nobody can be added now.
    bool mayAddContacts();
    // Adds all of them who are no contacts yet, or tells why not.
    void addContacts(const OrgElementList &people);

private:
    void refuse(const char *key);

    QWidget *m_view;
};
