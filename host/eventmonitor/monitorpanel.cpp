#include "host/eventmonitor/monitorpanel.h"

#include "host/eventmonitor/recordmodel.h"
#include "host/eventmonitor/wordfilter.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int CellPadding = 14;
constexpr int FrameMs = 16;
constexpr int HiddenMs = 500;
constexpr int TypingPauseMs = 200;
} // namespace

MonitorPanel::MonitorPanel(const QString &prefix, RecordModel *model, WordFilter *filter,
                           const QStringList &widest, QWidget *parent)
    : QWidget(parent),
      m_model(model),
      m_filter(filter),
      m_splitter(new QSplitter(Qt::Horizontal, this)),
      m_table(new QTableView(m_splitter)),
      m_text(new QLineEdit(this)),
      m_state(new QLabel(this)),
      m_filters(new QHBoxLayout),
      m_buttons(new QHBoxLayout)
{
    setObjectName(prefix + QStringLiteral("Monitor"));
    m_table->setObjectName(prefix + QStringLiteral("Table"));
    m_text->setObjectName(prefix + QStringLiteral("TextFilter"));
    m_state->setObjectName(prefix + QStringLiteral("State"));
    m_model->setParent(this);
    m_filter->setParent(this);
    m_filter->setSourceModel(model);
    m_table->setModel(filter);
    prepareTable(widest);
    m_text->setClearButtonEnabled(true);
    m_state->setTextFormat(Qt::PlainText);

    auto *bar = new QHBoxLayout;
    bar->addLayout(m_filters, 1);
    bar->addLayout(m_buttons);
    bar->addWidget(m_state);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    layout->addLayout(bar);
    layout->addWidget(m_splitter, 1);
    addFilter(m_text, 2);
    m_pause = addAction();
    m_pause->setCheckable(true);
    m_clear = addAction();
    m_copy = addAction(QKeySequence::Copy);

    m_flushTimer.setSingleShot(true);
    m_filterTimer.setSingleShot(true);
    m_filterTimer.setInterval(TypingPauseMs);
    connect(&m_flushTimer, &QTimer::timeout, this, &MonitorPanel::flush);
    connect(&m_filterTimer, &QTimer::timeout, this, [this] {
        applyFilter();
        updateState();
    });
    connect(m_text, &QLineEdit::textChanged, this, &MonitorPanel::filterSoon);
    connect(m_pause, &QAction::toggled, this, [this] {
        flush();
        updateState();
    });
    connect(m_clear, &QAction::triggered, this, [this] {
        m_model->clear();
        updateState();
    });
    connect(m_copy, &QAction::triggered, this,
            [this] { QApplication::clipboard()->setText(m_model->asText(chosenRows())); });
}

void MonitorPanel::prepareTable(const QStringList &widest)
{
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    const QFontMetrics metrics = m_table->fontMetrics();
    QHeaderView *rows = m_table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(metrics.height() + 6);
    for (int column = 0; column < widest.size(); ++column)
        m_table->setColumnWidth(column, metrics.horizontalAdvance(widest.at(column)) + CellPadding);
    QHeaderView *columns = m_table->horizontalHeader();
    columns->setStretchLastSection(true);
    columns->setHighlightSections(false);
    columns->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void MonitorPanel::addFilter(QWidget *filter, int stretch)
{
    m_filters->addWidget(filter, stretch);
}

QAction *MonitorPanel::addAction()
{
    auto *action = new QAction(this);
    auto *button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    m_buttons->addWidget(button);
    return action;
}

QAction *MonitorPanel::addAction(const QKeySequence &keys)
{
    QAction *action = addAction();
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_table->addAction(action);
    return action;
}

QVector<int> MonitorPanel::chosenRows() const
{
    QVector<int> rows;
    const auto selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(m_filter->mapToSource(index).row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void MonitorPanel::filterSoon()
{
    m_filterTimer.start();
}

void MonitorPanel::applyFilter()
{
    m_filter->setText(m_text->text());
}

void MonitorPanel::recorded()
{
    if (!m_pause->isChecked() && !m_flushTimer.isActive())
        m_flushTimer.start(isVisible() ? FrameMs : HiddenMs);
}

void MonitorPanel::flush()
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

void MonitorPanel::updateState()
{
    if (!isVisible())
        return;
    QString text = countText(m_filter->rowCount(), m_model->rowCount());
    if (m_model->dropped() > 0)
        text += QLatin1String(", ") + tr("%1 older ones dropped").arg(m_model->dropped());
    if (m_pause->isChecked())
        text += QLatin1String(", ") + tr("paused");
    m_state->setText(text);
}

void MonitorPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    flush();
}

void MonitorPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void MonitorPanel::retranslate()
{
    m_text->setPlaceholderText(tr("Filter: words in any column"));
    m_pause->setText(tr("Pause"));
    m_clear->setText(tr("Clear"));
    m_copy->setText(tr("Copy"));
    emit m_model->headerDataChanged(Qt::Horizontal, 0, m_model->columnCount() - 1);
    updateState();
}
