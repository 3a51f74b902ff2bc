// Paints a search result: the name with what was typed highlighted, below it where
// else it was found and the place in the company.
#pragma once

#include <QStyledItemDelegate>

class SearchResultModel;

class SearchResultDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // Of the view that shows this model.
    SearchResultDelegate(const SearchResultModel *model, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    const SearchResultModel *m_model;
};
