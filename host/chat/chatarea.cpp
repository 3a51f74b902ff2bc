#include "host/chat/chatarea.h"

#include "host/chat/chatpage.h"
#include "host/messagingcore.h"

#include <QEvent>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

ChatArea::ChatArea(MessagingCore *core, QWidget *parent)
    : QStackedWidget(parent), m_core(core), m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("chatArea"));
    m_tabs->setObjectName(QStringLiteral("chatTabs"));
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_tabs->tabBar()->setElideMode(Qt::ElideRight);
    m_tabs->tabBar()->setUsesScrollButtons(true);
    addWidget(buildWelcome());
    addWidget(m_tabs);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &ChatArea::close);
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int index) {
        if (index >= 0)
            showTitle(index, false);
        m_readTimer.start();
    });
    m_readTimer.setSingleShot(true);
    m_readTimer.setInterval(0);
    connect(&m_readTimer, &QTimer::timeout, this, &ChatArea::tellRead);
    connect(m_core, &MessagingCore::messageReceived, this, &ChatArea::take);
    connect(m_core, &MessagingCore::requestFailed, this,
            [this](const QString &request, const QString &jid) {
                ChatPage *page = pageOf(jid);
                if (page && request == QLatin1String("sendMessage"))
                    page->addNote(tr("The message could not be sent."));
            });
    retranslate();
}

QWidget *ChatArea::buildWelcome()
{
    auto *page = new QWidget(this);
    page->setObjectName(QStringLiteral("welcomePage"));
    m_welcomeTitle = new QLabel(page);
    m_welcomeText = new QLabel(page);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.7);
    m_welcomeTitle->setFont(large);
    m_welcomeText->setForegroundRole(QPalette::PlaceholderText);
    for (QLabel *label : {m_welcomeTitle, m_welcomeText}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
    }
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(40, 20, 40, 20);
    layout->setSpacing(12);
    layout->addStretch(2);
    layout->addWidget(m_welcomeTitle);
    layout->addWidget(m_welcomeText);
    layout->addStretch(3);
    return page;
}

ChatPage *ChatArea::pageOf(const QString &jid) const
{
    for (int i = 0; i < m_tabs->count(); ++i) {
        auto *page = static_cast<ChatPage *>(m_tabs->widget(i));
        if (page->jid() == jid)
            return page;
    }
    return nullptr;
}

ChatPage *ChatArea::currentPage() const
{
    return static_cast<ChatPage *>(m_tabs->currentWidget());
}

int ChatArea::count() const
{
    return m_tabs->count();
}

ChatPage *ChatArea::open(const QString &jid, MessageData::Kind kind)
{
    ChatPage *page = pageOf(jid);
    if (!page) {
        page = new ChatPage(m_core, jid, kind, m_tabs);
        if (kind == MessageData::ServiceNumber && m_pictureOf)
            page->setPicture(m_pictureOf(jid));
        connect(page, &ChatPage::sendFileWanted, this, &ChatArea::sendFileWanted);
        connect(page, &ChatPage::titleChanged, this,
                [this, page] { showTitle(m_tabs->indexOf(page), false); });
        showTitle(m_tabs->addTab(page, QString()), false);
    }
    m_tabs->setCurrentWidget(page);
    setCurrentWidget(m_tabs);
    m_readTimer.start();
    page->focusInput();
    return page;
}

void ChatArea::close(int index)
{
    m_tabs->widget(index)->deleteLater();
    m_tabs->removeTab(index);
    if (m_tabs->count() == 0)
        setCurrentIndex(0);
}

void ChatArea::showTitle(int index, bool unread)
{
    QString title = static_cast<ChatPage *>(m_tabs->widget(index))->title();
    // In a tab's text "&" marks a shortcut.
    title.replace(QLatin1Char('&'), QLatin1String("&&"));
    m_tabs->setTabText(index, unread ? QStringLiteral("● ") + title : title);
}

void ChatArea::take(bool received, const MessageData &message)
{
    ChatPage *page = pageOf(message.sessionJid);
    if (!page) {
        if (received)
            emit messageMissed(ChatPage::nameOf(*m_core, message.fromJid));
        return;
    }
    page->addMessage(message);
    const int index = m_tabs->indexOf(page);
    if (index == m_tabs->currentIndex())
        m_readTimer.start();
    else if (received)
        showTitle(index, true);
}

void ChatArea::tellRead()
{
    const ChatPage *page = currentPage();
    if (!page || !page->isVisible() || window()->isMinimized())
        return;
    const QList<MessageData> newest = m_core->messages(page->jid(), 1);
    if (!newest.isEmpty())
        emit conversationRead(newest.first());
}

void ChatArea::showEvent(QShowEvent *event)
{
    QStackedWidget::showEvent(event);
    m_readTimer.start();
}

void ChatArea::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QStackedWidget::changeEvent(event);
}

void ChatArea::retranslate()
{
    m_welcomeTitle->setText(tr("Reference host for FriendUI"));
    m_welcomeText->setText(
        tr("Choose a contact on the left to open a chat.\n"
           "The people of the sample company come, go and answer by themselves; the event "
           "monitor (F12) shows what the plug-in and this host say to each other."));
}
