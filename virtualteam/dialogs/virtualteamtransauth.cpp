#include "virtualteam/dialogs/virtualteamtransauth.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/searchbox.h"
#include "controls/tipbox.h"
#include "virtualteam/dialogs/cvirtualteamtransauthtreeview.h"
#include "virtualteam/dialogs/dialogbar.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/teammembersearch.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"

#include <QEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <utility>

VirtualTeamTransAuth::VirtualTeamTransAuth(const CVirtualTeamSimpleInfo &team, QWidget *parent)
    : BaseDialog(parent),
      m_team(team),
      m_tree(new CVirtualTeamTransAuthTreeView(team, TeamChoices::Members, this)),
      m_bar(new DialogBar(this)),
      m_pages(new QStackedLayout)
{
    setTitleKey("transAuth");
    addSearch();
    build();
    loadCompanies();
}

VirtualTeamTransAuth::VirtualTeamTransAuth(const CVirtualTeamSimpleInfo &team,
                                           const QStringList &members, QWidget *parent,
                                           const QString &group)
    : BaseDialog(parent),
      m_team(team),
      m_members(members),
      m_tree(new CVirtualTeamTransAuthTreeView(team, TeamChoices::Groups, this)),
      m_bar(new DialogBar(this)),
      m_pages(new QStackedLayout)
{
    setTitleKey("moveTeamMembers");
    m_tree->setMoving(members, group);
    build();
    m_tree->setFocus();
}

void VirtualTeamTransAuth::build()
{
    setObjectName(QStringLiteral("VirtualTeamTransAuth"));
    m_tree->setMinimumSize(DialogParts::ListWidth, DialogParts::ListHeight);
    m_pages->insertWidget(0, m_tree);
    m_pages->setCurrentIndex(0);
    bodyLayout()->addLayout(m_pages, 1);
    bodyLayout()->addWidget(m_bar);
    connect(m_tree, &TeamChoiceView::choiceChanged, this, &VirtualTeamTransAuth::updateChoice);
    connect(m_tree, &CVirtualTeamTransAuthTreeView::confirmed, this, &VirtualTeamTransAuth::sure);
    connect(m_tree, &CVirtualTeamTransAuthTreeView::teamGone, this,
            &VirtualTeamTransAuth::leaveGoneTeam);
    connect(m_bar, &DialogBar::sure, this, &VirtualTeamTransAuth::sure);
    connect(m_bar, &DialogBar::cancelled, this, &QDialog::reject);
    updateChoice();
}

// --- Search --------------------------------------------------------------------------

void VirtualTeamTransAuth::addSearch()
{
    m_search = new SearchBox(this, "inputNameIDTel");
    m_hits = new TeamMemberSearch(m_team.vtId, this);
    bodyLayout()->addLayout(DialogParts::searchLine(m_search, this));
    m_pages->addWidget(m_hits);
    m_search->setFocus();
    connect(m_search, &QLineEdit::textChanged, this, &VirtualTeamTransAuth::searchTextChanged);
    connect(m_hits, &TeamMemberSearch::choiceChanged, this, &VirtualTeamTransAuth::updateChoice);
    connect(m_hits, &TeamMemberSearch::confirmed, this, &VirtualTeamTransAuth::sure);
    const auto enterList = [this] {
        if (m_pages->currentWidget() == m_hits)
            m_hits->takeFocus();
        else
            m_tree->setFocus(Qt::OtherFocusReason);
    };
    connect(m_search, &SearchBox::downPressed, this, enterList);
    connect(m_search, &SearchBox::enterPressed, this, enterList);
}

void VirtualTeamTransAuth::searchTextChanged(const QString &text)
{
    m_hits->search(text);
    m_pages->setCurrentWidget(text.trimmed().isEmpty() ? static_cast<QWidget *>(m_tree) : m_hits);
    updateChoice();
}

// --- Choice --------------------------------------------------------------------------

CVirtualTeamMemberInfo VirtualTeamTransAuth::chosenMember() const
{
    return m_pages->currentWidget() == m_tree ? m_tree->chosenMember() : m_hits->chosenMember();
}

void VirtualTeamTransAuth::updateChoice()
{
    const bool moves = !m_search;
    const CVirtualTeamMemberInfo member = moves ? CVirtualTeamMemberInfo() : chosenMember();
    const bool isChosen = moves ? !m_tree->chosenGroup().isEmpty() : !member.userId.isEmpty();
    const QString name = moves ? m_tree->chosenName() : ::displayText(member.shownName());
    m_bar->setSureEnabled(isChosen);
    if (isChosen)
        m_bar->setNote(QObject::tr("teamChosen").arg(name));
    else if (moves)
        m_bar->setNote(QObject::tr("teamChooseGroup").arg(m_members.size()));
    else
        m_bar->setNote(QObject::tr("teamChooseOwner"));
}

