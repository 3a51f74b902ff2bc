#include "host/chat/chatpage.h"

#include "host/chat/chatview.h"
#include "host/messagingcore.h"
#include "host/presencewords.h"
#include "messages/messagebody.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int HistoryLength = 200;
constexpr int MaximumMessage = 5000;
constexpr int PictureSide = 28; // device-independent pixels

QFrame *line(QWidget *parent)
{
    auto *frame = new QFrame(parent);
    frame->setFrameShape(QFrame::HLine);
    frame->setFrameShadow(QFrame::Plain);
    frame->setForegroundRole(QPalette::Mid);
    frame->setFixedHeight(1);
    return frame;
}

} // namespace

ChatPage::ChatPage(MessagingCore *core, const QString &jid, MessageData::Kind kind, QWidget *parent)
    : QWidget(parent),
      m_core(core),
      m_jid(jid),
      m_kind(kind),
      m_picture(new QLabel(this)),
      m_title(new QLabel(this)),
      m_state(new QLabel(this)),
      m_oneWay(new QLabel(this)),
      m_view(new ChatView(this)),
      m_input(new QPlainTextEdit(this)),
      m_send(new QPushButton(this)),
      m_sendFile(new QPushButton(this)),
      m_sendLink(new QPushButton(this))
{
    setObjectName(QStringLiteral("chatPage"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    for (QLabel *label : {m_picture, m_title, m_state, m_oneWay})
        label->setTextFormat(Qt::PlainText);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.2);
    large.setBold(true);
    m_title->setFont(large);
    m_picture->setObjectName(QStringLiteral("chatPicture"));
    m_picture->hide();
    m_oneWay->setObjectName(QStringLiteral("chatOneWay"));
    m_oneWay->setWordWrap(true);
    for (QLabel *label : {m_state, m_oneWay})
        label->setForegroundRole(QPalette::PlaceholderText);
    m_input->setObjectName(QStringLiteral("chatInput"));
    m_input->setFrameShape(QFrame::NoFrame);
    m_input->setFixedHeight(fontMetrics().height() * 4 + 16);
    m_input->installEventFilter(this);

    auto *head = new QHBoxLayout;
    head->setContentsMargins(14, 10, 14, 10);
    head->setSpacing(10);
    head->addWidget(m_picture);
    head->addWidget(m_title);
    head->addWidget(m_state, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(line(this));
    layout->addWidget(m_view, 1);
    layout->addWidget(line(this));
    layout->addLayout(buildFoot());

    connectCore();
    retranslate();
    loadHistory();
}

QLayout *ChatPage::buildFoot()
{
    m_send->setObjectName(QStringLiteral("chatSend"));
    m_sendFile->setObjectName(QStringLiteral("chatSendFile"));
    m_sendLink->setObjectName(QStringLiteral("chatSendLink"));
    for (QPushButton *button : {m_sendFile, m_sendLink})
        button->setAutoDefault(false);
    auto *buttons = new QVBoxLayout;
    buttons->setSpacing(4);
    buttons->addStretch(1);
    for (QPushButton *button : {m_sendFile, m_sendLink, m_send})
        buttons->addWidget(button);
    auto *foot = new QHBoxLayout;
    foot->setContentsMargins(10, 6, 14, 12);
    foot->addWidget(m_input, 1);
    foot->addWidget(m_oneWay, 1);
    foot->addLayout(buttons);
    connect(m_send, &QPushButton::clicked, this, &ChatPage::send);
    connect(m_sendFile, &QPushButton::clicked, this,
            [this] { emit sendFileWanted(m_jid, m_kind); });
    connect(m_sendLink, &QPushButton::clicked, this, &ChatPage::sendLink);
    return foot;
}

void ChatPage::connectCore()
{
    connect(m_core, &MessagingCore::presenceChanged, this,
            [this](const QMap<QString, PresenceData> &changed) {
                if (changed.contains(m_jid))
                    showState();
            });
    connect(m_core, &MessagingCore::connectionChanged, this, &ChatPage::showState);
    connect(m_core, &MessagingCore::remarkChanged, this, [this] { retranslate(); });
    connect(m_core, &MessagingCore::roomMembersChanged, this, &ChatPage::showState);
    connect(m_core, &MessagingCore::roomRenamed, this,
            [this](const QString &roomJid, const QString &, const QString &modifier) {
                if (roomJid != m_jid)
                    return;
                retranslate();
                addNote(tr("%1 renamed the group chat.").arg(modifier.simplified()));
                emit titleChanged();
            });
    connect(m_core, &MessagingCore::roomMuted, this, &ChatPage::showRights);
    for (const auto end : {&MessagingCore::roomLeft, &MessagingCore::roomDismissed}) {
        connect(m_core, end, this, [this](const QString &roomJid) {
            if (roomJid == m_jid)
                showRights();
        });
    }
}

QString ChatPage::nameOf(const MessagingCore &core, const QString &jid)
{
    FriendData contact;
    if (core.contact(jid, &contact)) {
        if (!contact.remark.isEmpty())
            return contact.remark;
        if (!contact.nickName.isEmpty())
            return contact.nickName;
    }
    MucData room;
    if (core.room(jid, &room) && !room.roomName.isEmpty())
        return room.roomName;
    VcardInfo profile;
    core.profile(jid, &profile);
    for (const QString &name : {profile.nickName, profile.userName}) {
        if (!name.isEmpty())
            return name;
    }
    CSChannelData channel;
    if (core.channel(jid, &channel) && !channel.name.isEmpty())
        return channel.name;
    CServiceNumData number;
    if (core.serviceNumber(jid, &number) && !number.name.isEmpty())
        return number.name;
    // A room that the user has left is still called what it was.
    const QList<MessageData> last = core.messages(jid, 1);
    if (!last.isEmpty() && !last.first().displayName.isEmpty())
        return last.first().displayName;
    const QString user = jid.section(QLatin1Char('@'), 0, 0);
    return user.isEmpty() ? jid : user;
}

QString ChatPage::title() const
{
    const QString name = nameOf(*m_core, m_jid).simplified().left(64);
    return name.isEmpty() ? QStringLiteral("?") : name;
}

void ChatPage::loadHistory()
{
    const QList<MessageData> messages = m_core->messages(m_jid, HistoryLength);
    for (const MessageData &message : messages)
        addMessage(message);
}

void ChatPage::addMessage(const MessageData &message)
{
    const bool isOwn = message.fromJid == m_core->ownJid();
    m_view->addMessage(message, nameOf(*m_core, message.fromJid), isOwn);
}

void ChatPage::addNote(const QString &text)
{
    m_view->addNote(text);
}

void ChatPage::focusInput()
{
    m_input->setFocus(Qt::OtherFocusReason);
}

void ChatPage::setPicture(const QString &file)
{
    const QIcon picture(file);
    const QPixmap shown = picture.pixmap(windowHandle(), QSize(PictureSide, PictureSide));
    m_picture->setPixmap(shown);
    m_picture->setVisible(!file.isEmpty() && !shown.isNull());
}

void ChatPage::send()
{
    const QString text = m_input->toPlainText().trimmed();
    if (text.isEmpty())
        return;
    if (text.size() > MaximumMessage) {
        addNote(tr("A message holds at most %1 characters.").arg(MaximumMessage));
        return;
    }
    m_input->clear();
    m_core->sendMessage(m_jid, m_kind, text);
}

void ChatPage::sendLink()
{
    auto *dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Send a link"));
    dialog->setLabelText(tr("Address"));
    dialog->setTextValue(QStringLiteral("https://"));
    dialog->resize(420, dialog->height());
    connect(dialog, &QInputDialog::textValueSelected, this, [this](const QString &address) {
        const QUrl url(address.trimmed(), QUrl::StrictMode);
        const bool isWeb =
            url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
        if (!url.isValid() || !isWeb || url.host().isEmpty()) {
            addNote(tr("This is no web address."));
            return;
        }
        MessageBody message;
        message.kind = MessageBody::Link;
        message.title = url.host();
        message.url = url.toString(QUrl::FullyEncoded);
        m_core->sendMessage(m_jid, m_kind, writeMessageBody(message));
    });
    dialog->open();
}

// Where the user may not write, the page says so.
void ChatPage::showRights()
{
    CServiceNumData number;
    const bool isOneWay = m_kind == MessageData::ServiceNumber &&
                          m_core->serviceNumber(m_jid, &number) && !number.isInteractive;
    m_oneWay->setVisible(isOneWay);
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_input, m_send, m_sendFile, m_sendLink})
        widget->setVisible(!isOneWay);
    if (m_kind != MessageData::Room)
        return;
    MucData room;
    const bool isIn = m_core->room(m_jid, &room);
    const bool may = isIn && !room.forbidden;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_input, m_send, m_sendFile, m_sendLink})
        widget->setEnabled(may);
    if (!isIn)
        m_input->setPlaceholderText(tr("You do not belong to this group chat"));
    else if (!may)
        m_input->setPlaceholderText(tr("You may not write in this group chat"));
    else
        m_input->setPlaceholderText(tr("Message; Enter sends, Shift+Enter begins a line"));
}

