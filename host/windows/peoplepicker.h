// Chooses people among the contacts, and among what a search finds besides, with a field
// for the name.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QDialog>
#include <QSet>

class ColleagueSearch;
class PeopleModel;
class QDialogButtonBox;
class QLabel;
class QLineEdit;

class PeoplePicker : public QDialog
{
    Q_OBJECT

public:
    // Jids of people who are checked at first, and of those who are checked and stay so,
    // because they are there already.
    struct Marks
    {
        QSet<QString> chosen = {};
        QSet<QString> fixed = {};
    };

    // The dialog is deleted when closed; accepted() comes before that.
    PeoplePicker(const QString &title, const QList<FriendData> &people, const Marks &marks,
                 QWidget *parent = nullptr);

    // Adds a field for a text, such as a subject, above the list.
    void addTextField(const QString &label);
    QString text() const;
    // What is typed is looked for there too. The picker takes ownership.
    void searchWith(ColleagueSearch *search);
    // One person at most.
    void setSingle();

    QStringList chosenJids() const; // in the order of the list; without the fixed ones

private:
    void showCount();

    QLineEdit *m_text = nullptr;
    QLineEdit *m_filterText;
    PeopleModel *m_model;
    QLabel *m_count;
    QDialogButtonBox *m_buttons;
};
