// What the plug-in asks about people outside the company. The web services know the answer;
// each request is answered by an event, never inside the call.
#pragma once

#include <QString>

class ExternalContacts
{
public:
    virtual ~ExternalContacts() = default;

    // Group ids are the plug-in's: the default group's is "" or "0".
    virtual void requestGroups() = 0;
    virtual void createGroup(const QString &name) = 0;
    virtual void renameGroup(const QString &groupId, const QString &name) = 0;
    virtual void deleteGroup(const QString &groupId) = 0;
    virtual void moveContact(const QString &jid, const QString &oldGroupId,
                             const QString &newGroupId) = 0;
    virtual void removeContact(const QString &jid) = 0;
    virtual void setRemark(const QString &jid, const QString &remark) = 0;
    virtual void searchPeople(const QString &key) = 0;
    virtual void add(const QString &jid, const QString &validation, const QString &client) = 0;
    virtual void confirm(const QString &jid, qint32 agree, const QString &client) = 0;
    virtual void blacklist(const QString &jid) = 0;
};
