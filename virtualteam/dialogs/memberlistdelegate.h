// Paints the rows of flat lists of people of teams.
#pragma once

#include <QStyledItemDelegate>

class MemberListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Kind
    {
        Plain,
        Removable // with a cross at the end of each row
    };

    explicit MemberListDelegate(Kind kind, QObject *parent = nullptr);

    // Where the cross of a row is, with room to hit it.
    static QRect crossArea(const QRect &row, Qt::LayoutDirection direction);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    Kind m_kind;
};
