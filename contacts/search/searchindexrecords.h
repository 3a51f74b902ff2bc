// What the search knows of somebody or something, and what it answers.
#pragma once

#include <QString>

struct SearchEntry
{
    enum Kind : quint8
    {
        Person,
        Room,
        Group, // of contacts
        Department,
        Team,
        ServiceNumber,
        Channel
    };

    Kind kind = Person;
    QString id; // a person's and a room's jid, else the id of its kind
    QString name;
    QString remark;
    QString account;
    QString employeeCode;
    QString mail;
    QString phones;  // any number, separated by ";"
    QString placeId; // of a person or department: the department it belongs to
    bool isContact = false;
    bool hasLeft = false; // the company
};

struct SearchHit
{
    enum Rank : quint8
    {
        Exact,
        Prefix,
        Initials,
        Inside
    };
    enum Field : quint8
    {
        Name,
        Remark,
        Account,
        EmployeeCode,
        Mail,
        Phones
    };

    int entry = -1; // for SearchIndex::at()
    Rank rank = Inside;
    Field field = Name; // where the best of the words was found
};
