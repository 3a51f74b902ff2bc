// The sample company's customer-service channels and service numbers.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct SampleChannel
{
    QString id, name;
    QString pictureName; // empty: it has none
    QStringList workGroups;
    int opens = 0, closes = 0; // hours of the day; both 0: always open
    bool isOpen = true;
    bool isAgent = false; // the own user answers there
};

struct SampleServiceNumber
{
    QString code, name, description;
    int kind = 0;              // 0 announcements, 1 work, 2 service
    bool isSubscribed = false; // by everybody, at first
    bool isInteractive = true; // takes messages
    bool hasIcon = true;       // "<code>.png"
    bool isClosed = false;     // nobody may subscribe to it
    bool isFolded = false;
    QString subject, contact;
    QString channel; // id of a SampleChannel; empty: none
    bool hasMenu = false;
};

const QVector<SampleChannel> &sampleChannels();
// Those that everybody has subscribed to lead.
const QVector<SampleServiceNumber> &sampleServiceNumbers();

// The id of the channel of the team that makes the product.
QString sampleProductTeam();

// What somebody of a channel says, by any number.
QString sampleChannelAnswer(quint64 number);
