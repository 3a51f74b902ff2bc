#include "host/windows/peoplepicker.h"

#include "host/colleaguesearch.h"
#include "host/windows/peoplemodel.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QString shownName(const FriendData &person)
{
    for (const QString &name : {person.remark, person.nickName, person.account})
        if (!name.isEmpty())
            return name.simplified();
    return person.jid;
}
} // namespace

PeoplePicker::PeoplePicker(const QString &title, const QList<FriendData> &people,
                           const Marks &marks, QWidget *parent)
    : QDialog(parent),
      m_filterText(new QLineEdit(this)),
      m_model(new PeopleModel(marks.chosen, marks.fixed, this)),
      m_count(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(QStringLiteral("peoplePicker"));
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);

    QVector<PeopleModel::Person> rows;
    rows.reserve(people.size());
    for (const FriendData &person : people)
        rows.append({person.jid, shownName(person)});
    m_model->add(rows);

    auto *list = new QListView(this);
    list->setObjectName(QStringLiteral("pickerList"));
    list->setModel(m_model);
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

    connect(m_filterText, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_model->setFilter(text); });
    connect(m_model, &PeopleModel::chosenChanged, this, &PeoplePicker::showCount);
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

void PeoplePicker::searchWith(ColleagueSearch *search)
{
    search->setParent(this);
    connect(m_filterText, &QLineEdit::textChanged, search, &ColleagueSearch::search);
    connect(search, &ColleagueSearch::found, this,
            [this](const QString &text, const QVector<PeopleModel::Person> &people) {
                if (text != m_filterText->text().trimmed())
                    return;
                QSet<QString> hits;
                for (const PeopleModel::Person &person : people)
                    hits.insert(person.jid);
                m_model->add(people);
                m_model->setFilter(m_filterText->text(), hits);
            });
}

void PeoplePicker::setSingle()
{
    m_model->setSingle(true);
}

QStringList PeoplePicker::chosenJids() const
{
    return m_model->chosen();
}

void PeoplePicker::showCount()
{
    const int count = m_model->chosenCount();
    m_count->setText(tr("%1 chosen").arg(count));
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(count > 0);
}
