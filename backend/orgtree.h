// The company's departments as the services tell of them, with the large department
// when there is one. Built once; may be asked from any thread.
#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include <mutex>
#include <string>

class JsonText;
class People;
struct User;

class OrgTree
{
public:
    explicit OrgTree(const People &people);

    struct Department
    {
        QString id, parentId, name, spell;
        int parent = -1; // -1: the company
        QVector<int> children;
        int source = -1; // in the sample company; -1: the large department
    };

    // The word for a SampleCompany::Reach::pc.
    static const char *show(int pc);

    int count() const { return m_departments.size(); }
    const Department &at(int index) const { return m_departments.at(index); }
    const QVector<int> &topmost() const { return m_topmost; }
    int find(const QString &id) const; // -1: unknown
    // Names from the topmost department to this one, with "/" between.
    QString fullName(int index) const;
    // From the topmost department to this one.
    QVector<int> path(int index) const;

    // The members of the department's object, without its braces.
    void writeDepartment(JsonText *json, int index) const;
    // The people of a department as objects; none when it has sub-departments. Head
    // first.
    void writeEmployees(JsonText *json, int index) const;

private:
    void add(Department department);
    void writeLargeDepartment(JsonText *json) const;

    const People &m_people;
    QVector<Department> m_departments;
    QVector<int> m_topmost;
    QHash<QString, int> m_byId;
    // The people of the large department, as they were at this version: to compute
    // them takes much longer than to send them.
    mutable std::mutex m_mutex;
    mutable quint64 m_largeVersion = 0;
    mutable std::string m_largeText;
};
