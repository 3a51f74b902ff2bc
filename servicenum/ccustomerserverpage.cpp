#include "servicenum/ccustomerserverpage.h"

#include "common/localdatabase.h"
#include "common/logging.h"
#include "controls/skin.h"
#include "controls/statepage.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/ccustomerserverlistview.h"
#include "servicenum/channelmodel.h"
#include "servicenum/topchannels.h"

#include <QEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {
constexpr int TitlePixels = 16;
constexpr int TitleHeight = 44; // device-independent pixels
} // namespace

CCustomerServerPage::CCustomerServerPage(QWidget *parent)
    : QWidget(parent),
      m_title(new QLabel(this)),
      m_pages(new QStackedWidget(this)),
      m_list(new CCustomerServerListView(m_pages)),
      m_emptyPage(new StatePage("nocustomer",
                                QStringLiteral("Resources/images/FriendDetail/nocustomer.png"),
                                nullptr, m_pages))
{
    LOG_SCOPE("CCustomerServerPage::CCustomerServerPage(QWidget* parent)");
    setObjectName(QStringLiteral("CCustomerServerPage"));
    m_title->setObjectName(QStringLiteral("customer"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setFont(skinFont(TitlePixels));
    m_title->setFixedHeight(TitleHeight);
    m_title->setContentsMargins(12, 0, 12, 0);
    colourTitle();
    connect(&Skin::instance(), &Skin::changed, this, &CCustomerServerPage::colourTitle);
    m_emptyPage->setObjectName(QStringLiteral("nocustomer"));
    m_pages->addWidget(m_emptyPage);
    m_pages->addWidget(m_list);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_pages, 1);
    setFocusProxy(m_list);
    connectSources();
    retranslate();
}

void CCustomerServerPage::connectSources()
{
    using Page = CCustomerServerPage;
    using Hub = FriendUISignalSender;
    connect(m_list, &CCustomerServerListView::signal_TopChannelIDListChanged, this,
            &Page::slot_TopChannelIDListChanged);
    const ChannelModel *model = m_list->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &Page::showState);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &Page::showState);
    connect(model, &QAbstractItemModel::modelReset, this, &Page::showState);
    // Another user's pins, or the first ones to be had at all.
    const auto loadPins = [this] {
        m_pinsRead = false;
        if (m_loaded)
            readPins();
    };
    connect(&LocalDatabase::instance(), &LocalDatabase::opened, this, loadPins);
    connect(Hub::instance(), &Hub::signal_login, this, loadPins);
    connect(Hub::instance(), &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected && m_loaded && !m_pinsRead)
            readPins();
    });
}

void CCustomerServerPage::showEvent(QShowEvent *event)
{
    loadOnce();
    QWidget::showEvent(event);
}

void CCustomerServerPage::loadOnce()
{
    if (!m_loaded)
        reload();
}

void CCustomerServerPage::reload()
{
    LOG_DEBUG("load Customer list");
    m_loaded = true;
    readPins();
    m_list->model()->load();
    showState();
}

void CCustomerServerPage::readPins()
{
    const std::optional<QStringList> pins = TopChannels::load();
    m_pinsRead = pins.has_value();
    // What cannot be read is left as it is shown.
    if (pins)
        m_list->model()->setPins(*pins);
}

bool CCustomerServerPage::locateChannel(const QString &id)
{
    loadOnce();
    if (!m_list->locate(id))
        return false;
    m_list->setFocus();
    return true;
}

void CCustomerServerPage::slot_TopChannelIDListChanged(QList<QString> listTopChannelID)
{
    LOG_SCOPE("CCustomerServerPage::slot_TopChannelIDListChanged(QList<QString> "
              "listTopChannelID)");
    TopChannels::store(listTopChannelID);
}

void CCustomerServerPage::showState()
{
    const bool isEmpty = m_list->model()->rowCount() == 0;
    m_pages->setCurrentWidget(isEmpty ? m_emptyPage : static_cast<QWidget *>(m_list));
}

void CCustomerServerPage::retranslate()
{
    m_title->setText(QObject::tr("customer"));
    m_list->setAccessibleName(m_title->text());
}

void CCustomerServerPage::colourTitle()
{
    QPalette palette = Skin::instance().palette();
    if (!Skin::instance().isDark())
        palette.setColor(QPalette::WindowText, QColor(49, 49, 49));
    m_title->setPalette(palette);
}

void CCustomerServerPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        m_list->model()->retranslate();
    }
    QWidget::changeEvent(event);
}
