// The people that the search outside the company has found, and how the user stands
// with each.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QAbstractListModel>
#include <QList>

namespace ExternalHitRole {
enum Role
{
    Name = 257,
    Id = 258, // jid
    Photo = 259,
    State = 260, // an ExternalHitModel::State
    MarkedName = 262,
    Company = 264, // or what else tells people of one name apart
};
}

class ExternalHitModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum State
    {
        MayAdd,
        Requested, // by the user, and not answered yet
        Added
    };

    using QAbstractListModel::QAbstractListModel;

    void setPeople(const QList<SearchFriendResultData> &people);
    // What was searched for, to be marked in the names.
    void setText(const QString &text) { m_text = text; }
    const SearchFriendResultData &at(int row) const { return m_people.at(row); }
    // Contacts, requests, pictures or the language have changed.
    void showAnew();

    static QString stateText(State state);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QString m_text;
    QList<SearchFriendResultData> m_people;
};
