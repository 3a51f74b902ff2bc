// Keeps the search index in step with what the pane hears: contacts, groups, rooms,
// the organisation, profiles, service numbers, channels. Large batches are taken in
// by and by, so that the window never waits for them.
#pragma once

#include "contacts/search/searchindex.h"
#include "hostapi/hostrecords.h"
#include "http/orgrecords.h"

#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>

class SearchSources : public QObject
{
    Q_OBJECT

public:
    static constexpr int SliceTime = 4; // ms, after which other events have their turn

    // What was loaded of the organisation before; not owned, may be null. Takes in
    // nothing before start().
    explicit SearchSources(const OrgElementMap *organisation, QObject *parent = nullptr);

    SearchIndex &index() { return m_index; }
    // Further calls change nothing.
    void start();
    // The user's teams: nobody but their page knows them. Others go.
    void setTeams(const QVector<SearchEntry> &teams);
    // Whether something that was heard of is not in the index yet.
    bool isBusy() const { return !m_tasks.empty(); }

signals:
    // The index has changed; told a few times a second at most.
    void changed();
    // Somebody else has logged in: what was found before is none of this user's.
    void cleared();

private:
    void connectHub();
    void connectServices();
    void load(); // what host and organisation know already
    void loggedIn();

    void putContact(const FriendData &contact);
    void removeContact(const QString &jid);
    void putElement(const OrgElement &element);
    void putProfile(const QString &jid, const VcardInfo &profile);
    void remove(SearchEntry::Kind kind, const QString &id);

    // Lets `take` have each of the items in turn, after all that came before.
    template <class List, class Take> void enqueue(const List &items, const Take &take);
    void enqueueOne(const std::function<void()> &take);
    void runSlice();
    void announce();

    SearchIndex m_index;
    const OrgElementMap *m_organisation;
    QStringList m_teams; // in the index, by their ids
    QString m_owner;     // whose data it is: a jid
    QString m_company;   // whose organisation m_organisation is; empty: not known yet
    // Each does a part of its work and returns true when there is none left.
    std::deque<std::function<bool()>> m_tasks;
    QTimer m_nextSlice;
    QTimer m_announcement;
    bool m_started = false;
};
