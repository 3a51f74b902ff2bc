#include "virtualteam/dialogs/csetadministrator.h"

#include "common/logging.h"
#include "controls/searchbox.h"
#include "controls/statepage.h"
#include "controls/tipbox.h"
#include "virtualteam/companynames.h"
#include "virtualteam/dialogs/dialogbar.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/memberchoicemodel.h"
#include "virtualteam/dialogs/setadiministratorlistview.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"

#include <QEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

CSetAdministrator::CSetAdministrator(const CVirtualTeamSimpleInfo &team, QWidget *parent)
    : BaseDialog(parent),
      m_team(team),
      m_filter(new SearchBox(this, "inputNameIDTel")),
      m_list(new SetAdiministratorListView(this)),
      m_loading(DialogParts::loadingPage(this)),
      m_failed(DialogParts::failedPage(TeamMessages::MembersFailed, this)),
      m_empty(DialogParts::emptyPage(TeamMessages::NoMembers, this)),
      m_nothing(DialogParts::emptyPage("searchNothing", this)),
      m_pages(new QStackedLayout),
      m_bar(new DialogBar(this))
{
    setObjectName(QStringLiteral("CSetAdministrator"));
    setTitleKey("setAdmin");
    build();
    connectFilter();
    connect(m_failed, &StatePage::buttonClicked, this, &CSetAdministrator::load);
    connect(m_list, &SetAdiministratorListView::checkedChanged, this,
            &CSetAdministrator::updateChoice);
    connect(m_bar, &DialogBar::sure, this, &CSetAdministrator::sure);
    connect(m_bar, &DialogBar::cancelled, this, &QDialog::reject);
    load();
}

void CSetAdministrator::build()
{
    m_list->setMinimumSize(DialogParts::ListWidth, DialogParts::ListHeight);
    m_failed->setObjectName(QStringLiteral("loadFailed"));
    m_empty->setObjectName(QStringLiteral("nobody"));
    for (QWidget *page : {static_cast<QWidget *>(m_list), static_cast<QWidget *>(m_loading),
                          static_cast<QWidget *>(m_failed), static_cast<QWidget *>(m_empty),
                          static_cast<QWidget *>(m_nothing)})
        m_pages->addWidget(page);
    bodyLayout()->addLayout(DialogParts::searchLine(m_filter, this));
    bodyLayout()->addLayout(m_pages, 1);
    bodyLayout()->addWidget(m_bar);
    m_filter->setFocus();
}

void CSetAdministrator::connectFilter()
{
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_list->setFilter(text);
        showPage();
    });
    const auto enterList = [this] {
        if (m_pages->currentWidget() != m_list)
            return;
        m_list->setFocus(Qt::OtherFocusReason);
        if (!m_list->currentIndex().isValid())
            m_list->reveal(m_list->model()->index(0, 0));
    };
    connect(m_filter, &SearchBox::downPressed, this, enterList);
    connect(m_filter, &SearchBox::enterPressed, this, enterList);
}

// --- Members -------------------------------------------------------------------------

void CSetAdministrator::load()
{
    // What is shown stays while it is asked for anew.
    if (m_state != State::Loaded)
        m_state = State::Loading;
    showPage();
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::siganal_getVirtualTeamMembersFinish, this,
            [this, operation](const QString &, const QList<CVirtualTeamMemberInfo> &members,
                              bool ok) { arrived(ok, operation->resultCode(), members); });
    operation->getVirtualTeamMembers(m_team.vtId);
}

void CSetAdministrator::arrived(bool ok, int code, const QList<CVirtualTeamMemberInfo> &members)
{
    if (!ok && code == TeamCode::Unknown) {
        TipBox::tell(parentWidget(), QString::fromUtf8(TeamMessages::MembersFailed));
        reject();
        return;
    }
    if (ok) {
        m_state = State::Loaded;
        m_before.clear();
        for (const CVirtualTeamMemberInfo &member : members) {
            if (member.role == TeamRole::SubAdministrator)
                m_before.insert(member.userId);
        }
        m_list->setMembers(members);
        CompanyNames::instance().find(m_team.vtId, members);
    } else if (m_state != State::Loaded) {
        m_state = State::Failed;
    }
    showPage();
}

void CSetAdministrator::showPage()
{
    if (m_state == State::Loading)
        m_pages->setCurrentWidget(m_loading);
    else if (m_state == State::Failed)
        m_pages->setCurrentWidget(m_failed);
    else if (m_list->members()->recordCount() == 0)
        m_pages->setCurrentWidget(m_empty);
    else if (m_list->members()->rowCount() == 0)
        m_pages->setCurrentWidget(m_nothing);
    else
        m_pages->setCurrentWidget(m_list);
    updateChoice();
}

void CSetAdministrator::updateChoice()
{
    const bool isLoaded = m_state == State::Loaded;
    m_bar->setSureEnabled(isLoaded);
    m_bar->setNote(isLoaded ? QObject::tr("teamChosenCount").arg(m_list->members()->checkedCount())
                            : QString());
}

void CSetAdministrator::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateChoice();
    BaseDialog::changeEvent(event);
}

// --- The request ---------------------------------------------------------------------

void CSetAdministrator::sure()
{
    if (m_state != State::Loaded || m_bar->isBusy())
        return;
    const QStringList chosen = m_list->members()->checkedIds();
    if (QSet<QString>(chosen.begin(), chosen.end()) == m_before) {
        accept();
        return;
    }
    if (!TeamMessages::mayRequest(this))
        return;
    m_bar->setBusy(true);
    m_list->setEnabled(false);
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::signal_setVirtualTeamAdminFinish, this,
            // A list that comes meanwhile may hold the result already.
            [this, chosen, before = m_before](const QString &, const QStringList &, bool ok,
                                              int code) { finished(ok, code, before, chosen); });
    operation->setVirtualTeamAdmin(m_team.vtId, chosen);
}

void CSetAdministrator::finished(bool ok, int code, const QSet<QString> &before,
                                 const QStringList &chosen)
{
    m_list->setEnabled(true);
    m_bar->setBusy(false);
    if (!ok) {
        LOG_ERROR("CSetAdministrator: setVirtualTeamAdmin failed nCode:" << QString::number(code));
        TipBox::tell(this, TeamMessages::addAdministratorFailed());
        // The service answers so when the members are not what is shown here any more.
        if (code != 0)
            load();
        return;
    }
    QStringList removed;
    QStringList added;
    std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(added),
                 [&before](const QString &userId) { return !before.contains(userId); });
    std::copy_if(before.begin(), before.end(), std::back_inserter(removed),
                 [&chosen](const QString &userId) { return !chosen.contains(userId); });
    removed.sort();
    const QPointer<CSetAdministrator> alive(this);
    emit administratorsSet(m_team.vtId, added, removed);
    if (alive)
        accept();
}
