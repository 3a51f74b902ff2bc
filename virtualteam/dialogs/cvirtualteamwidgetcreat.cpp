#include "virtualteam/dialogs/cvirtualteamwidgetcreat.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/elidedlabel.h"
#include "controls/skin.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/dialogs/dialogbar.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/fieldframe.h"
#include "virtualteam/dialogs/memberpicker.h"
#include "virtualteam/dialogs/reasonedit.h"
#include "virtualteam/dialogs/teamnameedit.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"
#include "virtualteam/teamuser.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QShowEvent>

namespace {
constexpr int WindowWidth = 400; // device-independent pixels
constexpr int ReasonLines = 5;   // to be seen without scrolling
} // namespace

CVirtualTeamWidgetCreat::CVirtualTeamWidgetCreat(QWidget *parent)
    : CVirtualTeamWidgetCreat({}, false, parent)
{
}

CVirtualTeamWidgetCreat::CVirtualTeamWidgetCreat(const CVirtualTeamSimpleInfo &team,
                                                 QWidget *parent)
    : CVirtualTeamWidgetCreat(team, true, parent)
{
}

CVirtualTeamWidgetCreat::CVirtualTeamWidgetCreat(const CVirtualTeamSimpleInfo &team, bool invites,
                                                 QWidget *parent)
    : BaseDialog(parent),
      m_team(team),
      m_invites(invites),
      m_nameCaption(DialogParts::label(this)),
      m_name(invites ? nullptr : new TeamNameEdit(this)),
      m_picker(new MemberPicker(invites ? MemberPicker::OtherCompanies : MemberPicker::AnyCompany,
                                this)),
      m_reasonCaption(DialogParts::label(this)),
      m_length(DialogParts::quietLabel(this)),
      m_reason(new ReasonEdit(this)),
      m_bar(new DialogBar(this))
{
    setObjectName(QStringLiteral("CVirtualTeamWidgetCreat"));
    if (invites)
        setWindowTitle(QString::fromUtf8("邀请外企业成员"));
    else
        setTitleKey("createVirtualTeam");
    setFixedWidth(WindowWidth);
    build();
    retranslate();
    showLength(0);

    connect(m_reason, &ReasonEdit::lengthChanged, this, &CVirtualTeamWidgetCreat::showLength);
    // Whom a search is about to find belongs to the team, too.
    connect(m_picker, &MemberPicker::changed, this,
            [this] { m_bar->setSureEnabled(!m_picker->isSearching()); });
    connect(m_picker, &MemberPicker::escapePressed, this, &QDialog::reject);
    connect(m_bar, &DialogBar::sure, this, &CVirtualTeamWidgetCreat::slot_sure);
    connect(m_bar, &DialogBar::cancelled, this, &QDialog::reject);
    connect(this, &BaseDialog::closed, this, [this] { m_isClosed = true; });
    whenUserLeaves(this, [this] { reject(); });
}

void CVirtualTeamWidgetCreat::build()
{
    auto *body = new QVBoxLayout;
    body->setContentsMargins(DialogParts::Edge, 8, DialogParts::Edge, 12);
    body->setSpacing(14);
    body->addLayout(buildName());
    body->addWidget(m_picker, 1);
    body->addLayout(buildReason());
    bodyLayout()->addLayout(body);
    bodyLayout()->addWidget(m_bar);
}

QLayout *CVirtualTeamWidgetCreat::buildName()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(6);
    layout->addWidget(m_nameCaption);
    if (m_invites) {
        auto *name = new ElidedLabel(this);
        name->setObjectName(QStringLiteral("teamName"));
        name->setFont(skinFont(14, QFont::Medium));
        name->setText(displayText(m_team.vtName));
        layout->addWidget(name);
    } else {
        m_nameCaption->setBuddy(m_name);
        layout->addWidget(new FieldFrame(m_name, this));
    }
    return layout;
}

QLayout *CVirtualTeamWidgetCreat::buildReason()
{
    m_length->setObjectName(QStringLiteral("reasonLength"));
    m_reasonCaption->setBuddy(m_reason);
    m_reason->setFixedHeight(DialogParts::textHeight(m_reason->font(), ReasonLines) +
                             2 * int(m_reason->document()->documentMargin()));
    auto *layout = new QGridLayout;
    layout->setVerticalSpacing(6);
    layout->addWidget(m_reasonCaption, 0, 0);
    layout->addWidget(m_length, 0, 1, Qt::AlignRight);
    layout->addWidget(new FieldFrame(m_reason, this), 1, 0, 1, 2);
    return layout;
}

