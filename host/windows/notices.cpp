#include "host/windows/notices.h"

#include "common/displaytext.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int KindRole = Qt::UserRole + 1;
constexpr int IdRole = Qt::UserRole + 2;
constexpr int UnreadRole = Qt::UserRole + 3;
constexpr int LongestName = 64; // characters
constexpr int LongestText = 200;

Notice::Kind kindOf(const QListWidgetItem *item)
{
    return Notice::Kind(item->data(KindRole).toInt());
}

QString idOf(const QListWidgetItem *item)
{
    return item->data(IdRole).toString();
}

void setUnread(QListWidgetItem *item, bool unread)
{
    item->setData(UnreadRole, unread);
    QFont font = item->font();
    font.setBold(unread);
    item->setFont(font);
}
} // namespace

Notices::Notices(QWidget *parent)
    : QDialog(parent),
      m_list(new QListWidget(this)),
      m_accept(new QPushButton(this)),
      m_ignore(new QPushButton(this))
{
    setObjectName(QStringLiteral("notices"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_list->setObjectName(QStringLiteral("noticeList"));
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setUniformItemSizes(true);
    m_accept->setObjectName(QStringLiteral("acceptNotice"));
    m_accept->setDefault(true);
    m_ignore->setObjectName(QStringLiteral("ignoreNotice"));

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_accept);
    buttons->addWidget(m_ignore);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    resize(580, 320);

    connect(m_list, &QListWidget::itemSelectionChanged, this, &Notices::showState);
    connect(m_list, &QListWidget::itemClicked, this, &Notices::setRead);
    // Not itemActivated: Enter presses the button as well.
    connect(m_list, &QListWidget::itemDoubleClicked, this, &Notices::accept);
    connect(m_accept, &QPushButton::clicked, this, [this] { accept(m_list->currentItem()); });
    connect(m_ignore, &QPushButton::clicked, this, [this] { ignore(m_list->currentItem()); });
    retranslate();
}

QListWidgetItem *Notices::find(Notice::Kind kind, const QString &id) const
{
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem *item = m_list->item(row);
        if (kindOf(item) == kind && idOf(item) == id)
            return item;
    }
    return nullptr;
}

void Notices::put(const Notice &notice, int row)
{
    QListWidgetItem *item = find(notice.kind, notice.id);
    const bool isKnown = item != nullptr;
    if (!isKnown)
        item = new QListWidgetItem;
    const QString said = notice.text.simplified().left(LongestText);
    const QString who = notice.name.simplified().left(LongestName);
    item->setText(said.isEmpty() ? who : who + QStringLiteral(": ") + said);
    item->setToolTip(toolTipText(item->text())); // the row may be too short for it
    item->setData(KindRole, notice.kind);
    item->setData(IdRole, notice.id);
    if (isKnown && m_list->row(item) == row)
        return;
    if (isKnown)
        m_list->takeItem(m_list->row(item));
    else
        setUnread(item, true);
    m_list->insertItem(row, item);
    while (m_list->count() > MaximumRows)
        delete m_list->takeItem(m_list->count() - 1);
}

void Notices::add(const Notice &notice)
{
    m_ignored[notice.kind].remove(notice.id);
    put(notice, 0);
    if (QListWidgetItem *item = find(notice.kind, notice.id))
        setUnread(item, true);
    if (!isVisible())
        show();
    showState();
}

void Notices::setAll(Notice::Kind kind, const QList<Notice> &notices)
{
    QSet<QString> wanted;
    for (const Notice &notice : notices)
        wanted.insert(notice.id);
    for (int row = m_list->count() - 1; row >= 0; --row) {
        const QListWidgetItem *item = m_list->item(row);
        if (kindOf(item) == kind && !wanted.contains(idOf(item)))
            delete m_list->takeItem(row);
    }
    m_ignored[kind].intersect(wanted);
    for (const Notice &notice : notices) {
        QListWidgetItem *item = find(kind, notice.id);
        const bool isNew = !item && !m_ignored[kind].contains(notice.id);
        if (item)
            put(notice, m_list->row(item)); // where it is, perhaps in other words
        else if (isNew)
            put(notice, 0);
        if (isNew && !isVisible())
            show();
    }
    showState();
}

void Notices::remove(Notice::Kind kind, const QString &id)
{
    take(find(kind, id));
}

void Notices::take(QListWidgetItem *item)
{
    if (!item)
        return;
    delete m_list->takeItem(m_list->row(item));
    showState();
}

void Notices::accept(QListWidgetItem *item)
{
    if (!item)
        return;
    const Notice::Kind kind = kindOf(item);
    const QString id = idOf(item);
    setRead(item);
    if (kind == Notice::ContactRequest)
        take(item);
    emit accepted(kind, id);
}

void Notices::ignore(QListWidgetItem *item)
{
    if (!item)
        return;
    // It still waits, and is told of again and again.
    if (kindOf(item) != Notice::ContactRequest)
        m_ignored[kindOf(item)].insert(idOf(item));
    take(item);
}

void Notices::setRead(QListWidgetItem *item)
{
    setUnread(item, false);
    emit countsChanged();
}

int Notices::count() const
{
    return m_list->count();
}

int Notices::unread() const
{
    int count = 0;
    for (int row = 0; row < m_list->count(); ++row)
        count += m_list->item(row)->data(UnreadRole).toBool() ? 1 : 0;
    return count;
}

void Notices::showState()
{
    // A list that gets the focus has a current row, but none that is selected.
    if (m_list->selectedItems().isEmpty() && m_list->count() > 0)
        m_list->setCurrentRow(qMax(0, m_list->currentRow()), QItemSelectionModel::ClearAndSelect);
    const QListWidgetItem *item = m_list->selectedItems().value(0);
    m_accept->setEnabled(item != nullptr);
    m_ignore->setEnabled(item != nullptr);
    const bool isContact = !item || kindOf(item) == Notice::ContactRequest;
    m_accept->setText(isContact ? tr("Add as contact") : tr("Decide"));
    if (m_list->count() == 0)
        hide();
    emit countsChanged();
}

void Notices::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void Notices::retranslate()
{
    setWindowTitle(tr("Notices"));
    m_ignore->setText(tr("Ignore"));
    showState();
}
