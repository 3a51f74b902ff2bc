// The page of virtual teams: the tree, the search in it, and the pages that stand
// there while it loads, when it failed, and for who has no team.
#pragma once

#include "virtualteam/memberquest.h"
#include "virtualteam/teamrecords.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPair>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QWidget>

class CVirtualTeamTreeView;
class CVirtualTeamWidgetCreat;
class NoTeamPage;
class NoticeLine;
class QStackedWidget;
class SearchBox;
class SkinButton;
class StatePage;
class TeamLoader;
class TeamSearchPage;
class WaitWgt;

class CVirtualTeamPage : public QWidget
{
    Q_OBJECT

public:
    // Loads nothing before it is first shown or asked for a team.
    explicit CVirtualTeamPage(QWidget *parent = nullptr);
    ~CVirtualTeamPage() override;

    CVirtualTeamTreeView *tree() const { return m_tree; }
    // Opens a team and shows its row, as soon as the list is there.
    void locateTeam(const QString &vtId);

signals:
    // One level is wanted.
    void signal_GetMembers(QString vtId, QString pgId);
    // The list as it is now, whenever teams have come, gone or changed their names: for
    // who searches in it.
    void teamsKnown(const QList<CVirtualTeamSimpleInfo> &teams);

public slots:
    void slot_creatVirtualTeam();
    void slot_refreshVirtualTeam();
    void slot_getMyVirtualTeamFinish(bool ok, QList<CVirtualTeamSimpleInfo> teams);
    void slot_getVirtualTeamStructureFinish(bool ok, QString vtId, QString pgId,
                                            QList<CVirtualTeamSimpleInfo> groups,
                                            QList<CVirtualTeamMemberInfo> members);
    void slot_refreshVirtualTeamById(const QString &vtId);
    void slot_expendVirtualTeam(QString vtId);
    void slot_searchTextChanged(const QString &text);
    void slot_getMembers(QString vtId, QString pgId);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Level = QPair<QString, QString>; // team, group

    QWidget *makeHead();
    QWidget *makeListPage();
    void makePages();
    void connectTree();
    void connectSearch();
    void connectHub();
    void start(); // loads for the first time; nothing more after that
    void stop();
    void startAnew();
    void reconnected();
    void reload(bool withLevels);
    void reloadSoon();
    void followTeams();       // brings the others in line with the rows of the tree
    bool isOutOfDate() const; // something shown could not be loaded again
    void showState();
    void showBusy(bool loading);
    void revealWanted();
    void endQuest();
    void leaveSearch();
    void retranslate();

    SearchBox *m_searchBox;
    SkinButton *m_create;
    SkinButton *m_refresh;
    QStackedWidget *m_pages;
    CVirtualTeamTreeView *m_tree;
    TeamLoader *m_loader;
    WaitWgt *m_wait = nullptr;
    NoticeLine *m_notice = nullptr; // below the tree
    StatePage *m_loadingPage = nullptr;
    StatePage *m_failPage = nullptr;
    NoTeamPage *m_emptyPage = nullptr;
    QWidget *m_listPage = nullptr;
    TeamSearchPage *m_searchPage = nullptr;
    QPointer<CVirtualTeamWidgetCreat> m_createDialog;

    QString m_owner; // whose teams they are: a jid
    QString m_searchText;
    bool m_started = false;
    bool m_known = false;  // there is a list
    bool m_failed = false; // the newest one could not be loaded
    QList<CVirtualTeamSimpleInfo> m_told;
    QSet<Level> m_failedLevels;
    QSet<QString> m_dueTeams;     // their open levels are to be loaded again
    QString m_wantedTeam;         // to be shown when the list is there
    MemberQuest m_quest;          // for a member to be shown
    bool m_questFailed = false;   // said so until the user goes on
    QElapsedTimer m_sinceLed;     // from a hit to the tree
    QPointer<QWidget> m_focusDue; // got the focus in place of the button to refresh
    QPointer<QWidget> m_passedOn; // got it in place of the tree
    QTimer m_reloadDue;
    QTimer m_followDue;
};
