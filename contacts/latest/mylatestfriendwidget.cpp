#include "contacts/latest/mylatestfriendwidget.h"

#include "common/context.h"
#include "common/logging.h"
#include "contacts/latest/daywatch.h"
#include "contacts/latest/latestlist.h"
#include "contacts/latest/latesttime.h"
#include "contacts/latest/latestview.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "controls/statepage.h"
#include "controls/tipbox.h"
#include "http/httpmgr.h"
#include "plugin/frienduisignalsender.h"

#include <QEvent>
#include <QScrollBar>
#include <QStackedLayout>

#include <utility>

using Hub = FriendUISignalSender;

MyLatestFriendWidget::MyLatestFriendWidget(QWidget *parent)
    : QWidget(parent),
      m_list(new LatestList(this)),
      m_view(new LatestView(m_list->model(), this)),
      m_dayWatch(new DayWatch(this)),
      m_pages(new QStackedLayout(this)),
      m_emptyPage(new StatePage(
          "latestEmpty", QStringLiteral("Resources/images/contacts/empty_list.png"), nullptr, this))
{
    LOG_SCOPE("MyLatestFriendWidget::MyLatestFriendWidget(QWidget* parent)");
    setObjectName(QStringLiteral("MyLatestFriendWidget"));
    m_emptyPage->setObjectName(QStringLiteral("latestEmpty"));
    m_pages->addWidget(m_emptyPage);
    m_pages->addWidget(m_view);
    followSkin(this);
    setAutoFillBackground(true);
    setFocusProxy(m_view);

    const QAbstractItemModel *rows = model();
    connect(rows, &QAbstractItemModel::rowsInserted, this, &MyLatestFriendWidget::showState);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &MyLatestFriendWidget::showState);
    connect(rows, &QAbstractItemModel::modelReset, this, &MyLatestFriendWidget::showState);
    // Queued: the view may move its bar from inside a change of the model.
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &MyLatestFriendWidget::slot_ScrollToBottom, Qt::QueuedConnection);
    connect(m_view->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this] { m_rowsComing = false; });
    connect(m_list, &LatestList::notStored, this, &MyLatestFriendWidget::tellNotStored);
    connect(m_dayWatch, &DayWatch::turned, model(), [this] { model()->timeTextsChanged(); });
    connectHub();
    connectRooms();
    // The database is opened when the pane stands on the screen.
    m_list->reloadSoon();
}

MyLatestFriendWidget::~MyLatestFriendWidget()
{
    m_list->disconnect(this);
}

LatestModel *MyLatestFriendWidget::model() const
{
    return m_list->model();
}

void MyLatestFriendWidget::connectHub()
{
    const Hub *hub = Hub::instance();
    using Page = MyLatestFriendWidget;
    connect(hub, &Hub::signal_latestFriend, this, &Page::slot_setLatestFriendUi);
    connect(hub, &Hub::signal_updateLatestContact, this, &Page::slot_updateLatestContact);
    connect(hub, &Hub::signal_removelatest, this, &Page::slot_removeLatest);
    connect(hub, &Hub::signal_clearlatest, this, &Page::slot_clearLatest);
    connect(hub, &Hub::signal_addAllFriend, this, &Page::updateContacts);
    connect(hub, &Hub::signal_addFriend, this, [this](const QString &jid) {
        FriendData contact;
        if (ctx().friendData(jid, &contact))
            updateContacts({contact});
    });
    connect(hub, &Hub::signal_clearFriend, this, &Page::clearContent);
    connect(hub, &Hub::signal_delFriend, this, &Page::slot_delFriend);
    connect(hub, &Hub::signal_delOutsideFriend, this, &Page::slot_delFriend);
    connect(hub, &Hub::signal_FriendVcardInfo, this, &Page::slot_updateFriend);
    connect(hub, &Hub::signal_FriendFullVcardInfo, this, &Page::slot_updateFriend);
    connect(hub, &Hub::signal_notifyFriendRemarkName, this, &Page::slot_updateFriendRemarkName);
    connect(hub, &Hub::signal_UpdateFrdHead, this, &Page::setIcon);
    connect(hub, &Hub::signal_updateFriendPresence, this, &Page::slot_updateFriendPresence);
    connect(hub, &Hub::signal_doalloffline, this, &Page::slot_doAllOffline);
    connect(hub, &Hub::signal_notifyCooperate, this, &Page::slot_notifyCooperate);
    connect(hub, &Hub::signal_notifyDownloadServiceIconResult, this,
            &Page::slot_notifyDownloadServiceIconResult);
    connect(hub, &Hub::signal_notifyUpdateChannelHead, this, &Page::slot_notifyUpdateChannelHead);
    connect(
        hub, &Hub::signal_notifyUpdateServiceNum, this,
        [this](const QString &jid, const CServiceNumData &number) { rename(jid, number.name); });
    connect(hub, &Hub::signal_notifyAddChannel, this,
            [this](const CSChannelData &channel) { rename(channel.id, channel.name); });
    connect(hub, &Hub::signal_login, this, &Page::slot_login);
    connect(hub, &Hub::signal_logout, m_list, &LatestList::save);
    connect(hub, &Hub::signal_isConnected, m_list, [this](bool connected) {
        if (connected)
            m_list->reloadSoon();
    });
    connect(hub, &Hub::signal_latestSessionReceived, m_list, &LatestList::readPins);
    connect(hub, &Hub::signal_paintDelegateMsgCount, m_list, &LatestList::markRead);
}

