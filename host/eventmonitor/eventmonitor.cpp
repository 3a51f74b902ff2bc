#include "host/eventmonitor/eventmonitor.h"

#include "host/eventmonitor/eventfilter.h"
#include "host/eventmonitor/eventmodel.h"
#include "host/eventmonitor/payloaddecoder.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTableView>

namespace {
QString addressText(const QString &pluginId)
{
    const QString name = EventCatalogue::receiverName(pluginId);
    return name == pluginId ? pluginId : name + QLatin1Char(' ') + pluginId;
}
} // namespace

EventMonitor::EventMonitor(EventLog *log, QWidget *parent)
    : EventMonitor(new EventModel, new EventFilter, log, parent)
{
}

EventMonitor::EventMonitor(EventModel *model, EventFilter *filter, const EventLog *log,
                           QWidget *parent)
    : MonitorPanel(QStringLiteral("event"), model, filter,
                   {QStringLiteral("00:00:00.000"), QStringLiteral("← plug-in"),
                    QStringLiteral("00000"), QStringLiteral("ContactRequestAnswer"),
                    QStringLiteral("friendui"), QStringLiteral("everybody")},
                   parent),
      m_model(model),
      m_filter(filter)
{
    addFilters();
    addDetails();
    m_copyJson = addAction(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C));
    connect(m_copyJson, &QAction::triggered, this, &EventMonitor::copyJson);
    connect(log, &EventLog::recorded, this, [this](const EventRecord &record) {
        m_model->record(record);
        recorded();
    });
    EventMonitor::retranslate();
}

void EventMonitor::addFilters()
{
    m_codes = new QLineEdit(this);
    m_codes->setObjectName(QStringLiteral("eventCodeFilter"));
    m_codes->setClearButtonEnabled(true);
    m_codes->setMinimumWidth(190);
    addFilter(m_codes, 1);
    m_direction = new QComboBox(this);
    m_direction->setObjectName(QStringLiteral("eventDirectionFilter"));
    for (int direction : {EventFilter::Both, EventFilter::ToPlugin, EventFilter::FromPlugin})
        m_direction->addItem(QString(), direction);
    addFilter(m_direction);
    connect(m_codes, &QLineEdit::textChanged, this, &EventMonitor::filterSoon);
    connect(m_direction, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_filter->setDirection(EventFilter::Direction(m_direction->currentData().toInt()));
        updateState();
    });
}

void EventMonitor::addDetails()
{
    m_details = new QPlainTextEdit(splitter());
    m_details->setObjectName(QStringLiteral("eventDetails"));
    m_details->setReadOnly(true);
    m_details->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_details->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    splitter()->setStretchFactor(0, 3);
    splitter()->setStretchFactor(1, 2);
    splitter()->setSizes({760, 340});
    splitter()->setChildrenCollapsible(false);
    connect(table()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &EventMonitor::showDetails);
    connect(m_model, &QAbstractItemModel::modelReset, this, &EventMonitor::showDetails);
}

void EventMonitor::showDetails()
{
    const QModelIndex current = m_filter->mapToSource(table()->currentIndex());
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

void EventMonitor::copyJson()
{
    const QJsonDocument document(m_model->asJson(chosenRows()));
    QApplication::clipboard()->setText(QString::fromUtf8(document.toJson()));
}

void EventMonitor::applyFilter()
{
    MonitorPanel::applyFilter();
    m_filter->setCodes(m_codes->text());
}

QString EventMonitor::countText(int shown, int all) const
{
    return shown == all ? tr("%1 events").arg(all) : tr("%1 of %2 events").arg(shown).arg(all);
}

void EventMonitor::retranslate()
{
    m_codes->setPlaceholderText(tr("Codes: 4118, 4356-4362"));
    m_direction->setItemText(0, tr("Both directions"));
    m_direction->setItemText(1, tr("To the plug-in"));
    m_direction->setItemText(2, tr("From the plug-in"));
    m_copyJson->setText(tr("Copy as JSON"));
    MonitorPanel::retranslate();
}
