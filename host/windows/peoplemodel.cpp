#include "host/windows/peoplemodel.h"

#include <QCollator>

#include <algorithm>
#include <vector>

PeopleModel::PeopleModel(const QSet<QString> &chosen, const QSet<QString> &fixed, QObject *parent)
    : QAbstractListModel(parent), m_checked(chosen), m_fixed(fixed)
{
    m_checked.subtract(m_fixed);
}

void PeopleModel::add(QVector<Person> people)
{
    struct Seat
    {
        bool isChosen;
        QCollatorSortKey key; // compared without looking at the text again
        int place;
    };
    const QCollator collator;
    std::vector<Seat> seats;
    seats.reserve(size_t(people.size()));
    for (int i = 0; i < people.size(); ++i) {
        const QString &jid = people.at(i).jid;
        if (m_known.contains(jid))
            continue;
        m_known.insert(jid);
        // Who is chosen already stands on top, where it is seen.
        const bool isChosen = m_checked.contains(jid) || m_fixed.contains(jid);
        seats.push_back({isChosen, collator.sortKey(people.at(i).name), i});
    }
    std::sort(seats.begin(), seats.end(), [](const Seat &a, const Seat &b) {
        return a.isChosen != b.isChosen ? a.isChosen : a.key < b.key;
    });
    m_people.reserve(m_people.size() + int(seats.size()));
    for (const Seat &seat : seats)
        m_people.append(std::move(people[seat.place]));
    filter();
}

void PeopleModel::setFilter(const QString &text, const QSet<QString> &also)
{
    m_text = text;
    m_also = also;
    filter();
}

void PeopleModel::filter()
{
    beginResetModel();
    m_shown.clear();
    for (int i = 0; i < m_people.size(); ++i) {
        const Person &person = m_people.at(i);
        if (person.name.contains(m_text, Qt::CaseInsensitive) || m_also.contains(person.jid))
            m_shown.append(i);
    }
    endResetModel();
}

QStringList PeopleModel::chosen() const
{
    QStringList jids;
    for (const Person &person : m_people) {
        if (m_checked.contains(person.jid))
            jids.append(person.jid);
    }
    return jids;
}

int PeopleModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_shown.size();
}

QVariant PeopleModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_shown.size())
        return {};
    const Person &person = m_people.at(m_shown.at(index.row()));
    if (role == Qt::DisplayRole)
        return person.name;
    if (role == Qt::CheckStateRole)
        return m_checked.contains(person.jid) || m_fixed.contains(person.jid) ? Qt::Checked
                                                                              : Qt::Unchecked;
    return {};
}

bool PeopleModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable))
        return false;
    const QString jid = m_people.at(m_shown.at(index.row())).jid;
    const bool wasEmpty = m_checked.isEmpty();
    if (m_isSingle)
        m_checked.clear();
    if (value.toInt() == Qt::Checked)
        m_checked.insert(jid);
    else
        m_checked.remove(jid);
    const bool isWide = m_isSingle && !wasEmpty;
    emit dataChanged(isWide ? this->index(0) : index, isWide ? this->index(rowCount() - 1) : index,
                     {Qt::CheckStateRole});
    emit chosenChanged();
    return true;
}

Qt::ItemFlags PeopleModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_shown.size())
        return Qt::NoItemFlags;
    if (m_fixed.contains(m_people.at(m_shown.at(index.row())).jid))
        return Qt::ItemNeverHasChildren;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
           Qt::ItemNeverHasChildren;
}
