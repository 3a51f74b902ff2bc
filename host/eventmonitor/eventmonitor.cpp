#include "host/eventmonitor/eventmonitor.h"

#include "host/eventmonitor/eventfilter.h"
#include "host/eventmonitor/eventmodel.h"
#include "host/eventmonitor/monitortable.h"
#include "host/eventmonitor/payloaddecoder.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
constexpr int FrameMs = 16;
constexpr int HiddenMs = 500;
constexpr int TypingPauseMs = 200;

QString addressText(const QString &pluginId)
{
    const QString name = EventCatalogue::receiverName(pluginId);
    return name == pluginId ? pluginId : name + QLatin1Char(' ') + pluginId;
}
} // namespace

EventMonitor::EventMonitor(EventLog *log, QWidget *parent)
    : QWidget(parent),
      m_model(new EventModel(this)),
      m_filter(new EventFilter(this)),
      m_table(new QTableView(this)),
      m_details(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("eventMonitor"));
    m_filter->setSourceModel(m_model);
    buildTable();

    m_details->setObjectName(QStringLiteral("eventDetails"));
    m_details->setReadOnly(true);
    m_details->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_details->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(m_table);
    splitter->addWidget(m_details);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({760, 340});
    splitter->setChildrenCollapsible(false);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(buildBar());
    layout->addWidget(splitter, 1);

    m_flushTimer.setSingleShot(true);
    m_filterTimer.setSingleShot(true);
    connect(&m_flushTimer, &QTimer::timeout, this, &EventMonitor::flush);
    connect(&m_filterTimer, &QTimer::timeout, this, [this] {
        m_filter->setText(m_text->text());
        m_filter->setCodes(m_codes->text());
        updateState();
    });
    connect(log, &EventLog::recorded, this, &EventMonitor::record);
    retranslate();
}

void EventMonitor::buildTable()
{
    m_table->setObjectName(QStringLiteral("eventTable"));
    m_table->setModel(m_filter);
    MonitorTable::prepare(m_table, {QStringLiteral("00:00:00.000"), QStringLiteral("← plug-in"),
                                    QStringLiteral("00000"), QStringLiteral("ContactRequestAnswer"),
                                    QStringLiteral("friendui"), QStringLiteral("everybody")});
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &EventMonitor::showDetails);
}

QWidget *EventMonitor::buildBar()
{
    auto *bar = new QWidget(this);
    m_text = new QLineEdit(bar);
    m_text->setObjectName(QStringLiteral("eventTextFilter"));
    m_text->setClearButtonEnabled(true);
    m_codes = new QLineEdit(bar);
    m_codes->setObjectName(QStringLiteral("eventCodeFilter"));
    m_codes->setClearButtonEnabled(true);
    m_codes->setMinimumWidth(190);
    m_direction = new QComboBox(bar);
    m_direction->setObjectName(QStringLiteral("eventDirectionFilter"));
    for (int direction : {EventFilter::Both, EventFilter::ToPlugin, EventFilter::FromPlugin})
        m_direction->addItem(QString(), direction);
    m_state = new QLabel(bar);
    m_state->setTextFormat(Qt::PlainText);

    m_pause = new QAction(this);
    m_pause->setCheckable(true);
    m_clear = new QAction(this);
    m_copy = new QAction(this);
    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_copyJson = new QAction(this);
    m_copyJson->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C));
    m_copyJson->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_table->addActions({m_copy, m_copyJson});

    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 2);
    layout->addWidget(m_codes, 1);
    layout->addWidget(m_direction);
    for (QAction *action : {m_pause, m_clear, m_copy, m_copyJson})
        layout->addWidget(MonitorTable::buttonFor(action, bar));
    layout->addWidget(m_state);

    connect(m_text, &QLineEdit::textChanged, this, [this] { m_filterTimer.start(TypingPauseMs); });
    connect(m_codes, &QLineEdit::textChanged, this, [this] { m_filterTimer.start(TypingPauseMs); });
    connect(m_direction, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_filter->setDirection(EventFilter::Direction(m_direction->currentData().toInt()));
        updateState();
    });
    connect(m_pause, &QAction::toggled, this, &EventMonitor::setPaused);
    connect(m_clear, &QAction::triggered, this, [this] {
        m_model->clear();
        showDetails();
        updateState();
    });
    connect(m_copy, &QAction::triggered, this, &EventMonitor::copyText);
    connect(m_copyJson, &QAction::triggered, this, &EventMonitor::copyJson);
    return bar;
}

