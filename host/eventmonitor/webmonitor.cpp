#include "host/eventmonitor/webmonitor.h"

#include "host/eventmonitor/monitortable.h"
#include "host/eventmonitor/webrequestmodel.h"
#include "host/eventmonitor/wordfilter.h"
#include "host/weblog.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
constexpr int FrameMs = 16;
constexpr int HiddenMs = 500;
constexpr int TypingPauseMs = 200;
} // namespace

WebMonitor::WebMonitor(const WebLog *log, QWidget *parent)
    : QWidget(parent),
      m_model(new WebRequestModel(this)),
      m_filter(new WordFilter(this)),
      m_table(new QTableView(this))
{
    setObjectName(QStringLiteral("webMonitor"));
    m_filter->setSourceModel(m_model);
    m_table->setObjectName(QStringLiteral("webTable"));
    m_table->setModel(m_filter);
    MonitorTable::prepare(m_table,
                          {QStringLiteral("00:00:00.000"), QStringLiteral("DELETE"),
                           QStringLiteral("Status"), QStringLiteral("00000000"),
                           QStringLiteral("Bytes received"), QStringLiteral("Bytes received"),
                           QStringLiteral("https://127.0.0.1:40000/center/vt/"
                                          "getVirtualTeamMemberDetail.do")});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(buildBar());
    layout->addWidget(m_table, 1);

    m_flushTimer.setSingleShot(true);
    m_filterTimer.setSingleShot(true);
    connect(&m_flushTimer, &QTimer::timeout, this, &WebMonitor::flush);
    connect(&m_filterTimer, &QTimer::timeout, this, [this] {
        m_filter->setText(m_text->text());
        updateState();
    });
    if (log)
        connect(log, &WebLog::recorded, this, &WebMonitor::record);
    retranslate();
}

QWidget *WebMonitor::buildBar()
{
    auto *bar = new QWidget(this);
    m_text = new QLineEdit(bar);
    m_text->setObjectName(QStringLiteral("webTextFilter"));
    m_text->setClearButtonEnabled(true);
    m_state = new QLabel(bar);
    m_state->setObjectName(QStringLiteral("webState"));
    m_state->setTextFormat(Qt::PlainText);
    m_clear = new QAction(this);
    m_copy = new QAction(this);
    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_table->addAction(m_copy);

    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    for (QAction *action : {m_clear, m_copy})
        layout->addWidget(MonitorTable::buttonFor(action, bar));
    layout->addWidget(m_state);

    connect(m_text, &QLineEdit::textChanged, this, [this] { m_filterTimer.start(TypingPauseMs); });
    connect(m_clear, &QAction::triggered, this, [this] {
        m_model->clear();
        updateState();
    });
    connect(m_copy, &QAction::triggered, this, &WebMonitor::copy);
    return bar;
}

void WebMonitor::record(const WebRequestRecord &record)
{
    m_model->record(record);
    if (!m_flushTimer.isActive())
        m_flushTimer.start(isVisible() ? FrameMs : HiddenMs);
}

void WebMonitor::flush()
{
    const QScrollBar *bar = m_table->verticalScrollBar();
    const bool atEnd = bar->value() >= bar->maximum();
    m_model->flush();
    if (atEnd && isVisible())
        m_table->scrollToBottom();
    updateState();
}

void WebMonitor::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    flush();
}

void WebMonitor::copy()
{
    QApplication::clipboard()->setText(
        m_model->asText(MonitorTable::chosenRows(m_table, m_filter)));
}

void WebMonitor::updateState()
{
    if (!isVisible())
        return;
    const int shown = m_filter->rowCount();
    const int all = m_model->rowCount();
    QString text =
        shown == all ? tr("%1 requests").arg(all) : tr("%1 of %2 requests").arg(shown).arg(all);
    if (m_model->dropped() > 0)
        text += QLatin1String(", ") + tr("%1 older ones dropped").arg(m_model->dropped());
    m_state->setText(text);
}

void WebMonitor::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void WebMonitor::retranslate()
{
    m_text->setPlaceholderText(tr("Filter: words in any column"));
    m_table->setAccessibleName(tr("Web requests"));
    m_clear->setText(tr("Clear"));
    m_copy->setText(tr("Copy"));
    emit m_model->headerDataChanged(Qt::Horizontal, 0, WebRequestModel::ColumnCount - 1);
    updateState();
}
