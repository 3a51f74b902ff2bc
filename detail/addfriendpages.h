// The parts of the add-contact window: who it is about, the request's form, and the
// page that tells how it went. They show and let choose; what happens is AddFriend's.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QWidget>

class ElidedLabel;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class ValidationEdit;

// Picture, name and sex of the person.
class AddFriendHeader : public QWidget
{
    Q_OBJECT

public:
    explicit AddFriendHeader(QWidget *parent = nullptr);

    // `name` is a display text; a `picture` that is empty or no picture leaves the
    // default one.
    void setPerson(const QString &jid, const QString &name, const QString &sex);
    void setPicture(const QString &file);

private:
    void showPicture();

    QString m_jid, m_file;
    QLabel *m_picture;
    ElidedLabel *m_name;
    QLabel *m_sex;
};

class AddFriendForm : public QWidget
{
    Q_OBJECT

public:
    explicit AddFriendForm(QWidget *parent = nullptr);

    void setState(const QString &icon, const QString &text);
    void setValidationNeeded(bool needed);
    void showLength(int used, int limit);
    // Keeps the chosen group when it is still there; `more` is listed as well when
    // the list lacks it.
    void setGroups(const QList<GroupData> &groups, const GroupData &more = GroupData());
    void chooseGroup(const QString &groupId); // unknown: changes nothing
    void chooseGroupByName(const QString &name);
    QString groupId() const;
    QString remark() const;
    void takeFocus();

    ValidationEdit *validationEdit() const { return m_validation; }

signals:
    void confirmed();
    void chatWanted();
    void cancelled();
    void newGroupWanted();

private:
    QWidget *buildValidation();
    void addGroup(const GroupData &group);
    void buildButtons(class QVBoxLayout *layout);

    QLabel *m_icon;
    QLabel *m_text;
    QWidget *m_validationPart;
    ValidationEdit *m_validation;
    QLabel *m_length;
    QComboBox *m_groups;
    QPushButton *m_newGroup;
    QLineEdit *m_remark;
    QPushButton *m_ok;
};

class AddFriendOutcome : public QWidget
{
    Q_OBJECT

public:
    explicit AddFriendOutcome(QWidget *parent = nullptr);

    // `action` is the text of the button that leads on, `close` that of the other;
    // an empty one has no button.
    void show(const QString &icon, const QString &text, const QString &status,
              const QString &action, const QString &close);
    void takeFocus();

signals:
    void actionWanted();
    void closeWanted();

private:
    QLabel *m_icon;
    QLabel *m_text;
    QLabel *m_status;
    QPushButton *m_action;
    QPushButton *m_close;
};
