// The page of virtual teams on screen, with a server that knows teams, their levels and
// who is found in them.
#pragma once

#include "controls/searchbox.h"
#include "controls/skinbutton.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/logcapture.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/cvirtualteampage.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamsearchmodel.h"
#include "virtualteam/teamtreemodel.h"
#include "virtualteam/virtualteamsearchresultlistview.h"

#include <QApplication>
#include <QMap>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QUrl>

#include <functional>
#include <memory>

class TeamPageFixture : public TeamService
{
public:
    explicit TeamPageFixture(const QStringList &teamIds = {})
    {
        setTeams(teamIds);
        server.replyElsewhere([this](const FakeRequest &request) { return answerTo(request); });
        make();
    }

    // A new page, not shown yet.
    void make()
    {
        page = std::make_unique<CVirtualTeamPage>();
        page->resize(280, 500);
        pages = page->findChild<QStackedWidget *>();
        box = page->findChild<SearchBox *>();
        list = page->findChild<VirtualTeamSearchResultListView *>();
        refresh = button("refreshTeamButton");
        create = button("createTeamButton");
        model = page->tree()->teams();
    }
    void show() const
    {
        page->show();
        page->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(page.get()));
    }
    // Shown, with the teams that the server has.
    void load() const
    {
        show();
        QTRY_COMPARE(shown(), QStringLiteral("VirtualTeamListPage"));
    }

    // --- What the server knows --------------------------------------------------------
    // Named "Team 1" and so on; an id may be any text.
    void setTeams(const QStringList &ids) { m_teams = ids; }
    static QByteArray member(const QString &id, const QString &more = QString())
    {
        return QStringLiteral(R"({"userId":"%1","nickName":"nick %1"%2})").arg(id, more).toUtf8();
    }
    void setHits(const QString &team, const QByteArrayList &members) { m_hits[team] = members; }
    void setMembers(const QString &team, const QByteArrayList &members)
    {
        m_members[team] = members;
    }
    // Fills in the reply and returns true where a request is not to be answered as usual.
    using Special = std::function<bool(const FakeRequest &, FakeReply *)>;
    void setSpecial(const Special &special) { m_special = special; }
    // All further replies of the service wait for server.release().
    void hold(const char *name)
    {
        setSpecial([this, name](const FakeRequest &request, FakeReply *answer) {
            if (request.path != path(name))
                return false;
            *answer = usual(request).onRelease();
            return true;
        });
    }
    void fail(const char *name)
    {
        setSpecial([name](const FakeRequest &request, FakeReply *answer) {
            *answer = FakeReply::of(500);
            return request.path == path(name);
        });
    }
    void failNothing() { m_special = nullptr; }
    static QString value(const FakeRequest &request, const char *name)
    {
        for (const QByteArray &part : request.body.split('&')) {
            if (part.startsWith(QByteArray(name) + '='))
                return QUrl::fromPercentEncoding(part.mid(part.indexOf('=') + 1));
        }
        return QString();
    }
    // The values of a parameter in all requests of a service, in their order.
    QStringList asked(const char *service, const char *name) const
    {
        QStringList values;
        for (const FakeRequest &request : server.requests()) {
            if (request.path == path(service))
                values.append(value(request, name));
        }
        return values;
    }
    int lists() const { return count("getAllVirtualTeam"); }
    int levels() const { return count("getVirtualTeamGroup"); }
    int searches() const { return count("fuzzySearchVirtualTeamMember"); }

    // --- What is seen -------------------------------------------------------------------
    QString shown() const { return pages->currentWidget()->objectName(); }
    SkinButton *button(const char *name) const
    {
        return page->findChild<SkinButton *>(QLatin1String(name));
    }
    // Of the texts and buttons in sight, the one with the name; null when it is hidden.
    template <class Widget> Widget *visible(const char *name) const
    {
        for (Widget *widget : page->findChildren<Widget *>(QLatin1String(name))) {
            if (widget->isVisible())
                return widget;
        }
        return nullptr;
    }
    QString hits() const // "user/team" of each row
    {
        QStringList rows;
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            const TeamHit &hit = static_cast<const TeamSearchModel *>(list->model())->at(row);
            rows.append(hit.member.userId + QLatin1Char('/') + hit.vtId);
        }
        return rows.join(QLatin1Char(' '));
    }
    static FriendUISignalSender *hub() { return FriendUISignalSender::instance(); }
    void setOnline(bool online)
    {
        TeamService::setOnline(online);
        emit hub()->signal_isConnected(online);
    }

    std::unique_ptr<CVirtualTeamPage> page;
    QStackedWidget *pages = nullptr; // of the page, as all below
    SearchBox *box = nullptr;
    VirtualTeamSearchResultListView *list = nullptr;
    SkinButton *refresh = nullptr;
    SkinButton *create = nullptr;
    TeamTreeModel *model = nullptr;

private:
    FakeReply answerTo(const FakeRequest &request)
    {
        FakeReply answer;
        return m_special && m_special(request, &answer) ? answer : usual(request);
    }
    FakeReply usual(const FakeRequest &request) const
    {
        const QString team = value(request, "vtId");
        if (request.path == path("getAllVirtualTeam")) {
            QByteArrayList teams;
            for (const QString &id : m_teams)
                teams.append(
                    QStringLiteral(R"({"vtId":"%1","vtName":"Team %1","role":2,"count":3})")
                        .arg(id)
                        .toUtf8());
            return reply(R"({"vt":[)" + teams.join(',') + "]}");
        }
        if (request.path == path("getVirtualTeamGroup"))
            return reply(R"({"group":[],"members":[)" + m_members.value(team).join(',') + "]}");
        if (request.path == path("fuzzySearchVirtualTeamMember"))
            return reply(R"({"members":[)" + m_hits.value(team).join(',') + "]}");
        return reply("{}");
    }

    QStringList m_teams;
    QMap<QString, QByteArrayList> m_members, m_hits;
    Special m_special;
};