void EventMonitor::record(const EventRecord &record)
{
    m_model->record(record);
    if (m_pause->isChecked() || m_flushTimer.isActive())
        return;
    m_flushTimer.start(isVisible() ? FrameMs : HiddenMs);
}

void EventMonitor::flush()
{
    if (m_pause->isChecked())
        return;
    const QScrollBar *bar = m_table->verticalScrollBar();
    const bool atEnd = bar->value() >= bar->maximum();
    m_model->flush();
    if (atEnd && isVisible())
        m_table->scrollToBottom();
    updateState();
}

void EventMonitor::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    flush();
}

void EventMonitor::setPaused(bool paused)
{
    if (!paused)
        flush();
    updateState();
}

void EventMonitor::updateState()
{
    if (!isVisible())
        return;
    const int shown = m_filter->rowCount();
    const int all = m_model->rowCount();
    QString text =
        shown == all ? tr("%1 events").arg(all) : tr("%1 of %2 events").arg(shown).arg(all);
    if (m_model->dropped() > 0)
        text += QLatin1String(", ") + tr("%1 older ones dropped").arg(m_model->dropped());
    if (m_pause->isChecked())
        text += QLatin1String(", ") + tr("paused");
    m_state->setText(text);
}

void EventMonitor::showDetails()
{
    const QModelIndex current = m_filter->mapToSource(m_table->currentIndex());
    if (!current.isValid()) {
        m_details->clear();
        return;
    }
    const EventRecord &record = m_model->at(current.row());
    const EventInfo *info = EventCatalogue::find(record.direction, record.code);
    const DecodedPayload decoded =
        PayloadDecoder::decode(info, record.payload, PayloadDecoder::Full);
    QString text = QStringLiteral("%1 %2\n").arg(record.code).arg(EventModel::nameOf(record));
    if (info)
        text += QString::fromLatin1(info->purpose) + QLatin1Char('\n');
    text +=
        QStringLiteral("\n%1 → %2\n\n")
            .arg(addressText(record.sender),
                 record.receiver.isEmpty() ? tr("every plug-in") : addressText(record.receiver));
    text += decoded.text();
    text += QLatin1Char('\n') + tr("%1 bytes").arg(record.payload.size()) + QLatin1Char('\n');
    if (!decoded.hasSecrets)
        text += PayloadDecoder::hexDump(record.payload);
    m_details->setPlainText(text);
}

QVector<int> EventMonitor::chosenRows() const
{
    return MonitorTable::chosenRows(m_table, m_filter);
}

void EventMonitor::copyText()
{
    QApplication::clipboard()->setText(m_model->asText(chosenRows()));
}

void EventMonitor::copyJson()
{
    const QJsonDocument document(m_model->asJson(chosenRows()));
    QApplication::clipboard()->setText(QString::fromUtf8(document.toJson()));
}

void EventMonitor::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void EventMonitor::retranslate()
{
    m_text->setPlaceholderText(tr("Filter: words in any column"));
    m_codes->setPlaceholderText(tr("Codes: 4118, 4356-4362"));
    m_direction->setItemText(0, tr("Both directions"));
    m_direction->setItemText(1, tr("To the plug-in"));
    m_direction->setItemText(2, tr("From the plug-in"));
    m_pause->setText(tr("Pause"));
    m_clear->setText(tr("Clear"));
    m_copy->setText(tr("Copy"));
    m_copyJson->setText(tr("Copy as JSON"));
    emit m_model->headerDataChanged(Qt::Horizontal, 0, EventModel::ColumnCount - 1);
    updateState();
}
