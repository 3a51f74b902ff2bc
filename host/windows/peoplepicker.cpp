#include "host/windows/peoplepicker.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int JidRole = Qt::UserRole + 1;

QString shownName(const FriendData &person)
{
    for (const QString &name : {person.remark, person.nickName, person.account})
        if (!name.isEmpty())
            return name.simplified();
    return person.jid;
}
} // namespace

PeoplePicker::PeoplePicker(const QString &title, const QList<FriendData> &people,
                           const QSet<QString> &chosen, QWidget *parent)
    : QDialog(parent),
      m_filterText(new QLineEdit(this)),
      m_model(new QStandardItemModel(this)),
      m_filter(new QSortFilterProxyModel(this)),
      m_count(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(QStringLiteral("peoplePicker"));
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);

    QList<QStandardItem *> items;
    for (const FriendData &person : people) {
        auto *item = new QStandardItem(shownName(person));
        item->setData(person.jid, JidRole);
        item->setCheckable(true);
        item->setEditable(false);
        item->setCheckState(chosen.contains(person.jid) ? Qt::Checked : Qt::Unchecked);
        items.append(item);
    }
    std::sort(items.begin(), items.end(), [](const QStandardItem *a, const QStandardItem *b) {
        // Who is chosen already stands on top, where it is seen.
        if (a->checkState() != b->checkState())
            return a->checkState() == Qt::Checked;
        return a->text().localeAwareCompare(b->text()) < 0;
    });
    m_model->appendColumn(items);
    m_filter->setSourceModel(m_model);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);

    auto *list = new QListView(this);
    list->setObjectName(QStringLiteral("pickerList"));
    list->setModel(m_filter);
    list->setUniformItemSizes(true);
    m_filterText->setPlaceholderText(tr("Find by name"));
    m_filterText->setClearButtonEnabled(true);
    m_count->setTextFormat(Qt::PlainText);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(8);
    layout->addWidget(m_filterText);
    layout->addWidget(list, 1);
    layout->addWidget(m_count);
    layout->addWidget(m_buttons);
    resize(380, 460);

    connect(m_filterText, &QLineEdit::textChanged, m_filter,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_model, &QStandardItemModel::itemChanged, this, &PeoplePicker::showCount);
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showCount();
}

void PeoplePicker::addTextField(const QString &label)
{
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("pickerText"));
    m_text->setPlaceholderText(label);
    m_text->setMaxLength(200);
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, m_text);
    setTabOrder(m_text, m_filterText);
    m_text->setFocus();
}

QString PeoplePicker::text() const
{
    return m_text ? m_text->text().trimmed() : QString();
}

QStringList PeoplePicker::chosenJids() const
{
    QStringList jids;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QStandardItem *item = m_model->item(row);
        if (item->checkState() == Qt::Checked)
            jids.append(item->data(JidRole).toString());
    }
    return jids;
}

void PeoplePicker::showCount()
{
    const int count = chosenJids().size();
    m_count->setText(tr("%1 chosen").arg(count));
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(count > 0);
}
