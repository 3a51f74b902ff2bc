// Type to find: what is typed while a list has the focus selects the next row
// that matches, by name, pinyin or initials. The text stands over the list until
// Esc, a pause, or the next click.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QKeyEvent;
class QLabel;
class QModelIndex;
class QTreeView;

class TypeFinder : public QObject
{
    Q_OBJECT

public:
    // `nameRole` of the view's model: a row without text there is passed over.
    TypeFinder(QTreeView *view, int nameRole);

    bool isActive() const { return !m_typed.isEmpty(); }
    QString typed() const { return m_typed; }

    // Adds typed text and goes to the nearest match from the current row on.
    void type(const QString &text);
    // Backspace, Esc, Up and Down while text stands there. True: it was taken.
    bool handleKey(QKeyEvent *event);
    void clear();
    // Places the text again after the view was resized.
    void place();

signals:
    // A row matches: make it current and show it.
    void found(const QModelIndex &index);

private:
    void go(int direction, bool fromNext);
    bool matches(const QModelIndex &index) const;
    void show(bool any);

    QTreeView *m_view;
    const int m_nameRole;
    QLabel *m_label;
    QString m_typed;
    QTimer m_pause;
};