void CVirtualTeamWidgetCreat::retranslate()
{
    m_nameCaption->setText(QObject::tr("teamName"));
    m_reasonCaption->setText(QObject::tr("teamReason"));
    m_reason->setPlaceholderText(QObject::tr("inviteReasion"));
    m_reason->setAccessibleName(m_reasonCaption->text());
    if (m_name)
        m_name->setAccessibleName(m_nameCaption->text());
}

void CVirtualTeamWidgetCreat::showLength(int length)
{
    m_length->setText(QStringLiteral("%1/%2").arg(length).arg(ReasonEdit::MaximumLength));
}

// --- The request -------------------------------------------------------------------

bool CVirtualTeamWidgetCreat::isComplete()
{
    const int picked = m_picker->userIds().size();
    if (m_name && m_name->name().isEmpty()) {
        m_name->setFocus();
        TipBox::tell(this, QObject::tr("teamNameNotempty"));
    } else if (!m_invites && picked < TeamLimits::FewestMembers) {
        m_picker->takeFocus();
        TipBox::tell(this, QObject::tr("teamCountMoreTwo"));
    } else if (m_invites && picked == 0) {
        m_picker->takeFocus();
        TipBox::tell(this, QObject::tr("addInviteCompany"));
    } else {
        return true;
    }
    return false;
}

void CVirtualTeamWidgetCreat::slot_sure()
{
    LOG_SCOPE("CVirtualTeamWidgetCreat::slot_sure()");
    if (m_bar->isBusy() || m_isClosed || m_picker->isSearching())
        return;
    if (!isComplete() || !TeamMessages::mayRequest(this))
        return;
    const QString typed = m_reason->reason();
    const QString reason = typed.isEmpty() ? QObject::tr("defaltInvitReasion") : typed;
    m_bar->setBusy(true);
    if (m_invites)
        invite(m_picker->userIds(), reason);
    else
        create(m_name->name(), m_picker->userIds(), reason);
}

// The requests outlive the dialog, which may be closed while they run; what comes after
// it is for the same user only.
void CVirtualTeamWidgetCreat::create(const QString &name, const QStringList &members,
                                     const QString &reason)
{
    using Operation = CHttpVirtualTeamOperation;
    auto *operation = new Operation;
    const QPointer<CVirtualTeamWidgetCreat> dialog(this);
    const QPointer<QWidget> opener(parentWidget());
    const QString user = ctx().userId();
    connect(operation, &Operation::signal_CreatVirtualTeamFinish, operation,
            [dialog, opener, user](bool ok, const QString &vtId, int code) {
                const QString text = TeamMessages::created(ok, code);
                if (dialog && !dialog->m_isClosed) {
                    if (ok)
                        emit dialog->teamCreated(vtId, code == Operation::PendingCode);
                    if (dialog && ok)
                        dialog->succeeded(text);
                    else if (dialog)
                        dialog->failed(text);
                } else if (ctx().userId() == user) {
                    if (ok)
                        emit FriendUISignalSender::instance()->signal_refresh_virtualTeam(vtId);
                    TeamMessages::tell(opener, text);
                }
            });
    operation->creatVirtualTeam(members, name, reason);
}

void CVirtualTeamWidgetCreat::invite(const QStringList &members, const QString &reason)
{
    using Operation = CHttpVirtualTeamOperation;
    auto *operation = new Operation;
    const QPointer<CVirtualTeamWidgetCreat> dialog(this);
    const QPointer<QWidget> opener(parentWidget());
    const QString user = ctx().userId();
    connect(operation, &Operation::signal_InviteVirtualTeamFinish, operation,
            [dialog, opener, user](bool ok, int code) {
                const QString text = TeamMessages::invited(ok, code);
                if (dialog && !dialog->m_isClosed)
                    ok ? dialog->succeeded(text) : dialog->failed(text);
                else if (ctx().userId() == user)
                    TeamMessages::tell(opener, text);
            });
    operation->inviteVirtualTeam(m_team.vtId, members, reason);
}

void CVirtualTeamWidgetCreat::succeeded(const QString &text)
{
    // The box outlives the dialog.
    const QPointer<QWidget> opener(parentWidget());
    accept();
    TeamMessages::tell(opener, text);
}

void CVirtualTeamWidgetCreat::failed(const QString &text)
{
    m_bar->setBusy(false);
    TeamMessages::tell(this, text);
}

// --- Events ------------------------------------------------------------------------

void CVirtualTeamWidgetCreat::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CVirtualTeamWidgetCreat::showEvent(QShowEvent *event)
{
    BaseDialog::showEvent(event);
    if (event->spontaneous() || focusWidget())
        return;
    if (m_name)
        m_name->setFocus();
    else
        m_picker->takeFocus();
}
