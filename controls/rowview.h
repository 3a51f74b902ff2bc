// The base of all lists and trees of people, rooms and the like: their look, what
// keeps a large one fast, type to find, that nothing moves under the pointer, and the
// card of the person on whose row the pointer rests.
#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>
#include <QTreeView>

#include <optional>

class QMenu;
class ScrollAnchor;
class TypeFinder;

class RowView : public QTreeView
{
    Q_OBJECT

public:
    // The model is not owned. `nameRole`: what typing finds; a row without text
    // there is passed over.
    RowView(QAbstractItemModel *model, int nameRole, QWidget *parent = nullptr);
    ~RowView() override;

    // Makes a row current and shows it, its parents opened.
    void reveal(const QModelIndex &index);
    // Shows the floating card of the row's person beside it, at once.
    void showCard(const QModelIndex &index);

    void doItemsLayout() override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
    void keyboardSearch(const QString &search) override;

signals:
    // Whether the pointer is over the list, a menu or a row's card is open or something
    // is being dragged: while it is so, no row may move.
    void orderHeld(bool held);
    // Enter on the current row, or a double click whose first click was on that row.
    void activatedRow(const QModelIndex &index);

protected:
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

    TypeFinder *finder() const { return m_finder; }
    // The person of a row, whose card shows when the pointer rests on it, and whose
    // details Ctrl+I opens; empty: the row is no person's. Asked at every move of the
    // pointer.
    virtual QString cardJid(const QModelIndex &index) const;
    // Where the event asks for a menu, in the viewport. The row there comes to be
    // selected if it was not: the one under the pointer, or for the Menu key the
    // current one, which is scrolled to. The key without a current row asks for the
    // menu beside all rows.
    QPoint menuPosition(const QContextMenuEvent &event);
    // Pops the menu up and holds the order until it is closed and the chosen action
    // has run.
    void popUp(QMenu *menu, const QPoint &viewportPosition);
    // Lets go of the menus that are children of the view; they are deleted later. The
    // host may destroy the view inside a request that an action has made, and QMenu
    // does not survive its own end while it tells of that action. The destructor does
    // it, too.
    void releaseMenus();
    // What else holds the order, besides pointer and menu: after a change of it call
    // updateHold().
    virtual bool isHolding() const { return false; }
    void updateHold();

private:
    void pointerAt(const QPoint &viewportPosition);
    bool openDetail(const QKeyEvent &event);

    ScrollAnchor *m_anchor;
    TypeFinder *m_finder;
    QTimer m_pointerAtRest;
    QPointer<QMenu> m_menu; // the last one that was popped up
    // The row of the last press, invalid beside the rows and after the row has gone.
    std::optional<QPersistentModelIndex> m_pressed;
    bool m_held = false;
};
