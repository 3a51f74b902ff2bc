// People to choose among, a row each with a check box. Holds as many as a large company
// has: filtering and checking touch no row twice.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QSet>
#include <QVector>

class PeopleModel : public QAbstractListModel
{
    Q_OBJECT

public:
    struct Person
    {
        QString jid;
        QString name;
    };

    // Those of `chosen` are checked; of `fixed` too, and cannot be changed.
    PeopleModel(const QSet<QString> &chosen, const QSet<QString> &fixed, QObject *parent = nullptr);

    // Who is there already stays as they are. The chosen ones stand on top of what is
    // given at first; everybody who comes later follows.
    void add(QVector<Person> people);
    // Only those whose name contains the text in any case, or whose jid is in `also`.
    void setFilter(const QString &text, const QSet<QString> &also = {});
    // At most one is checked.
    void setSingle(bool single) { m_isSingle = single; }

    QStringList chosen() const; // without the fixed ones, in the order of the list
    int chosenCount() const { return m_checked.size(); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    void chosenChanged();

private:
    void filter();

    QVector<Person> m_people;
    QSet<QString> m_known;
    QVector<int> m_shown; // rows -> places in m_people
    QSet<QString> m_checked;
    const QSet<QString> m_fixed;
    QString m_text;
    QSet<QString> m_also;
    bool m_isSingle = false;
};
