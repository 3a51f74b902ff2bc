#include "contacts/assembly.h"

#include "ExternalFriend/addexternalfrdmanager.h"
#include "ExternalFriend/externalfriendwidget.h"
#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "common/logging.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/friendtreewidget.h"
#include "contacts/friendwidget.h"
#include "contacts/localdata.h"
#include "contacts/rooms/mucwidget.h"
#include "detail/caddfriendmannger.h"
#include "detail/cdetailviewmanager.h"
#include "detail/csignmanager.h"
#include "http/fileservices.h"
#include "http/httpmgr.h"
#include "org/orgwidget.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduimessageprocess.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"
#include "servicenum/ccustomerserverpage.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/cservicenumsearch.h"
#include "servicenum/customerchannels.h"
#include "servicenum/servicenumbers.h"
#include "virtualteam/cvirtualapplymannger.h"
#include "virtualteam/cvirtualteaminfomanager.h"
#include "virtualteam/cvirtualteampage.h"

namespace {

// The pages and windows of features that are not part of this build are empty:
// their actions raise the page, if it has one, and leave a line in the log.
class Actions : public PaneActions
{
public:
    void hideOfflineInitialised(bool hide) override
    {
        FriendWidget *widget = pane();
        if (!widget)
            return;
        widget->friendTree()->slot_inithidealloffline(hide);
        if (widget->hasExternalPage())
            widget->externalPage()->slot_inithidealloffline(hide);
    }
    void locateContact(const QString &jid) override
    {
        FriendWidget *widget = pane();
        if (!widget)
            return;
        ContactTreePage *tree = widget->friendTree();
        QString page = QStringLiteral("friends");
        if (isExternal(jid) && widget->externalPage()) {
            tree = widget->externalPage();
            page = QStringLiteral("outsidefrd");
        }
        widget->raisePage(page);
        if (!tree->locate(jid))
            LOG_DEBUG("there is no row of " << logText(jid));
    }
    void locateGroup(const QString &groupId) override
    {
        FriendWidget *widget = pane();
        if (!widget)
            return;
        widget->raisePage(QStringLiteral("friends"));
        FriendTreeWidget *tree = widget->friendTree();
        const QModelIndex group = tree->model()->groupIndex(groupId);
        if (group.isValid())
            tree->view()->reveal(group);
        else
            LOG_DEBUG("there is no group " << logText(groupId));
    }
    void locateRoom(const QString &roomJid) override
    {
        FriendWidget *widget = pane();
        if (!widget || !widget->raisePage(QStringLiteral("groupChat")))
            return;
        if (!widget->rooms()->locateRoom(roomJid))
            LOG_DEBUG("there is no room " << logText(roomJid));
    }
    void raisePage(const QString &id) override
    {
        FriendWidget *widget = pane();
        if (widget && !widget->raisePage(id))
            LOG_DEBUG("there is no page " << logText(id));
    }

    bool canOpenContactDetail() const override
    {
        return ctx().hasRight(ApplicationContext::Detail);
    }
    bool openContactDetail(const QString &jid) override
    {
        if (jid.isEmpty() || !canOpenContactDetail())
            return false;
        CDetailViewManager::instance()->openDialogByJid(jid);
        return true;
    }
    bool openOwnDetail() override
    {
        const QString own = ctx().ownJid();
        CDetailViewManager::instance()->openDialogByJid(own);
        return !own.isEmpty();
    }
    void showContactCard(const QString &jid, int x, int y, int width, bool preferLeft) override
    {
        CSignManager::instance()->showCard(jid, x, y, width, preferLeft);
    }
    void hideContactCard(const QString &jid) override { CSignManager::instance()->hideCard(jid); }

    bool mayAddContact(const QString &jid) const override
    {
        return CAddFriendMannger::instance()->mayAddContact(jid);
    }
    void addContact(const QString &jid) override
    {
        if (isExternal(makeJid(jid)))
            AddExternalFrdManager::instance()->openDialog(jid);
        else
            CAddFriendMannger::instance()->openDialog(jid);
    }
    void externalContactAnswer(const QString &jid, bool success, int code, int action) override
    {
        AddExternalFrdManager::instance()->externalContactAnswer(jid, success, code, action);
    }

