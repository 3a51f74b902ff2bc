// The people who ask to become contacts, in one window instead of one each: a row a
// person, whatever number of times the person asks.
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

class ContactRequests : public QDialog
{
    Q_OBJECT

public:
    static constexpr int MaximumRows = 100; // then the oldest goes

    explicit ContactRequests(QWidget *parent = nullptr);

    // On top of the list, without taking the focus; a person who is listed moves
    // there with the new text. Both texts are anybody's.
    void add(const QString &jid, const QString &name, const QString &text);
    void remove(const QString &jid);

signals:
    // The user wants the person as a contact; the row is gone.
    void addWanted(const QString &jid);

protected:
    void changeEvent(QEvent *event) override;

private:
    int rowOf(const QString &jid) const; // -1: none
    void enableButtons();
    void retranslate();

    QListWidget *m_list;
    QPushButton *m_add;
    QPushButton *m_ignore;
};
