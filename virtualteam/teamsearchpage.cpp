#include "virtualteam/teamsearchpage.h"

#include "controls/noticeline.h"
#include "controls/searchbox.h"
#include "controls/statestack.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/companynames.h"
#include "virtualteam/teamsearch.h"
#include "virtualteam/teamsearchmodel.h"
#include "virtualteam/virtualteamsearchresultlistview.h"

#include <QEvent>
#include <QVBoxLayout>

TeamSearchPage::TeamSearchPage(SearchBox *box, QWidget *parent)
    : QWidget(parent),
      m_search(new TeamSearch(this)),
      m_model(new TeamSearchModel(this)),
      m_view(new VirtualTeamSearchResultListView(box, m_model, this)),
      m_states(new StateStack),
      m_notice(new NoticeLine(this))
{
    setObjectName(QStringLiteral("VirtualTeamSearchPage"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_states->addWidget(m_view);
    layout->addLayout(m_states, 1);
    layout->addWidget(m_notice);
    connect(box, &SearchBox::enterPressed, this, &TeamSearchPage::chooseFirst);
    connectSources();
}

void TeamSearchPage::connectSources()
{
    connect(m_search, &TeamSearch::answered, this,
            [this](const QString &vtId, const QList<CVirtualTeamMemberInfo> &hits) {
                m_model->setHits(vtId, hits, m_view->isInUse());
            });
    connect(m_search, &TeamSearch::stateChanged, this, &TeamSearchPage::showState);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &TeamSearchPage::showState);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &TeamSearchPage::showState);
    connect(m_notice, &NoticeLine::retryClicked, m_search, &TeamSearch::retry);
    connect(m_states, &StateStack::buttonClicked, m_search, &TeamSearch::retry);
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    const auto showAnew = [this] { m_model->showAnew(); };
    connect(hub, &Hub::signal_updateFriendPresence, m_model, &TeamSearchModel::setPresence);
    connect(hub, &Hub::signal_doalloffline, this, showAnew);
    connect(hub, &Hub::signal_isConnected, this, showAnew);
    connect(hub, &Hub::signal_UpdateFrdHead, this, showAnew);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this, showAnew);
    connect(&CompanyNames::instance(), &CompanyNames::learned, this, showAnew);
}

void TeamSearchPage::setTeams(const QList<CVirtualTeamSimpleInfo> &teams)
{
    QStringList ids;
    for (const CVirtualTeamSimpleInfo &team : teams)
        ids.append(team.vtId);
    m_model->setTeams(teams);
    m_search->setTeams(ids);
}

void TeamSearchPage::setText(const QString &text)
{
    m_model->setText(text);
    m_view->scrollToTop();
    m_search->setText(text);
    showState();
}

void TeamSearchPage::chooseFirst()
{
    if (m_model->rowCount() == 0)
        return;
    const QModelIndex current = m_view->currentIndex();
    m_view->choose(current.isValid() ? current : m_model->index(0));
}

void TeamSearchPage::showState()
{
    const TeamSearch::State state = m_search->state();
    const bool hasRows = m_model->rowCount() > 0;
    if (hasRows)
        m_states->setCurrentWidget(m_view);
    else if (state == TeamSearch::Searching)
        m_states->showPage("searchSearching", "Resources/images/SearchFriend/qora_Loading.gif");
    else if (state == TeamSearch::Offline)
        m_states->showPage("isOfflinePleaseLogin", "Resources/images/FriendDetail/failed.png");
    else if (state == TeamSearch::Failed)
        m_states->showPage("searchTeamsFailed", "Resources/images/FriendDetail/failed.png",
                           "retry");
    else
        m_states->showPage("searchNothing", "Resources/images/contacts/empty_list.png");
    if (hasRows && state == TeamSearch::Searching)
        m_notice->say("searchSearching");
    else if (state == TeamSearch::SomeFailed)
        m_notice->say("searchSomeTeamsFailed", true);
    else
        m_notice->say(nullptr);
}

void TeamSearchPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_model->showAnew();
    QWidget::changeEvent(event);
}
