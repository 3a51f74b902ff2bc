// Chooses people among the contacts, with a field to filter by name.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QDialog>
#include <QSet>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStandardItemModel;

class PeoplePicker : public QDialog
{
    Q_OBJECT

public:
    // Everybody of `chosen` is checked at first. The dialog is deleted when
    // closed; accepted() comes before that.
    PeoplePicker(const QString &title, const QList<FriendData> &people, const QSet<QString> &chosen,
                 QWidget *parent = nullptr);

    // Adds a field for a text, such as a subject, above the list.
    void addTextField(const QString &label);
    QString text() const;

    QStringList chosenJids() const; // in the order of the list

private:
    void showCount();

    QLineEdit *m_text = nullptr;
    QLineEdit *m_filterText;
    QStandardItemModel *m_model;
    QSortFilterProxyModel *m_filter;
    QLabel *m_count;
    QDialogButtonBox *m_buttons;
};
