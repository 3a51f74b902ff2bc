#include "host/windows/contactrequests.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int JidRole = Qt::UserRole + 1;
constexpr int LongestName = 64; // characters
constexpr int LongestText = 200;
} // namespace

ContactRequests::ContactRequests(QWidget *parent)
    : QDialog(parent),
      m_list(new QListWidget(this)),
      m_add(new QPushButton(this)),
      m_ignore(new QPushButton(this))
{
    setObjectName(QStringLiteral("contactRequests"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_list->setObjectName(QStringLiteral("requestList"));
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setUniformItemSizes(true);
    m_add->setObjectName(QStringLiteral("addRequested"));
    m_add->setDefault(true);
    m_ignore->setObjectName(QStringLiteral("ignoreRequested"));

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_add);
    buttons->addWidget(m_ignore);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    resize(440, 260);

    connect(m_list, &QListWidget::itemSelectionChanged, this, &ContactRequests::enableButtons);
    connect(m_add, &QPushButton::clicked, this, [this] {
        const QListWidgetItem *item = m_list->currentItem();
        if (!item)
            return;
        const QString jid = item->data(JidRole).toString();
        remove(jid);
        emit addWanted(jid);
    });
    connect(m_ignore, &QPushButton::clicked, this, [this] {
        if (const QListWidgetItem *item = m_list->currentItem())
            remove(item->data(JidRole).toString());
    });
    retranslate();
    enableButtons();
}

int ContactRequests::rowOf(const QString &jid) const
{
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->data(JidRole) == jid)
            return row;
    }
    return -1;
}

void ContactRequests::add(const QString &jid, const QString &name, const QString &text)
{
    const int known = rowOf(jid);
    QListWidgetItem *item = known < 0 ? new QListWidgetItem : m_list->takeItem(known);
    const QString said = text.simplified().left(LongestText);
    const QString who = name.simplified().left(LongestName);
    item->setText(said.isEmpty() ? who : who + QStringLiteral(": ") + said);
    item->setData(JidRole, jid);
    m_list->insertItem(0, item);
    while (m_list->count() > MaximumRows)
        delete m_list->takeItem(m_list->count() - 1);
    if (!m_list->currentItem())
        m_list->setCurrentRow(0);
    if (!isVisible())
        show();
}

void ContactRequests::remove(const QString &jid)
{
    const int row = rowOf(jid);
    if (row < 0)
        return;
    delete m_list->takeItem(row);
    enableButtons();
    if (m_list->count() == 0)
        hide();
}

void ContactRequests::enableButtons()
{
    const bool isChosen = !m_list->selectedItems().isEmpty();
    m_add->setEnabled(isChosen);
    m_ignore->setEnabled(isChosen);
}

void ContactRequests::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void ContactRequests::retranslate()
{
    setWindowTitle(tr("Contact requests"));
    m_add->setText(tr("Add as contact"));
    m_ignore->setText(tr("Ignore"));
}
