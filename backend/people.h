// Who has an account: the people of the sample company, those of other companies,
// and, when asked for, the employees of one large department. All of them are
// computed; what tests and uploads change about them is laid over. All functions may
// be called from any thread.
#pragma once

#include "sample/samplecompany.h"

#include <QHash>

#include <atomic>
#include <functional>
#include <optional>
#include <shared_mutex>

struct User
{
    QString uid, account, name, spell, nickName;
    QString companyCode, companyName; // empty: a personal account
    QString orgId, orgName, leaderUid;
    QString employeeCode, duty, mobile, otherPhone, email;
    QString photoName; // empty: no picture
    SampleCompany::Reach reach;
    bool mayReadOrganisation = false;
};

class People
{
public:
    // The large department; its employees are "w000000"...
    static QString largeDepartment();

    // `departmentSize`: employees of the large department, up to
    // SampleCompany::MaximumPeople; 0: there is none.
    People(int people, quint64 seed, int departmentSize);

    const SampleCompany &company() const { return m_company; }
    int departmentSize() const { return m_departmentSize; }

    std::optional<User> find(const QString &uid) const;
    User employee(int index) const; // of the company
    User largeDepartmentEmployee(int index) const;
    static QString largeDepartmentUid(int index);
    // The uid of somebody by uid or account; empty: nobody's.
    QString uidOfLogin(const QString &loginName) const;
    // Whether somebody has a drawn picture as long as there is no uploaded one.
    static bool hasPicture(const QString &uid);

    // Lets the change be made to what find() and employee() answer for this uid, on
    // top of earlier changes.
    using Change = std::function<void(User *)>;
    void change(const QString &uid, const Change &change);
    void forgetChanges();
    // The uploaded picture; outlives forgetChanges().
    void setPhoto(const QString &uid, const QString &photoName);
    // Another number after each change.
    quint64 version() const { return m_version; }

private:
    User made(const SamplePerson &person) const;
    void applyChanges(User *user) const;

    SampleCompany m_company, m_crowd;
    int m_departmentSize;
    mutable std::shared_mutex m_mutex;
    std::atomic<quint64> m_version{1};
    QHash<QString, QVector<Change>> m_changes;
    QHash<QString, QString> m_photos;
};
