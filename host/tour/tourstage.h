// What a tour can see and do: finds the pane's widgets by class and object names
// and drives them as a user does, with keys, context menus and dialogs.
//
// A function that finds nothing returns null or an invalid index; a function that
// acts on what is missing does nothing, and the move's condition then fails.
#pragma once

#include "sample/samplecompany.h"

#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QString>
#include <QVariant>

class HostApplication;
class MainWindow;
class QAbstractButton;
class QDialog;
class QLineEdit;
class QMenu;
class QTreeView;
class QWidget;

class TourStage
{
public:
    explicit TourStage(HostApplication &host) : m_host(host) {}

    HostApplication &host() { return m_host; }
    MainWindow &window() const;

    // --- The friend tree ---
    QTreeView *tree() const;
    int groupCount() const;
    QModelIndex group(const QString &name) const; // by its name
    QModelIndex firstGroupWithContacts(int atLeast = 2) const;
    QModelIndex contact(const QString &jid) const;
    QModelIndex otherContact(const QModelIndex &group, int position) const; // never the own row
    int shownContacts() const;
    // A colleague who takes requests that way; no contact, if there is such a one.
    QString stranger(SampleCompany::Policy policy) const;
    static QString nameOf(const QModelIndex &index);
    static QString jidOf(const QModelIndex &index);

    // --- The other pages ---
    // Makes an entry of the pane's column current, as a click does.
    void openPage(const QString &entryId) const;
    QTreeView *orgTree() const;                   // null unless it is shown
    QTreeView *list(const char *className) const; // of the pane; null unless it is shown
    // The row of a list that answers so for the role.
    QModelIndex row(const char *className, int role, const QVariant &value) const;
    QLineEdit *searchBox() const;

    // --- Menus and dialogs ---
    QMenu *openMenu(const QString &objectName) const; // null unless it is shown
    QMenu *menu(const QString &objectName) const;     // shown or not
    QDialog *openDialog(const char *className) const;
    QWidget *openWindow(const char *className) const; // of any kind
    QWidget *shownWidget(const QString &objectName) const;
    // In a window of its own, by the class of that and the object name of the widget.
    template <class Widget = QWidget> Widget *part(const char *window, const char *object) const
    {
        return qobject_cast<Widget *>(shownPart(window, object));
    }

    void contextMenu(const QModelIndex &index) const; // of any list that is shown
    // The action of that object name, in the menu or a menu below it; the menu
    // is closed as by a click.
    void trigger(QMenu *menu, const QString &action) const;
    void triggerText(QMenu *menu, const QString &text) const;
    void answer(const QString &text) const; // of an input dialog, accepted
    void fill(const QString &text) const;   // of an input dialog, left open
    void press(const char *dialogClass, const char *button) const;
    void key(int key, const QString &text = QString()) const; // to the tree
    static void keyTo(QWidget *widget, int key, const QString &text = QString(),
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void closeEverything() const; // menus, dialogs, search

    // What one move remembers for a later one.
    QString name, jid, target;
    int number = 0;
    bool done = false; // of what takes its time

private:
    QWidget *shownPart(const char *window, const char *object) const;

    HostApplication &m_host;
};
