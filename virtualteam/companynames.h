// What the companies of team members are called. Most services tell a company's code
// alone: names are kept as they are told, and asked for once where nobody has told one.
// They are those of one user: another one who logs in begins anew. GUI thread only.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>

#include <deque>

class CHttpVirtualTeamOperation;

class CompanyNames : public QObject
{
    Q_OBJECT

public:
    static constexpr int AtATime = 3;          // requests
    static constexpr int MostWaiting = 50;     // further codes are looked up when seen again
    static constexpr int RetryAfter = 300'000; // ms, after a request that failed

    static CompanyNames &instance();

    // Of the member's company; empty while it is unknown.
    QString of(const CVirtualTeamMemberInfo &member) const;
    // The same, but nothing for people of the user's own company.
    QString foreign(const CVirtualTeamMemberInfo &member) const;

    // What a service has told: records without code or name tell nothing.
    void learn(const QString &code, const QString &name);
    void learn(const QList<CVirtualTeamMemberInfo> &members);
    // Looks up the companies among these members of a team that have no name yet.
    void find(const QString &vtId, const QList<CVirtualTeamMemberInfo> &members);
    void clear();

signals:
    // Names that were unknown, or others, are known now.
    void learned();

private:
    struct Wish
    {
        QString code, vtId, userId;
    };

    CompanyNames();
    void forgetOtherUser();
    bool isToBeAsked(const QString &code) const;
    void ask();
    void answered(const QString &code, bool ok, const QString &name);

    QString m_owner; // a jid
    QHash<QString, QString> m_names;
    std::deque<Wish> m_waiting;
    QHash<QString, CHttpVirtualTeamOperation *> m_running; // by code
    QHash<QString, QElapsedTimer> m_failed;
};
