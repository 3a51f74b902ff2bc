// The rows of a list of service numbers, in the order in which the service tells them.
#pragma once

#include "common/textmatch.h"
#include "controls/keyedlistmodel.h"
#include "hostapi/servicerecords.h"

#include <QList>

struct ServiceRow
{
    CServiceNumData number;
    int place = 0;
};

using ServiceRows = KeyedListModel<ServiceRow, int>;

class ServiceNumModel : public ServiceRows
{
    Q_OBJECT

public:
    // Follows what ServiceNumbers tells of each of its numbers. Which numbers have rows
    // is its owner's to say.
    explicit ServiceNumModel(QObject *parent = nullptr);

    // Brings the rows in line with the list; of a code that comes twice the first
    // counts, a record without one does not.
    void setNumbers(const QList<CServiceNumData> &numbers);

    // Only what matches has a row; an empty text: everything.
    void setFilter(const QString &text);
    // What stands out in the names, as the service looks for it.
    void setSearched(const QString &text);

    QVariant data(const QModelIndex &index, int role) const override;

    // The texts are made when they are asked for: views ask again.
    void retranslate();

protected:
    QString keyOf(const ServiceRow &row) const override { return row.number.code; }
    int placeOf(const ServiceRow &row) const override { return row.place; }
    bool isShown(const ServiceRow &row) const override;

private:
    void takeAnew(const QString &code);
    QVariant markedName(const CServiceNumData &number) const;

    TextPattern m_filter{QString()};
    QString m_searched;
};
