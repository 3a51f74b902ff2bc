// What is asked about people outside the company, recorded.
#pragma once

#include "host/externalcontacts.h"

#include <QStringList>

class FakeExternal : public ExternalContacts
{
    using Text = const QString &;

public:
    QStringList calls; // "external renameGroup(g1, Team)"

    void requestGroups() override { note("requestGroups", {}); }
    void createGroup(Text name) override { note("createGroup", {name}); }
    void renameGroup(Text id, Text name) override { note("renameGroup", {id, name}); }
    void deleteGroup(Text id) override { note("deleteGroup", {id}); }
    void moveContact(Text jid, Text from, Text to) override
    {
        note("moveContact", {jid, from, to});
    }
    void removeContact(Text jid) override { note("removeContact", {jid}); }
    void setRemark(Text jid, Text remark) override { note("setRemark", {jid, remark}); }
    void searchPeople(Text key) override { note("searchPeople", {key}); }
    void add(Text jid, Text text, Text client) override { note("add", {jid, text, client}); }
    void confirm(Text jid, qint32 agree, Text client) override
    {
        note("confirm", {jid, QString::number(agree), client});
    }
    void blacklist(Text jid) override { note("blacklist", {jid}); }

private:
    void note(const char *function, const QStringList &arguments)
    {
        calls.append(QStringLiteral("external %1(%2)")
                         .arg(QLatin1String(function), arguments.join(QLatin1String(", "))));
    }
};
