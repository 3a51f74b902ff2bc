// Which groups of a contact tree are open: kept in the user's settings across
// restarts, by group name. Before anything was stored the first group is open.
#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

class QTreeView;

class GroupExpansion : public QObject
{
    Q_OBJECT

public:
    // `key` is the settings key of the list.
    GroupExpansion(QTreeView *view, const QString &key);
    ~GroupExpansion() override;

    // Reads the user's list and opens and closes the groups accordingly.
    void load();
    // Gives the groups first..last, which are new, the state that is known of them.
    // The view has a layout due.
    void restore(int first, int last);
    // The user opened or closed a group.
    void note(bool expanded, const QString &groupName);
    void noteRename(const QString &oldName, const QString &newName);
    void setAll(bool expanded);

private:
    // Once in a round of the event loop: a key can open thousands of groups.
    void storeSoon() { m_storing.start(); }
    void store();

    QTreeView *m_view;
    const QString m_key;
    QString m_file; // the user's settings; empty while there is no user
    QTimer m_storing;
    QSet<QString> m_expanded;
    bool m_known = false; // a list was stored or the user has chosen
};
