// Paints a row of the organisation: a department with its caret, an employee with
// avatar, name and duty, or what stands in while a department is being asked for.
#pragma once

#include <QStyledItemDelegate>

class OrgStructureTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit OrgStructureTreeDelegate(QObject *parent = nullptr);

    // Where things are in a row; in the coordinates of `row`, which spans the view.
    static QRect caretArea(const QRect &row, int depth, Qt::LayoutDirection direction);
    static QRect locateArea(const QRect &row, Qt::LayoutDirection direction);
    // Only the topmost row of the organisation carries the sign that leads to the
    // user's own place.
    static bool hasLocateSign(const QModelIndex &index);
    static int depth(const QModelIndex &index);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void paintEmployee(QPainter *painter, const QStyleOptionViewItem &option,
                       const QModelIndex &index) const;
    void paintDepartment(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const;
};