bool ChatPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_input && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (isEnter && !(key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))) {
            send();
            return true;
        }
        if (isEnter && key->modifiers() & Qt::ControlModifier) {
            m_input->insertPlainText(QStringLiteral("\n"));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

QString ChatPage::roomState() const
{
    const int members = m_core->roomMembers(m_jid).size();
    return members > 0 ? tr("%1 members").arg(members) : tr("no longer available");
}

QString ChatPage::channelState() const
{
    CSChannelData channel;
    if (!m_core->channel(m_jid, &channel))
        return tr("no longer available");
    const QString groups = channel.workgroups.join(QStringLiteral(", ")).simplified();
    const QString state = channel.isOpen ? tr("open") : tr("closed now");
    return groups.isEmpty() ? state : state + QLatin1String("  ") + groups;
}

void ChatPage::showState()
{
    QString text;
    if (!m_core->isConnected())
        text = tr("no connection");
    else if (m_kind == MessageData::Person)
        text = PresenceWords::of(m_core->presence(m_jid));
    else if (m_kind == MessageData::Room)
        text = roomState();
    else if (m_kind == MessageData::Channel)
        text = channelState();
    m_state->setText(text);
}

void ChatPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void ChatPage::retranslate()
{
    m_title->setText(title());
    m_input->setPlaceholderText(tr("Message; Enter sends, Shift+Enter begins a line"));
    m_view->setPlaceholderText(tr("No messages yet"));
    m_oneWay->setText(tr("This service number only sends messages; it takes none."));
    m_send->setText(tr("Send"));
    m_sendFile->setText(tr("File…"));
    m_sendLink->setText(tr("Link…"));
    showState();
    showRights();
}
