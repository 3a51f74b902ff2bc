// What the organisation services deliver.
#pragma once

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>

// A department or an employee. Texts come from a server: plain text, any length.
struct OrgElement
{
    QString strId;   // the department's id, or the employee's account
    QString strName; // as it is shown
    QString strReserved1;
    QString strSpell; // the name in Latin letters
    QString strEmpCode;
    QString strParentId; // the department that this one belongs to
    QString strDuty;
    QString strReserved2;
    QString strEmail;
    QString strPhotoName; // a name, never a path
    QString strReserved3;
    qint32 nStatus = 0; // a PresenceData::ePcShowType
    qint32 nDevice = 0; // a PresenceData::MobileDevice
    bool bIsEmp = false;
};

using OrgElementList = QList<OrgElement>;
using OrgElementMap = QMap<QString, OrgElement>; // by id

// One hit of the people search.
struct SearchUserData
{
    QString companyCode, userId, employeeCode, photoName, nickName, duty, companyName, orgName,
        mobile, otherPhone, email, orgId, leaderId, leaderName;
    qint32 nStatus = 0; // as in OrgElement
    qint32 nDevice = 0;
};

struct SearchResponseData
{
    QList<SearchUserData> userList; // in the server's order
};

Q_DECLARE_METATYPE(OrgElement)
Q_DECLARE_METATYPE(OrgElementList)
Q_DECLARE_METATYPE(OrgElementMap)
Q_DECLARE_METATYPE(SearchResponseData)
