// The column of entry points at the left of the pane, one for each page.
#pragma once

#include <QListView>

class QStandardItemModel;

namespace EntryRole {
enum Role
{
    TextKey = Qt::UserRole + 1, // translation key, or a text as it stands
    Id = Qt::UserRole + 2,
    SortKey = Qt::UserRole + 6,
    IsEntry = Qt::UserRole + 7, // always true
    Type = Qt::UserRole + 24,
    Unread = Qt::UserRole + 80 // number of messages
};
} // namespace EntryRole

class FriendListView : public QListView
{
    Q_OBJECT

public:
    // Entries that the user has no right to are left out.
    explicit FriendListView(QWidget *parent = nullptr);

    // Makes an entry current as a click would. False when there is no such entry.
    bool selectEntry(const QString &id);

    // Shows at an entry how many messages are unread on its page.
    void setUnread(const QString &id, int count);

    static constexpr int ColumnWidth = 80;

signals:
    void signal_clickItem(int nType, QString strJid);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QModelIndex entry(const QString &id) const;
    void announce(const QModelIndex &index);

    QStandardItemModel *m_model;
};
