#include "host/windows/historywindow.h"

#include "host/chat/chatpage.h"
#include "host/chat/chatview.h"
#include "host/messagingcore.h"

#include <QVBoxLayout>

namespace {
constexpr int Length = 1000;
}

HistoryWindow::HistoryWindow(const MessagingCore &core, const QString &jid, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("historyWindow"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Message history: %1").arg(ChatPage::nameOf(core, jid).simplified()));
    auto *view = new ChatView(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    const QList<MessageData> messages = core.messages(jid, Length);
    for (const MessageData &message : messages)
        view->addMessage(message, ChatPage::nameOf(core, message.fromJid),
                         message.fromJid == core.ownJid());
    view->setPlaceholderText(tr("No messages yet"));
    resize(520, 480);
}
