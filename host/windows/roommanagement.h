// The members of a group chat with their roles, and what the user may change: who
// manages it, who owns it, who belongs to it.
#pragma once

#include "hostapi/roomrecords.h"

#include <QDialog>

class MessagingCore;
class QLabel;
class QListWidget;
class QPushButton;

class RoomManagement : public QDialog
{
    Q_OBJECT

public:
    // Deleted when closed, and closed when the user is no longer in the room. The core
    // is not owned.
    RoomManagement(MessagingCore *core, const QString &roomJid, QWidget *parent = nullptr);

    QString roomJid() const { return m_roomJid; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void connectCore();
    void fill();
    void enableButtons();
    void changeManager();
    void askHandOver();
    void addPeople();
    void retranslate();
    QString chosenJid() const;
    QString chosenName() const;

    MessagingCore *m_core;
    const QString m_roomJid;
    QLabel *m_own;
    QListWidget *m_list;
    QPushButton *m_manager, *m_handOver, *m_remove, *m_add, *m_close;
};
