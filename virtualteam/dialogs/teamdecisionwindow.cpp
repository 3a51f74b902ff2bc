#include "virtualteam/dialogs/teamdecisionwindow.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/statepage.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/teamdecisionbody.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"
#include "virtualteam/teamuser.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace {
constexpr int WindowWidth = 420; // device-independent pixels
constexpr int WindowHeight = 560;
} // namespace

TeamDecisionWindow::TeamDecisionWindow(const QString &vtId, const char *personKey,
                                       DetailSignal detail, DecisionSignal decision)
    : m_vtId(vtId),
      m_detailSignal(detail),
      m_decisionSignal(decision),
      m_pages(new QStackedWidget(this)),
      m_loading(DialogParts::loadingPage(this)),
      m_failed(DialogParts::failedPage("loadErrorAndCrazyRetry", this)),
      m_body(new TeamDecisionBody(personKey, this))
{
    m_pages->setObjectName(QStringLiteral("decisionPages"));
    m_loading->setObjectName(QStringLiteral("loadingPage"));
    m_failed->setObjectName(QStringLiteral("failedPage"));
    m_body->setObjectName(QStringLiteral("decisionPage"));
    for (QWidget *page :
         {m_loading, static_cast<QWidget *>(m_failed), static_cast<QWidget *>(m_body)})
        m_pages->addWidget(page);
    bodyLayout()->addWidget(m_pages, 1);
    setFixedSize(WindowWidth, WindowHeight);

    m_failed->installEventFilter(this);
    connect(m_failed, &StatePage::buttonClicked, this, &TeamDecisionWindow::retry);
    connect(m_body, &TeamDecisionBody::decided, this, &TeamDecisionWindow::decide);
    connect(this, &BaseDialog::closed, this, [this] { m_isClosed = true; });
    whenUserLeaves(this, [this] { reject(); });
    using Hub = FriendUISignalSender;
    // Somebody else may have decided.
    connect(Hub::instance(), &Hub::signal_refresh_virtualTeam, this,
            [this](const QString &changed) {
                if (changed != m_vtId)
                    return;
                m_isOutdated = true;
                followTeam();
            });
}

// --- The detail --------------------------------------------------------------------

void TeamDecisionWindow::load()
{
    m_pages->setCurrentWidget(m_loading);
    request();
}

void TeamDecisionWindow::retry()
{
    if (TeamMessages::mayRequest(this))
        load();
}

// News come by the thousand: they are one request, and one more for those that came
// while it ran.
void TeamDecisionWindow::followTeam()
{
    if (m_isOutdated && m_isShown && !m_request && !m_deciding && m_body->isOpen() && isOnline())
        request();
}

void TeamDecisionWindow::request()
{
    m_isOutdated = false;
    m_request = new CHttpVirtualTeamOperation(this);
    connect(m_request, m_detailSignal, this,
            [this, operation = m_request](bool ok, const CVirtualTeamInfo &info) {
                if (operation != m_request)
                    return;
                m_request = nullptr;
                detailArrived(ok, operation->resultCode(), info);
                followTeam();
            });
    requestDetail(m_request);
}

void TeamDecisionWindow::detailArrived(bool ok, int code, const CVirtualTeamInfo &info)
{
    if (!ok) {
        LOG_ERROR("the detail of team " << logText(m_vtId) << " could not be loaded");
        // What is shown already stays.
        if (m_isShown) {
            if (code == TeamCode::Unknown && m_body->isOpen())
                m_body->setOutcome(TeamDecisionBody::Gone);
        } else {
            m_pages->setCurrentWidget(m_failed);
            m_failed->findChild<QPushButton *>()->setFocus();
        }
        return;
    }
    m_body->setInfo(info);
    m_isShown = true;
    m_pages->setCurrentWidget(m_body);
    detailShown(info);
}

// The sentence on the page says that a click leads on, not where.
bool TeamDecisionWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_failed && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        retry();
        return true;
    }
    return BaseDialog::eventFilter(watched, event);
}

// Neither button may be what an unlucky Enter presses.
void TeamDecisionWindow::showEvent(QShowEvent *event)
{
    BaseDialog::showEvent(event);
    if (!event->spontaneous())
        setFocus();
}

// --- The decision ------------------------------------------------------------------

void TeamDecisionWindow::decide(bool agree)
{
    if (m_deciding || m_isClosed || !m_body->isOpen() || !TeamMessages::mayRequest(this))
        return;
    m_deciding = true;
    m_body->setDeciding(true);
    // It outlives the window; what comes after it is for the same user only.
    auto *operation = new CHttpVirtualTeamOperation;
    const QPointer<TeamDecisionWindow> window(this);
    const QString user = ctx().userId();
    connect(operation, m_decisionSignal, operation,
            [window, operation, user](bool ok, const QString &vtId, bool agreed, bool) {
                const int code = operation->resultCode();
                if (window && !window->m_isClosed)
                    window->decided(ok, agreed, code);
                if (ctx().userId() != user)
                    return;
                if (ok && agreed)
                    emit FriendUISignalSender::instance()->signal_refresh_virtualTeam(vtId);
                if (!ok && (!window || window->m_isClosed))
                    TipBox::tell(nullptr, TeamMessages::failed());
            });
    sendDecision(operation, agree);
}

void TeamDecisionWindow::decided(bool ok, bool agreed, int code)
{
    m_deciding = false;
    m_body->setDeciding(false);
    if (ok) {
        m_body->setOutcome(agreed ? TeamDecisionBody::Agreed : TeamDecisionBody::Refused);
        return;
    }
    LOG_ERROR("the decision about team " << logText(m_vtId)
                                         << " has failed, nCode:" << QString::number(code));
    if (code == TeamCode::Blocked) {
        m_body->setOutcome(TeamDecisionBody::Decided);
        request(); // for what else has changed
        return;
    }
    if (code == TeamCode::Unknown)
        m_body->setOutcome(TeamDecisionBody::Gone);
    else
        TeamMessages::tell(this, TeamMessages::failed());
    followTeam();
}
