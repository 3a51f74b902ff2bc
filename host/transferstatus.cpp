#include "host/transferstatus.h"

#include "host/chat/chatpage.h"
#include "host/filetransfers.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

namespace {
constexpr int ProgressWidth = 120;
constexpr int LongestName = 24; // characters

QString shortName(const QString &name)
{
    const QString line = name.simplified();
    return line.size() > LongestName ? line.left(LongestName - 1) + QChar(0x2026) : line;
}
} // namespace

TransferStatus::TransferStatus(const MessagingCore *core, FileTransfers *transfers, QWidget *parent)
    : QWidget(parent),
      m_core(core),
      m_transfers(transfers),
      m_text(new QLabel(this)),
      m_progress(new QProgressBar(this)),
      m_cancel(new QToolButton(this))
{
    setObjectName(QStringLiteral("transferStatus"));
    m_text->setTextFormat(Qt::PlainText);
    m_progress->setFixedWidth(ProgressWidth);
    m_progress->setFixedHeight(fontMetrics().height());
    m_cancel->setObjectName(QStringLiteral("transferCancel"));
    m_cancel->setAutoRaise(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 0, 6, 0);
    layout->setSpacing(6);
    layout->addWidget(m_text);
    layout->addWidget(m_progress);
    layout->addWidget(m_cancel);
    connect(m_cancel, &QToolButton::clicked, m_transfers, &FileTransfers::cancelAll);
    connect(m_transfers, &FileTransfers::changed, this, &TransferStatus::showState);
    showState();
}

void TransferStatus::showState()
{
    setVisible(m_transfers->count() > 0);
    if (m_transfers->count() == 0)
        return;
    const QString file = shortName(m_transfers->currentFile());
    const QString receiver = shortName(ChatPage::nameOf(*m_core, m_transfers->currentJid()));
    m_text->setText(m_transfers->count() == 1 ? tr("Sending %1 to %2").arg(file, receiver)
                                              : tr("Sending %1 files").arg(m_transfers->count()));
    m_progress->setValue(m_transfers->percent());
    m_cancel->setText(tr("Cancel"));
}

void TransferStatus::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showState();
    QWidget::changeEvent(event);
}
