// Shows the rows of a table in which every wanted word occurs.
#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

class WordFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    // Every word must occur in some column, in any case. Empty: everything.
    void setText(const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QStringList m_words;
};
