// Elements of a small company.
#pragma once

#include "http/orgrecords.h"

inline OrgElement makeDepartment(const QString &id, const QString &parentId,
                                 const QString &name = QString())
{
    OrgElement element;
    element.strId = id;
    element.strParentId = parentId;
    element.strName = name.isEmpty() ? QStringLiteral("dept ") + id : name;
    return element;
}

inline OrgElement makeEmployee(const QString &id, const QString &departmentId,
                               const QString &name = QString())
{
    OrgElement element = makeDepartment(id, departmentId, name.isEmpty() ? id : name);
    element.bIsEmp = true;
    element.strDuty = QStringLiteral("Engineer");
    return element;
}

// u0, u1, ... of a department.
inline OrgElementList makeEmployees(int count, const QString &departmentId)
{
    OrgElementList list;
    for (int i = 0; i < count; ++i)
        list.append(makeEmployee(QStringLiteral("u%1").arg(i), departmentId));
    return list;
}
