// Paints a row of the team tree: a team with its setting button, a sub-group with its
// caret, a member with avatar, presence, role, post and company, or what stands in for
// a level that is loading, failed or empty.
#pragma once

#include <QStyledItemDelegate>

class RowPainter;

class CVirtualTeamTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CVirtualTeamTreeDelegate(QObject *parent = nullptr);

    // Where things are in a row; in the coordinates of `row`, which spans the view.
    static QRect caretArea(const QRect &row, int depth, Qt::LayoutDirection direction);
    static QRect settingArea(const QRect &row, Qt::LayoutDirection direction);
    static int depth(const QModelIndex &index); // 0 for a team
    // Of rows at a depth, less and less for each further one.
    static int indentOf(int depth); // device-independent pixels

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    // Called before the avatar of a member is painted: what is painted at the left of
    // what is left of the row takes that room.
    virtual void paintChoice(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row,
                             const QModelIndex &index) const;

private:
    void paintTeam(QPainter *painter, const QStyleOptionViewItem &option,
                   const QModelIndex &index) const;
    void paintGroup(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    void paintMember(QPainter *painter, const QStyleOptionViewItem &option,
                     const QModelIndex &index) const;
    void paintState(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                    bool failed) const;
};
