// The windows about external contacts, at most one per person.
#pragma once

#include "controls/windowregistry.h"
#include "hostapi/rosterrecords.h"

#include <QObject>
#include <QSet>

class AddExternalFriend;

class AddExternalFrdManager : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaximumOpened = 50; // at a time

    // Made at the first use, when it connects itself to the hub; never destroyed.
    static AddExternalFrdManager *instance();

    // Opens or raises the window for a person, by jid or user id. Tells the user while
    // offline; does nothing for the own jid and an empty one.
    void openDialog(const QString &jid);
    // The same with what is known of the person, such as a hit of the search.
    void openDialog(const SearchFriendResultData &person);

    // The host's answer to a request, or its own initiative; action: 0 request,
    // 1 confirmation, 2 blacklist.
    void externalContactAnswer(const QString &jid, bool ok, int code, int action);

    // Something about the person is being asked of the host from elsewhere: the answer is
    // told when it is a failure, and opens no window.
    void awaitAnswer(const QString &jid);

    // Whether the user has asked the person since logging in, with nothing against it
    // from the service.
    bool isRequested(const QString &jid) const { return m_sent.contains(jid); }

    AddExternalFriend *dialog(const QString &jid) const; // null: not open

signals:
    void requestedChanged(const QString &jid);

public slots:
    void slot_closeDialog(const QString &jid);

private:
    AddExternalFrdManager();

    // The window of the jid, made when there is none; null when there must be none.
    AddExternalFriend *findOrMake(const QString &jid);
    void requestReceived(const QString &jid, const QString &statusText);
    void setRequested(const QString &jid, bool requested);

    WindowRegistry<AddExternalFriend> m_dialogs;
    QSet<QString> m_requested; // jids whose answer has not come yet
    QSet<QString> m_sent;
};
