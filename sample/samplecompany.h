// A company that does not exist, for the reference host and its services: people,
// departments, the friend groups of the first one. Everything follows from the number of
// people and the seed, so that two programs with the same two numbers agree on
// every id, name and phone number. People are computed, not stored: any one of
// them costs the same, and 100,000 need no memory.
//
// Ids: people "u000000" to "u099999", people of other companies
// "x000000"..., departments "D0001"..., the company itself "C1"; jids are
// uid@corp.example.
#pragma once

#include <QString>
#include <QVector>

struct SamplePerson
{
    int index = -1; // -1: nobody
    QString uid, account;
    QString name, spell; // spell: the name in Latin letters, lower case
    QString sex;         // "男" or "女"
    QString birthday;    // yyyy-MM-dd
    QString locality, sign;
    QString employeeCode, duty;
    QString mobile, otherPhone, personalMobile, email; // no number of these is assigned to anybody
    QString departmentId, departmentName;
    QString companyCode, companyName;
    QString leaderUid; // empty for the head of the company
    bool onJob = true;
    bool isAdmin = false;
};

struct SampleDepartment
{
    QString id, parentId; // the parent of the topmost ones is the company code
    QString name;
    int parent = -1; // index of the parent department; -1: the company
    int level = 1;   // 1 to 3
    int kind = 0;    // which line of work; the same below one topmost department
    int head = -1;   // index of a person
    // People belong to departments without children. Those are numbered through;
    // these are the ones at or below this department.
    int firstLeaf = 0, leafCount = 0;
    bool isLeaf = false;
};

struct SampleGroup
{
    QString id, name; // id "" is the default group
};

struct SampleFriend
{
    int person = -1;
    int group = 0; // index into friendGroups()
    QString remark;
};

class SampleCompany
{
public:
    enum Policy
    {
        AcceptsAll,
        AsksFirst, // confirms a request after a while
        RefusesAll
    };
    struct Reach
    {
        int pc = 0;     // 0 offline, 1 available, 2 away, 3 extended away, 4 busy, 5 free for chat
        int mobile = 0; // 0 none, 1 Android, 2 iOS
    };

    static constexpr int DefaultPeople = 300;
    static constexpr int MaximumPeople = 100000;
    static constexpr quint64 DefaultSeed = 1;

    // `people` is held between 1 and MaximumPeople.
    explicit SampleCompany(int people = DefaultPeople, quint64 seed = DefaultSeed);

    int people() const { return m_people; }
    quint64 seed() const { return m_seed; }
    static QString domain();
    static QString companyCode();
    static QString companyName();

    static QString uid(int index);
    // The name of the person's picture at the file service; empty: there is none.
    static QString pictureOf(const QString &uid);
    int indexOf(const QString &uid) const; // -1: not one of the people
    SamplePerson person(int index) const;  // an index out of range: nobody
    // Of the company or of others; unknown: nobody.
    SamplePerson find(const QString &uid) const;
    // Of somebody with this uid or account, in any case; unknown: empty.
    QString uidOf(const QString &uidOrAccount) const;
    Policy policy(int index) const;               // how this person takes contact requests
    Reach reachAtStart(int index) const;          // nowhere, for who has left
    Reach reachAtStart(const QString &uid) const; // of other companies as well
    Reach reach(quint64 number) const; // one of the usual ways to be reachable, by any number

    // Parents stand before their children.
    const QVector<SampleDepartment> &departments() const { return m_departments; }
    QVector<int> members(int department) const; // of a leaf; head first

    // The first person's friends. Up to 2,000 people some of them are friends, in 8
    // groups; in a larger company everybody is, in up to 200 groups.
    const QVector<SampleGroup> &friendGroups() const { return m_friendGroups; }
    int friendCount() const { return m_friendCount; }
    SampleFriend friendAt(int position) const;

    // People of other companies. The company's people know the first of them, in these
    // groups.
    static constexpr int OutsiderCount = 20;
    static constexpr int KnownOutsiderCount = 12;
    SamplePerson outsider(int index) const;
    static int outsiderIndexOf(const QString &uid); // -1: none
    static QVector<SampleGroup> outsiderGroups();

private:
    quint64 draw(int index, int field) const; // the same for the same three numbers
    bool hasLeft(int index) const;
    void buildDepartments();
    void addDepartments(int division, int leaves);
    int addDepartment(int parent, int kind, const QString &name, int leaves, bool isLeaf);
    void buildFriendGroups();
    int leafOf(int index) const;
    int headOfLeaf(int leaf) const;
    QString leaderOf(int index) const;
    QString dutyOf(int index) const;
    void fillContact(SamplePerson *person) const;

    int m_people;
    quint64 m_seed;
    int m_friendCount = 0;
    QVector<SampleDepartment> m_departments;
    QVector<int> m_leaves; // leaf number -> department
    QVector<SampleGroup> m_friendGroups;
};
