#include "contacts/friendwidget.h"

#include "common/logging.h"
#include "contacts/friendlistview.h"
#include "contacts/friendtreewidget.h"
#include "controls/skin.h"
#include "org/orgwidget.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStackedWidget>

namespace {
QString friendsPage()
{
    return QStringLiteral("friends");
}

QString organisationPage()
{
    return QStringLiteral("organizationTree");
}
} // namespace

FriendWidget::FriendWidget(QWidget *parent)
    : QWidget(parent),
      m_entries(new FriendListView(this)),
      m_pages(new QStackedWidget(this)),
      m_friendTree(new FriendTreeWidget(m_pages))
{
    LOG_SCOPE("FriendWidget::FriendWidget(QWidget* parent)");
    setObjectName(QStringLiteral("FriendWidget"));
    setAutoFillBackground(true);
    followSkin(this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_entries);
    layout->addWidget(m_pages, 1);

    for (int row = 0; row < m_entries->model()->rowCount(); ++row) {
        const QString id = m_entries->model()->index(row, 0).data(EntryRole::Id).toString();
        QWidget *page = id == friendsPage() ? m_friendTree : new QWidget(m_pages);
        if (page != m_friendTree)
            page->setObjectName(id);
        m_pages->addWidget(page);
        m_pageById.insert(id, page);
    }
    connect(m_entries, &FriendListView::signal_clickItem, this, &FriendWidget::slot_clickItem);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_position_orgstruct,
            this, [](const QString &id, bool isOrganisation) {
                if (PaneActions *actions = paneActions())
                    actions->locateInOrganisation(id, isOrganisation);
            });
    raisePage(friendsPage());
    setTabOrder(m_entries, m_friendTree);
}

OrgWidget *FriendWidget::orgPage()
{
    QWidget *place = m_pageById.value(organisationPage());
    if (m_orgPage || !place)
        return m_orgPage;
    m_orgPage = new OrgWidget(m_pages);
    m_pages->insertWidget(m_pages->indexOf(place), m_orgPage);
    m_pageById.insert(organisationPage(), m_orgPage);
    delete place;
    return m_orgPage;
}

bool FriendWidget::raisePage(const QString &id)
{
    return m_entries->selectEntry(id);
}

QString FriendWidget::currentPage() const
{
    return m_pageById.key(m_pages->currentWidget());
}

void FriendWidget::slot_clickItem(int, QString strJid)
{
    LOG_SCOPE("FriendWidget::slot_clickItem(int nType, QString strJid)");
    if (strJid == organisationPage())
        orgPage();
    if (QWidget *page = m_pageById.value(strJid))
        m_pages->setCurrentWidget(page);
}

void FriendWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_entries->viewport()->update();
    QWidget::changeEvent(event);
}