void MyLatestFriendWidget::connectRooms()
{
    const Hub *hub = Hub::instance();
    using Page = MyLatestFriendWidget;
    connect(hub, &Hub::signal_roomSubjectChanged, this, &Page::slot_updateRoomSubject);
    connect(hub, &Hub::signal_mucChatHeadChanged, this, &Page::slot_updateRoomHeadImage);
    connect(hub, &Hub::signal_addMuc, this, &Page::slot_addMucItem);
    connect(hub, &Hub::signal_setForbiddenIcon, m_list,
            [this](const QString &roomJid, bool forbidden) {
                m_list->change(roomJid,
                               [forbidden](LatestEntry &entry) { entry.forbidden = forbidden; });
            });
    const HttpMgr *http = HttpMgr::instance();
    connect(http, &HttpMgr::signal_setSessionMsgConfigDone, m_list,
            [this](bool ok, const QString &roomJid, const QString &key, bool notHint) {
                if (ok && key == QLatin1String("isNotHint"))
                    m_list->setMuted(roomJid, notHint);
            });
    connect(http, &HttpMgr::signal_clientSettingsLoaded, m_list, [this](bool ok) {
        if (ok)
            m_list->reloadSoon();
    });
}

// --- States ----------------------------------------------------------------------

void MyLatestFriendWidget::showState()
{
    m_pages->setCurrentWidget(model()->rowCount() > 0 ? static_cast<QWidget *>(m_view)
                                                      : m_emptyPage);
}

void MyLatestFriendWidget::setDisplay(bool display)
{
    m_list->setDisplayed(display);
}

bool MyLatestFriendWidget::isDisplayed() const
{
    return m_list->isDisplayed();
}

void MyLatestFriendWidget::setClock(const std::function<QDateTime()> &clock)
{
    m_list->setClock(clock);
    m_dayWatch->setClock(clock);
}

void MyLatestFriendWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_dayWatch->setActive(true);
}

void MyLatestFriendWidget::hideEvent(QHideEvent *event)
{
    m_dayWatch->setActive(false);
    QWidget::hideEvent(event);
}

void MyLatestFriendWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_view->viewport()->update();
    QWidget::changeEvent(event);
}

// Once: every further message would fail as well. Not while the user is elsewhere.
void MyLatestFriendWidget::tellNotStored()
{
    if (!isVisible() || std::exchange(m_notStoredTold, true))
        return;
    TipBox::tell(this, QObject::tr("latestNotStored"));
}

void MyLatestFriendWidget::slot_login()
{
    LOG_SCOPE("MyLatestFriendWidget::slot_login()");
    m_notStoredTold = false;
    m_list->reloadSoon();
}

void MyLatestFriendWidget::slot_ScrollToBottom(int nValue)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_ScrollToBottom(int nValue)");
    // The end is only known again when the new rows are laid out. Keys bring the last row
    // into view, which is not quite the end.
    const int end = m_view->verticalScrollBar()->maximum() - RowPainter::RowHeight;
    if (m_rowsComing || nValue < end)
        return;
    const int before = model()->rowCount();
    m_list->loadMore();
    m_rowsComing = model()->rowCount() > before;
}

// --- Messages --------------------------------------------------------------------

void MyLatestFriendWidget::getDBFriendData(bool bRecv, const MessageData &message,
                                           DBFriendData &record) const
{
    LOG_SCOPE("MyLatestFriendWidget::getDBFriendData(bool bRecv, const MessageData &data, "
              "DBFriendData &record)");
    record = latestRowOf(bRecv, message, m_list->now());
}

void MyLatestFriendWidget::slot_setLatestFriendUi(bool bRecv, MessageData message)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_setLatestFriendUi(bool bRecv, MessageData data)");
    DBFriendData record;
    getDBFriendData(bRecv, message, record);
    if (record.jid.isEmpty()) {
        LOG_ERROR("a message belongs to no conversation");
        return;
    }
    m_list->message(record, bRecv && !isOwnMessage(message));
}

void MyLatestFriendWidget::slot_updateLatestContact(QString &strContactJid, QString &strLastContent,
                                                    QString &strLastTime)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_updateLatestContact(QString& strContactJid, QString& "
              "strLastContent, QString& strLastTime)");
    const QDateTime now = m_list->now();
    const QString content = storableContent(strLastContent);
    const QString time = strLastTime.isEmpty() ? QString() : storableTime(strLastTime, now);
    const auto apply = [&](LatestEntry &entry) {
        entry.row.unread = 0;
        if (!content.isEmpty() && content != entry.row.lastContent) {
            entry.row.lastContent = content;
            // Who wrote it is not told.
            if (entry.kind == MessageData::Room)
                entry.row.signature = QStringLiteral("");
        }
        if (!time.isEmpty())
            setLatestTime(&entry, time, now);
    };
    m_list->changeStored(strContactJid, apply, LatestWriter::Row);
}

void MyLatestFriendWidget::slot_removeLatest(QString jid)
{
    if (jid.isEmpty()) {
        LOG_DEBUG("entry fun MyLatestFriendWidget::slot_removelatest(const QString &jid)");
        LOG_DEBUG(
            "exit fun MyLatestFriendWidget::slot_removelatest(const QString &jid) jid is empty");
        return;
    }
    LOG_SCOPE("MyLatestFriendWidget::slot_removelatest(const QString &jid)");
    m_list->remove(jid);
}

void MyLatestFriendWidget::slot_clearLatest()
{
    LOG_SCOPE("MyLatestFriendWidget::slot_clearlatest()");
    m_list->clear();
}
