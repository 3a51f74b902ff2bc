// What a user can do with a group chat, whether by menu or key: asks where it must,
// and sends the request to the host. Nothing changes here before the host answers.
#pragma once

#include <QObject>
#include <QPointer>

class InputBox;
class MucModel;
class QWidget;

class RoomCommands : public QObject
{
    Q_OBJECT

public:
    // `view` is the parent of every dialog.
    RoomCommands(const MucModel *rooms, QWidget *view);

    // Unknown rooms are left alone by all of them.
    void openChat(const QString &jid);
    void sendFile(const QString &jid);
    void writeMail(const QString &jid);
    void openHistory(const QString &jid);
    void rename(const QString &jid);
    void quit(const QString &jid);
    void dismiss(const QString &jid);
    void manage(const QString &jid);
    void setInAddressBook(const QString &jid, bool inAddressBook);
    void pin(const QString &jid, bool top);
    // Whether messages come without a notification. Told by the request manager's
    // signal_setSessionMsgConfigDone().
    void setSilent(const QString &jid, bool silent);

    // A question about a room that is no more goes away.
    void roomRemoved(const QString &jid);

private:
    bool isKnown(const QString &jid) const;
    void sendSubject(const QString &jid, const QString &subject);

    const MucModel *m_rooms;
    QWidget *m_view;
    QPointer<InputBox> m_renameBox;
    QString m_renamedRoom; // the one that the box is about
};
