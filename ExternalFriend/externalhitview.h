// The list of the people whom the search outside the company has found; a click on one
// or Enter leads to the window about the person.
#pragma once

#include "controls/foundlist.h"

#include <QStyledItemDelegate>

class ExternalHitDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

class ExternalHitView : public FoundList
{
    Q_OBJECT

public:
    ExternalHitView(SearchBox *box, QAbstractItemModel *model, QWidget *parent = nullptr);

signals:
    void chosen(const QModelIndex &index);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QPersistentModelIndex m_pressedRow;
};