    void locateInOrganisation(const QString &uid, bool isOrganisation) override
    {
        FriendWidget *widget = pane();
        OrgWidget *page = widget ? widget->orgPage() : nullptr;
        if (!page) {
            LOG_DEBUG("there is no organisation to show " << logText(uid) << " in");
            return;
        }
        widget->raisePage(QStringLiteral("organizationTree"));
        if (isOrganisation)
            page->locateDepartment(uid);
        else
            emit page->signal_orgPosition(uid);
    }
    void virtualTeamEvent(const QString &type, const QString &teamId,
                          const QString &member) override
    {
        if (type == QLatin1String("audit"))
            CVirtualApplyMannger::instance()->showVirtualApply(teamId, member);
        else
            CVirtualTeamInfoManager::instance()->showVirtualTeamInfo(teamId, member);
    }
    void locateTeam(const QString &teamId) override
    {
        FriendWidget *widget = pane();
        if (!widget || !widget->raisePage(QStringLiteral("virtureteam"))) {
            LOG_DEBUG("there is no page for team " << logText(teamId));
            return;
        }
        widget->teamPage()->locateTeam(teamId);
    }
    void openServiceNumber(const QString &code) override
    {
        CServiceNumInfoManager::instance()->showServiceNumInfo(code);
    }
    void openServiceNumberSearch() override
    {
        if (!ctx().hasRight(ApplicationContext::ServiceNo)) {
            LOG_DEBUG("the user has no service numbers to search");
            return;
        }
        raisePage(QStringLiteral("serviceNumbers"));
        CServiceNumSearch::showSearch();
    }
    void reloadChannels() override
    {
        FriendWidget *widget = pane();
        if (widget && widget->raisePage(QStringLiteral("customer")))
            widget->channels()->reload();
    }
    void locateChannel(const QString &channelId) override
    {
        FriendWidget *widget = pane();
        if (!widget || !widget->raisePage(QStringLiteral("customer")))
            return;
        if (!widget->channels()->locateChannel(channelId))
            LOG_DEBUG("there is no channel " << logText(channelId));
    }

private:
    static FriendWidget *pane()
    {
        FriendUIMessageProcess *hub = FriendUIMessageProcess::instance();
        return hub->hasPane() ? qobject_cast<FriendWidget *>(hub->getFriendWidget()) : nullptr;
    }
    static void missing(const char *feature, const QString &what)
    {
        LOG_DEBUG("not in this build: " << feature << " " << logText(what));
    }
};

// What belongs to no page. Once in a process.
bool connectHub(PaneActions *actions)
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    QObject::connect(hub, &Hub::signal_openLeaderDetail,
                     [actions](const QString &jid) { actions->openContactDetail(jid); });
    // Pictures that are still being fetched are the business of who has logged out.
    QObject::connect(hub, &Hub::signal_logout, [] { PictureFiles::instance().stop(); });
    // The service knows best which conversations are muted.
    QObject::connect(hub, &Hub::signal_login, [] {
        if (isOnline())
            HttpMgr::instance()->loadClientSettings();
    });
    QObject::connect(hub, &Hub::signal_isConnected, [](bool connected) {
        if (connected && !ctx().userId().isEmpty())
            HttpMgr::instance()->loadClientSettings();
    });
    return true;
}

} // namespace

void assemblePane()
{
    static auto *actions = new Actions;
    setPaneActions(actions);
    CAddFriendMannger::instance(); // the host's events may ask for a window
    AddExternalFrdManager::instance();
    CustomerChannels::instance(); // they are delivered before their page is shown
    ServiceNumbers::instance();   // and these
    [[maybe_unused]] static const bool connected = connectHub(actions);
    startLocalData();
    FriendUIMessageProcess::instance()->setPaneFactory(
        []() -> QWidget * { return new FriendWidget; });
}
