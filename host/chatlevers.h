// Levers for group chats, channels and messages: what others do to them. Those of
// group chats and channels take the next one in turn at each use.
#pragma once

#include <QMenu>
#include <QVector>

#include <functional>

class EmbeddedCore;
struct MucData;

class ChatLevers : public QMenu
{
    Q_OBJECT

public:
    static constexpr int BurstMessages = 10000;
    static constexpr int BurstConversations = 500;

    // The core is not owned and outlives the menu. Pictures are drawn into `folder`.
    ChatLevers(EmbeddedCore *core, const QString &pictureFolder, QWidget *parent = nullptr);

    // So many messages from at most so many people, some at each turn of the event loop.
    void burst(int messages, int conversations);

signals:
    // One line that tells what was done to whom.
    void note(const QString &text);
    void reloadChannelsWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    void addLever(const char *name, const char *text, std::function<void()> pull);
    void addRoomLevers();
    void addChannelLevers();
    void addMessageLevers();
    MucData nextRoom(const std::function<bool(const MucData &)> &fits);
    QString nextChannel();
    void switchForbidden(bool forbidden);
    void newLocalRoom();
    void somebodyWrites();
    void somebodyJoins();
    void burstOn();
    void retranslate();

    EmbeddedCore *m_core;
    const QString m_pictureFolder;
    struct Lever
    {
        QAction *action;
        const char *text;
    };
    QVector<Lever> m_levers;
    int m_turn = 0, m_channelTurn = 0;
    int m_burstLeft = 0, m_burstPeople = 0;
};
