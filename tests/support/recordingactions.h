// The pane's actions as a test sees them: each call recorded as a text such as
// "openContactDetail u1@corp.example".
#pragma once

#include "plugin/paneactions.h"

#include <QStringList>

// While it lives it is paneActions().
class RecordingActions : public PaneActions
{
    using Text = const QString &;

public:
    RecordingActions() { setPaneActions(this); }

    QStringList calls;
    bool detailOpens = true; // what the functions that open a detail answer

    void hideOfflineInitialised(bool hide) override
    {
        record("hideOfflineInitialised", {text(hide)});
    }
    void locateContact(Text jid) override { record("locateContact", {jid}); }
    void locateGroup(Text groupId) override { record("locateGroup", {groupId}); }
    void locateRoom(Text roomJid) override { record("locateRoom", {roomJid}); }
    void raisePage(Text id) override { record("raisePage", {id}); }
    bool canOpenContactDetail() const override { return detailOpens; }
    bool openContactDetail(Text jid) override
    {
        record("openContactDetail", {jid});
        return detailOpens;
    }
    bool openOwnDetail() override
    {
        record("openOwnDetail", {});
        return detailOpens;
    }
    void showContactCard(Text jid, int x, int y, int width, bool preferLeft) override
    {
        record("showContactCard", {jid, text(x), text(y), text(width), text(preferLeft)});
    }
    void hideContactCard(Text jid) override { record("hideContactCard", {jid}); }
    void addContact(Text jid) override { record("addContact", {jid}); }
    void externalContactAnswer(Text jid, bool success, int code, int action) override
    {
        record("externalContactAnswer", {jid, text(success), text(code), text(action)});
    }
    void locateInOrganisation(Text uid, bool isOrganisation) override
    {
        record("locateInOrganisation", {uid, text(isOrganisation)});
    }
    void virtualTeamEvent(Text type, Text teamId, Text member) override
    {
        record("virtualTeamEvent", {type, teamId, member});
    }
    void locateTeam(Text teamId) override { record("locateTeam", {teamId}); }
    void openServiceNumber(Text code) override { record("openServiceNumber", {code}); }
    void openServiceNumberSearch() override { record("openServiceNumberSearch", {}); }
    void reloadChannels() override { record("reloadChannels", {}); }
    void locateChannel(Text channelId) override { record("locateChannel", {channelId}); }

private:
    static QString text(bool value)
    {
        return value ? QStringLiteral("true") : QStringLiteral("false");
    }
    static QString text(int value) { return QString::number(value); }
    void record(const char *function, const QStringList &arguments)
    {
        calls.append(
            (QStringList{QString::fromLatin1(function)} + arguments).join(QLatin1Char(' ')));
    }
};
