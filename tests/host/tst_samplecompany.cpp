// The sample company: what two programs with the same two numbers must agree on.
#include "sample/sampleroster.h"
#include "tests/support/testrunner.h"

#include <QHash>
#include <QSet>

namespace {
QString fingerprint(const SamplePerson &p)
{
    return QStringList{p.uid,       p.account,     p.name,           p.spell,        p.sex,
                       p.birthday,  p.locality,    p.sign,           p.employeeCode, p.duty,
                       p.mobile,    p.otherPhone,  p.personalMobile, p.email,        p.departmentId,
                       p.leaderUid, p.companyCode, p.departmentName}
        .join(QLatin1Char('|'));
}
} // namespace

class TstSampleCompany : public QObject
{
    Q_OBJECT

private slots:
    void sameNumbersSameCompany()
    {
        const SampleCompany one(300, 7), same(300, 7), other(300, 8);
        int different = 0;
        for (int i = one.people() - 1; i >= 0; --i) { // in another order than `same` is asked
            QCOMPARE(fingerprint(one.person(i)), fingerprint(same.person(i)));
            different += one.person(i).name != other.person(i).name ? 1 : 0;
        }
        QVERIFY(different > 200);
        QCOMPARE(one.friendAt(17).person, same.friendAt(17).person);
        // Kept across versions: other programs store these ids and names.
        const SamplePerson known = SampleCompany().person(42);
        QCOMPARE(known.uid, QStringLiteral("u000042"));
        QCOMPARE(known.employeeCode, QStringLiteral("E000042"));
    }

    void idsLeadBackToTheirPeople()
    {
        const SampleCompany company(1200);
        QSet<QString> accounts, codes;
        for (int i = 0; i < company.people(); ++i) {
            const SamplePerson person = company.person(i);
            QCOMPARE(company.indexOf(person.uid), i);
            accounts.insert(person.account);
            codes.insert(person.employeeCode);
        }
        QCOMPARE(accounts.size(), company.people());
        QCOMPARE(codes.size(), company.people());
        for (const char *bad :
             {"", "u", "u1", "u001200", "u-00001", "x000001", "U000001", "u0000010", "u00000a"})
            QCOMPARE(company.indexOf(QString::fromLatin1(bad)), -1);
        QCOMPARE(company.person(-1).index, -1);
        QCOMPARE(company.person(1200).index, -1);
        QCOMPARE(SampleCompany::outsiderIndexOf(company.outsider(3).uid), 3);
    }

    void everybodyHasOneDepartmentAndAWayUp_data()
    {
        const Rows<int, int> row{"people", "levels"};
        row("alone", 1, 2);
        row("two", 2, 2);
        row("fewer than departments", 30, 2);
        row("default", 300, 3);
        row("large", 20000, 3);
    }
    void everybodyHasOneDepartmentAndAWayUp()
    {
        QFETCH(int, people);
        QFETCH(int, levels);
        const SampleCompany company(people);
        const auto &departments = company.departments();
        QHash<QString, int> byId;
        int deepest = 0, seats = 0;
        for (int i = 0; i < departments.size(); ++i) {
            const SampleDepartment &department = departments.at(i);
            QVERIFY(!byId.contains(department.id));
            QVERIFY(department.parent < i);
            QVERIFY(department.parent < 0 || byId.contains(department.parentId));
            byId.insert(department.id, i);
            deepest = qMax(deepest, department.level);
            for (const int member : company.members(i)) {
                QCOMPARE(company.person(member).departmentId, department.id);
                ++seats;
            }
        }
        QCOMPARE(seats, people);
        QCOMPARE(deepest, levels);

        int heads = 0;
        for (int i = 0; i < people; ++i) {
            int at = i, steps = 0;
            for (QString leader = company.person(at).leaderUid; !leader.isEmpty();
                 leader = company.person(at).leaderUid) {
                at = company.indexOf(leader);
                QVERIFY(at >= 0 && ++steps < 6);
            }
            heads += steps == 0 ? 1 : 0;
        }
        QCOMPARE(heads, 1);
    }

    void namesAreMixedAndRepeat()
    {
        const SampleCompany company(10000);
        QHash<QString, int> names;
        int chinese = 0, rightToLeft = 0, withMarks = 0;
        for (int i = 0; i < company.people(); ++i) {
            const SamplePerson person = company.person(i);
            QVERIFY(!person.name.isEmpty() && !person.spell.isEmpty());
            ++names[person.name];
            chinese += person.name.at(0).script() == QChar::Script_Han ? 1 : 0;
            rightToLeft += person.name.isRightToLeft() ? 1 : 0;
            withMarks += person.name.contains(QLatin1Char('\'')) ? 1 : 0;
            for (const QChar c : person.account)
                QVERIFY2(c.unicode() < 128, qPrintable(person.account));
        }
        QVERIFY(chinese > 6700 && chinese < 7300 && rightToLeft > 20 && withMarks > 20);
        QVERIFY(*std::max_element(names.cbegin(), names.cend()) > 5);
        QVERIFY(names.size() > 3000);
    }

