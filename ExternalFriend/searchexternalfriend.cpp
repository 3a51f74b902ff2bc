#include "ExternalFriend/searchexternalfriend.h"

#include "ExternalFriend/addexternalfrdmanager.h"
#include "ExternalFriend/externalhitmodel.h"
#include "ExternalFriend/externalhitview.h"
#include "ExternalFriend/externalpeoplesearch.h"
#include "common/context.h"
#include "common/logging.h"
#include "controls/searchbox.h"
#include "controls/statestack.h"
#include "controls/tipbox.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"

#include <QEvent>
#include <QPointer>
#include <QVBoxLayout>

namespace {
constexpr int WindowWidth = 440; // device-independent pixels, as all below
constexpr int WindowHeight = 480;
constexpr int Edge = 16;
QPointer<SearchExternalFriend> s_open;
} // namespace

void SearchExternalFriend::showSearch(QWidget *parent)
{
    LOG_SCOPE("SearchExternalFriend::showSearch(QWidget *parent)");
    if (!isOnline()) {
        TipBox::tell(parent, QObject::tr("cannotSearchForOtherInfoForSelfOffLine"));
        return;
    }
    if (!s_open)
        s_open = new SearchExternalFriend(parent ? parent->window() : nullptr);
    s_open->present();
    s_open->m_box->setFocus();
}

SearchExternalFriend::SearchExternalFriend(QWidget *parent)
    : BaseDialog(parent),
      m_box(new SearchBox(this, QT_TRANSLATE_NOOP("QObject", "outsideSearchBox"))),
      m_search(new ExternalPeopleSearch(this)),
      m_model(new ExternalHitModel(this)),
      m_view(new ExternalHitView(m_box, m_model, this)),
      m_states(new StateStack)
{
    setObjectName(QStringLiteral("SearchExternalFriend"));
    setTitleKey(QT_TRANSLATE_NOOP("QObject", "outsideSearchTitle"));
    setFixedWidth(WindowWidth);
    setMinimumHeight(WindowHeight);
    auto *top = new QVBoxLayout;
    top->setContentsMargins(Edge, 8, Edge, 8);
    top->addWidget(m_box);
    bodyLayout()->addLayout(top);
    bodyLayout()->addLayout(m_states, 1);
    m_states->addWidget(m_view);
    connectSources();
    showState();
}

void SearchExternalFriend::connectSources()
{
    connect(m_box, &QLineEdit::textChanged, this, &SearchExternalFriend::setText);
    connect(m_box, &SearchBox::escapePressed, this, [this] {
        if (m_box->text().isEmpty())
            reject();
        else
            m_box->clear();
    });
    connect(m_box, &SearchBox::enterPressed, this, [this] {
        m_search->searchNow();
        choose(m_view->currentIndex().isValid() ? m_view->currentIndex() : m_model->index(0));
    });
    connect(m_view, &FoundList::escapePressed, m_box, [this] { m_box->setFocus(); });
    connect(m_view, &ExternalHitView::chosen, this, &SearchExternalFriend::choose);
    connect(m_search, &ExternalPeopleSearch::stateChanged, this, &SearchExternalFriend::showState);
    connect(m_search, &ExternalPeopleSearch::found, this,
            [this](const QList<SearchFriendResultData> &people) { m_model->setPeople(people); });
    connect(m_states, &StateStack::buttonClicked, m_search, &ExternalPeopleSearch::retry);

    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(AddExternalFrdManager::instance(), &AddExternalFrdManager::requestedChanged, m_model,
            &ExternalHitModel::showAnew);
    connect(hub, &Hub::signal_addFriend, m_model, &ExternalHitModel::showAnew);
    connect(hub, &Hub::signal_addAllFriend, m_model, &ExternalHitModel::showAnew);
    connect(hub, &Hub::signal_delOutsideFriend, m_model, &ExternalHitModel::showAnew);
    connect(hub, &Hub::signal_notifyFriendRemarkName, m_model, &ExternalHitModel::showAnew);
    connect(&PictureFiles::instance(), &PictureFiles::ready, m_model, &ExternalHitModel::showAnew);
    connect(hub, &Hub::signal_logout, this, &QDialog::reject);
}

void SearchExternalFriend::setText(const QString &text)
{
    // What was found for another text would be taken for the answer to this one.
    m_model->setPeople({});
    m_model->setText(text.simplified());
    m_search->setText(text);
    showState();
}

void SearchExternalFriend::choose(const QModelIndex &index)
{
    if (index.isValid())
        AddExternalFrdManager::instance()->openDialog(m_model->at(index.row()));
}

void SearchExternalFriend::showState()
{
    switch (m_search->state()) {
    case ExternalPeopleSearch::Idle:
        m_states->showPage(QT_TRANSLATE_NOOP("QObject", "outsideSearchHint"),
                           "Resources/images/contacts/empty_list.png");
        return;
    case ExternalPeopleSearch::TooShort:
        m_states->showPage(QT_TRANSLATE_NOOP("QObject", "outsideSearchShort"),
                           "Resources/images/contacts/empty_list.png");
        return;
    case ExternalPeopleSearch::Offline:
        m_states->showPage("isOfflinePleaseLogin", "Resources/images/FriendDetail/failed.png");
        return;
    case ExternalPeopleSearch::Searching:
        m_states->showPage("searchSearching", "Resources/images/SearchFriend/qora_Loading.gif");
        return;
    case ExternalPeopleSearch::Failed:
        m_states->showPage(QT_TRANSLATE_NOOP("QObject", "outsideSearchFailed"),
                           "Resources/images/FriendDetail/failed.png", "retry");
        return;
    case ExternalPeopleSearch::Done:
        break;
    }
    if (m_model->rowCount() > 0)
        m_states->setCurrentWidget(m_view);
    else
        m_states->showPage("searchNothing", "Resources/images/contacts/empty_list.png");
}

void SearchExternalFriend::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_model->showAnew();
    BaseDialog::changeEvent(event);
}
