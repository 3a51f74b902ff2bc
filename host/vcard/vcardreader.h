// Reads the people of a vCard file: versions 3.0 and 4.0, and the 2.1 that phones
// still write, in UTF-8, UTF-16, GB18030 or Windows-1252. What is broken is told
// with its line and left out; the rest is read. Pictures, sounds and keys are
// skipped.
#pragma once

#include <QIODevice>
#include <QList>
#include <QString>
#include <QStringList>

struct VCard
{
    struct Address // a phone number or a mail address
    {
        QString value;
        bool mobile = false;
        bool work = false;
        bool home = false;
        bool fax = false; // or a pager: nobody answers
        bool preferred = false;
    };

    int line = 0; // where it begins
    QString uid;
    QString formattedName, family, given, additional, nickname;
    QString organisation, unit, title, role, note;
    QString birthday, gender, locality; // gender: "M", "F" or empty
    QList<Address> phones, mails;       // in the order of the file
    QStringList categories;
    bool isGroup = false; // then formattedName is the group's name
    QStringList members;  // UIDs

    // The best name there is: FN, N (a Chinese name without a blank), NICKNAME,
    // ORG, the first mail address or phone number; empty when there is nothing.
    QString displayName() const;
};

class VCardReader
{
public:
    struct Problem
    {
        int line = 0; // 0: the file as a whole
        QString text;
    };
    struct Limits
    {
        int lineBytes = 262144; // unfolded; the rest of a longer one is cut off
        int propertiesPerCard = 2000;
        int cards = 100000;
        int problems = 1000;               // further ones are only counted
        qint64 bytesWithoutCard = 1048576; // then it is no vCard file
    };
    struct Result
    {
        bool isVCard = false; // at least one card was begun
        QList<VCard> cards;
        QList<Problem> problems;
        int skipped = 0; // cards that were begun but cannot be used
    };

    VCardReader() = default;
    explicit VCardReader(const Limits &limits) : m_limits(limits) {}

    // The device must be open. The time is proportional to its size.
    Result read(QIODevice &device);

private:
    Limits m_limits;
};