    void friendsAreDifferentPeopleInAllGroups_data()
    {
        const Rows<int, int, int, int> row{"people", "fewest", "most", "groups"};
        row("alone", 1, 1, 1, 8);
        row("small", 40, 40, 40, 8);
        row("default", 300, 60, 120, 8);
        row("just selected", 2000, 60, 130, 8);
        row("just everybody", 2001, 2001, 2001, 8);
        row("load test", 100000, 100000, 100000, 200);
    }
    void friendsAreDifferentPeopleInAllGroups()
    {
        QFETCH(int, people);
        QFETCH(int, fewest);
        QFETCH(int, most);
        QFETCH(int, groups);
        const SampleCompany company(people);
        QVERIFY(company.friendCount() >= fewest && company.friendCount() <= most);
        QCOMPARE(company.friendGroups().size(), groups);
        QSet<int> who, used;
        for (int i = 0; i < company.friendCount(); ++i) {
            const SampleFriend seat = company.friendAt(i);
            QVERIFY(seat.person >= 0 && seat.person < people);
            QVERIFY(seat.group >= 0 && seat.group < groups);
            who.insert(seat.person);
            used.insert(seat.group);
        }
        QCOMPARE(who.size(), company.friendCount());
        QVERIFY(who.contains(0)); // the own row
        QVERIFY(people < 300 || used.size() == groups);
        QSet<QString> ids, names;
        for (const SampleGroup &group : company.friendGroups()) {
            ids.insert(group.id);
            names.insert(group.name);
        }
        QCOMPARE(ids.size(), groups);
        QCOMPARE(names.size(), groups);
    }

    void uidAndAccountLeadToSomebody()
    {
        const SampleCompany company(1200);
        for (const int index : {0, 7, 1199}) {
            const SamplePerson person = company.person(index);
            QCOMPARE(company.uidOf(person.uid.toUpper()), person.uid);
            QCOMPARE(company.uidOf(QLatin1Char(' ') + person.account), person.uid);
        }
        for (const int index : {0, 11}) {
            const SamplePerson person = company.outsider(index);
            QCOMPARE(company.uidOf(person.uid), person.uid);
            QCOMPARE(company.uidOf(person.account), person.uid);
        }
        for (const char *nobody : {"", "u001200", "x000020", "nobody", "0", "nobody99999999999"})
            QCOMPARE(company.uidOf(QString::fromLatin1(nobody)), QString());
    }

    void everybodyKnowsOthersButNotThemselves_data()
    {
        const Rows<int, QString, int, int> row{"people", "user", "friends", "externals"};
        const int most = SampleCompany(300).friendCount();
        row("the first", 300, "u000000", most, 12);
        row("a friend of the first", 300, SampleCompany().uid(SampleCompany().friendAt(5).person),
            most, 12);
        row("the last", 300, "u000299", most, 12);
        row("of a large company", 5000, "u004711", 5000, 12);
        row("alone", 1, "u000000", 1, 12);
        row("of another company", 300, "x000000", 4, 40);
        row("of the other one", 300, "x000010", 4, 40);
        row("with a personal account", 300, "x000002", 1, 40);
        row("outside of one person", 1, "x000002", 1, 1);
    }
    void everybodyKnowsOthersButNotThemselves()
    {
        QFETCH(int, people);
        QFETCH(QString, user);
        QFETCH(int, friends);
        QFETCH(int, externals);
        const SampleCompany company(people);
        const SampleRoster roster(company, user);
        QCOMPARE(roster.own().uid, user);
        QCOMPARE(roster.contact(0, true).person.uid, user);
        QSet<QString> known;
        for (const bool inner : {true, false}) {
            QCOMPARE(roster.count(inner), inner ? friends : externals);
            QSet<QString> groups;
            for (const SampleGroup &group : roster.groups(inner))
                groups.insert(group.id);
            for (int i = 0; i < roster.count(inner); ++i) {
                const SampleContact contact = roster.contact(i, inner);
                QCOMPARE(company.find(contact.person.uid).index, contact.person.index);
                QCOMPARE(roster.isColleague(contact.person), inner);
                QVERIFY(groups.contains(contact.groupId));
                known.insert(contact.person.uid);
            }
            QVERIFY(roster.contact(roster.count(inner), inner).person.uid.isEmpty());
        }
        QCOMPARE(known.size(), friends + externals);
        QSet<QString> mates;
        for (int place = 0; place < people; ++place)
            mates.insert(roster.mate(place).uid);
        QVERIFY(mates.contains(user) && mates.size() == people && !mates.contains(QString()));
    }
};

FRIENDUI_TEST(TstSampleCompany)
#include "tst_samplecompany.moc"