void VirtualTeamTransAuth::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateChoice();
    BaseDialog::changeEvent(event);
}

// --- Requests ------------------------------------------------------------------------

void VirtualTeamTransAuth::sure()
{
    if (m_bar->isBusy())
        return;
    if (m_search)
        grantTo(chosenMember());
    else if (!m_tree->chosenGroup().isEmpty())
        sendMove(m_tree->chosenGroup());
}

void VirtualTeamTransAuth::grantTo(const CVirtualTeamMemberInfo &member)
{
    if (member.userId.isEmpty())
        return;
    if (member.userId == ctx().userId()) {
        TipBox::tell(this, QString::fromUtf8("不能移交管理权给自己!"));
        return;
    }
    if (member.companyCode.isEmpty() && m_companyState != Companies::Known) {
        m_grantWaits = true;
        m_bar->setBusy(true);
        loadCompanies();
        return;
    }
    const QString company =
        member.companyCode.isEmpty() ? m_companies.value(member.userId) : member.companyCode;
    if (company.isEmpty() || company != ctx().companyCode()) {
        TipBox::tell(this, QString::fromUtf8("跨企业不能移交管理权!"));
        return;
    }
    if (!TeamMessages::mayRequest(this))
        return;
    const QString userId = member.userId;
    TipBox::ask(
        this, TeamMessages::about(QObject::tr("sureTransAuthTip"), member.shownName()),
        [this, userId] { sendGrant(userId); }, QObject::tr("sureTransAuth"));
}

void VirtualTeamTransAuth::loadCompanies()
{
    if (m_companyState != Companies::NotAsked)
        return;
    m_companyState = Companies::Loading;
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::siganal_getVirtualTeamMembersFinish, this,
            [this](const QString &, const QList<CVirtualTeamMemberInfo> &members, bool ok) {
                companiesArrived(ok, members);
            });
    operation->getVirtualTeamMembers(m_team.vtId);
}

void VirtualTeamTransAuth::companiesArrived(bool ok, const QList<CVirtualTeamMemberInfo> &members)
{
    m_companyState = ok ? Companies::Known : Companies::NotAsked;
    for (const CVirtualTeamMemberInfo &member : members)
        m_companies.insert(member.userId, member.companyCode);
    if (!std::exchange(m_grantWaits, false))
        return;
    m_bar->setBusy(false);
    if (ok)
        sure();
    else
        TipBox::tell(this, QString::fromUtf8(TeamMessages::MembersFailed));
}

bool VirtualTeamTransAuth::begin()
{
    if (m_bar->isBusy() || !TeamMessages::mayRequest(this))
        return false;
    m_bar->setBusy(true);
    return true;
}

void VirtualTeamTransAuth::sendGrant(const QString &userId)
{
    if (!begin())
        return;
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::signal_GrantVirtualTeamAuthorityFinish, this,
            [this, operation, userId](bool ok, const QString &) {
                if (!ok) {
                    failed(TeamMessages::grantFailed(), operation->resultCode());
                    return;
                }
                const QPointer<VirtualTeamTransAuth> alive(this);
                emit authorityGranted(m_team.vtId, userId);
                if (alive)
                    accept();
            });
    operation->grantVirtualTeamAuthority(m_team.vtId, userId);
}

void VirtualTeamTransAuth::sendMove(const QString &groupId)
{
    if (!begin())
        return;
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::signal_transferVirtualTeamMemberFinish, this,
            [this, operation, groupId](const QString &, const QString &, bool ok) {
                if (!ok) {
                    failed(TeamMessages::moveFailed(), operation->resultCode());
                    return;
                }
                const QPointer<VirtualTeamTransAuth> alive(this);
                emit membersMoved(m_team.vtId, groupId, m_members);
                if (alive)
                    accept();
            });
    operation->transferVirtualTeamMember(m_team.vtId, groupId, m_members);
}

void VirtualTeamTransAuth::failed(const QString &text, int code)
{
    LOG_ERROR("VirtualTeamTransAuth: the request failed nCode:" << QString::number(code));
    m_bar->setBusy(false);
    TipBox::tell(this, text);
    // The service answers so when the team is not what is shown here any more.
    if (code != 0)
        m_tree->reload();
}

void VirtualTeamTransAuth::leaveGoneTeam()
{
    TipBox::tell(parentWidget(), QString::fromUtf8(TeamMessages::MembersFailed));
    reject();
}
