#include "virtualteam/dialogs/memberpicker.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/rowpainter.h"
#include "controls/searchbox.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/tipbox.h"
#include "virtualteam/dialogs/chosenmemberlist.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/fieldframe.h"
#include "virtualteam/dialogs/memberlistmodel.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

namespace {
constexpr int RowsToSee = 4; // without scrolling
} // namespace

MemberPicker::MemberPicker(Kind kind, QWidget *parent)
    : QWidget(parent),
      m_kind(kind),
      m_caption(DialogParts::label(this)),
      m_state(DialogParts::quietLabel(this)),
      m_key(new SearchBox(this, "accountOrMobile")),
      m_add(new SkinButton(SkinButton::Outline, QString(), this)),
      m_list(new ChosenMemberList(this))
{
    m_caption->setBuddy(m_key);
    m_state->setObjectName(QStringLiteral("pickerState"));
    m_key->setObjectName(QStringLiteral("memberSearch"));
    m_add->setObjectName(QStringLiteral("memberAdd"));
    m_list->setMinimumHeight(RowsToSee * RowPainter::RowHeight);

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(6);
    layout->addWidget(m_caption, 0, 0);
    layout->addWidget(m_state, 0, 1, Qt::AlignRight);
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(m_key, 1);
    line->addWidget(m_add);
    layout->addLayout(line, 1, 0, 1, 2);
    layout->addWidget(new FieldFrame(m_list, this), 2, 0, 1, 2);
    layout->setRowStretch(2, 1);

    connect(m_add, &QPushButton::clicked, this, [this] {
        takeFocus(); // for the next one
        search();
    });
    connect(m_key, &SearchBox::enterPressed, this, &MemberPicker::search);
    connect(m_key, &SearchBox::escapePressed, this, &MemberPicker::escapePressed);
    connect(m_key, &SearchBox::downPressed, m_list, qOverload<>(&QWidget::setFocus));
    connect(m_key, &QLineEdit::textChanged, this, &MemberPicker::updateState);
    connect(m_list, &ChosenMemberList::signal_deleteItem, this, &MemberPicker::removeMember);
    retranslate();
}

QStringList MemberPicker::userIds() const
{
    return m_list->members()->userIds();
}

void MemberPicker::takeFocus()
{
    m_key->setFocus();
}

// --- Searching ---------------------------------------------------------------------

void MemberPicker::search()
{
    LOG_SCOPE("MemberPicker::search()");
    const QString key = m_key->text().trimmed();
    const QList<QString> running = m_searches.values();
    if (key.isEmpty() || running.contains(key) || !TeamMessages::mayRequest(this))
        return;
    auto *operation = new CHttpVirtualTeamOperation(this);
    m_searches.insert(operation, key);
    connect(operation, &CHttpVirtualTeamOperation::signal_SearchVirtualTeamMemberFinish, this,
            [this, operation](bool ok, qint64 code, const CVirtualTeamMemberInfo &member) {
                const QString asked = m_searches.take(operation);
                if (ok && !member.userId.isEmpty())
                    found(asked, member);
                else
                    refuse(asked, TeamMessages::memberSearchFailed(code));
                updateState();
                emit changed();
            });
    operation->searchVirtualTeamMember(key);
    updateState();
    emit changed();
}

void MemberPicker::found(const QString &key, const CVirtualTeamMemberInfo &member)
{
    const bool isOwnCompany =
        !member.companyCode.isEmpty() && member.companyCode == ctx().companyCode();
    if (member.userId == ctx().userId() || m_list->members()->contains(member.userId)) {
        refuse(key, QObject::tr("userHadAdded"));
    } else if (m_kind == OtherCompanies && isOwnCompany) {
        refuse(key, QObject::tr("checkAccount"));
    } else {
        m_list->members()->add(member);
        m_list->scrollToBottom();
        if (m_key->text().trimmed() == key)
            m_key->clear();
    }
}

void MemberPicker::refuse(const QString &key, const QString &text)
{
    const bool isStillThere = m_key->text().trimmed() == key;
    if (isStillThere)
        m_key->selectAll();
    // Whoever is typing the next one is told which of them it was.
    TipBox::tell(window(), isStillThere ? text : displayText(key) + QLatin1Char('\n') + text);
}

void MemberPicker::removeMember(const QString &userId)
{
    LOG_SCOPE("MemberPicker::removeMember(const QString &userId)");
    if (!m_list->members()->remove(userId))
        return;
    if (m_list->members()->rowCount() == 0 && m_list->hasFocus())
        takeFocus();
    updateState();
    emit changed();
}

// --- What is shown -----------------------------------------------------------------

void MemberPicker::updateState()
{
    const int count = m_list->members()->rowCount();
    m_state->setText(isSearching() ? QObject::tr("searchSearching")
                     : count > 0   ? QString::number(count)
                                   : QString());
    m_add->setEnabled(!m_key->text().trimmed().isEmpty());
}

void MemberPicker::retranslate()
{
    const bool invites = m_kind == OtherCompanies;
    m_caption->setText(invites ? QObject::tr("invitedMembers") : QObject::tr("teamMembers"));
    m_add->setText(QObject::tr("addMember"));
    m_list->setAccessibleName(m_caption->text());
    m_list->setTextWhenEmpty(invites ? QObject::tr("pickOtherCompanies")
                                     : QObject::tr("pickMembers"));
    updateState();
}

void MemberPicker::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
