#include "virtualteam/dialogs/teammembersearch.h"

#include "controls/loadingoverlay.h"
#include "controls/statepage.h"
#include "virtualteam/dialogs/cvirtualteamtransauthtreedelegate.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/memberchoicemodel.h"
#include "virtualteam/dialogs/teamchoiceview.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"
#include "virtualteam/teamroles.h"

#include <QStackedLayout>

TeamMemberSearch::TeamMemberSearch(const QString &vtId, QWidget *parent)
    : QWidget(parent),
      m_vtId(vtId),
      m_hits(new MemberChoiceModel(this)),
      m_list(new TeamChoiceView(m_hits, this)),
      m_busy(new LoadingOverlay(this)),
      m_pages(new QStackedLayout(this)),
      m_nothing(DialogParts::emptyPage("searchNothing", this)),
      m_failed(DialogParts::failedPage(TeamMessages::MembersFailed, this))
{
    m_list->setObjectName(QStringLiteral("hits"));
    m_list->setItemDelegate(new CVirtualTeamTransAuthTreeDelegate(this));
    m_nothing->setObjectName(QStringLiteral("noHits"));
    m_failed->setObjectName(QStringLiteral("searchFailed"));
    m_pages->addWidget(m_list);
    m_pages->addWidget(m_nothing);
    m_pages->addWidget(m_failed);
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &TeamMemberSearch::ask);
    connect(m_failed, &StatePage::buttonClicked, this, &TeamMemberSearch::ask);
    connect(m_list, &TeamChoiceView::choiceChanged, this, &TeamMemberSearch::choiceChanged);
    connect(m_list, &RowView::activatedRow, this, &TeamMemberSearch::confirmed);
}

void TeamMemberSearch::search(const QString &text)
{
    const QString typed = text.trimmed();
    if (typed == m_text)
        return;
    m_text = typed;
    m_delay.stop();
    // What was chosen among the hits of another text may not be among those of this one.
    m_list->clearSelection();
    if (typed.isEmpty()) {
        m_hits->setMembers({}, MemberChoiceModel::AsGiven);
        m_busy->hide();
        return;
    }
    m_delay.start();
    if (m_hits->rowCount() > 0)
        m_busy->note();
    else
        m_busy->cover();
}

void TeamMemberSearch::ask()
{
    m_busy->raise();
    if (m_pages->currentWidget() == m_failed)
        m_busy->cover();
    const QString asked = m_text;
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::signal_GetFuzzySearchFinish, this,
            [this, asked](bool ok, const QString &, const QString &,
                          const QList<CVirtualTeamMemberInfo> &hits) {
                if (asked != m_text)
                    return;
                m_busy->hide();
                if (ok)
                    arrived(hits);
                else
                    m_pages->setCurrentWidget(m_failed);
            });
    operation->fuzzySearchVirtualTeamMember(m_vtId, asked);
}

void TeamMemberSearch::arrived(const QList<CVirtualTeamMemberInfo> &hits)
{
    m_hits->setMembers(hits, MemberChoiceModel::AsGiven);
    m_pages->setCurrentWidget(m_hits->rowCount() > 0 ? static_cast<QWidget *>(m_list) : m_nothing);
    emit choiceChanged();
}

CVirtualTeamMemberInfo TeamMemberSearch::chosenMember() const
{
    const MemberChoice *choice = m_hits->find(m_list->chosenRow().data(TeamRowRole::Id).toString());
    return choice ? choice->member : CVirtualTeamMemberInfo();
}

void TeamMemberSearch::takeFocus()
{
    if (m_pages->currentWidget() != m_list || m_busy->isVisible() || m_hits->rowCount() == 0)
        return;
    m_list->setFocus(Qt::OtherFocusReason);
    m_list->reveal(m_hits->index(0));
}
