#include "ExternalFriend/externalhitmodel.h"

#include "ExternalFriend/addexternalfrdmanager.h"
#include "common/context.h"
#include "common/displaytext.h"
#include "controls/markedline.h"

namespace {

QString nameOf(const SearchFriendResultData &person)
{
    FriendData contact;
    contact.jid = person.jid;
    VcardInfo profile;
    profile.nickName = person.nickName;
    profile.userName = person.name;
    ctx().friendData(person.jid, &contact);
    return contactDisplayName(contact, profile);
}

QString companyOf(const SearchFriendResultData &person)
{
    const QString company = displayText(person.companyName);
    return company.isEmpty() ? displayText(jidUser(person.jid)) : company;
}

ExternalHitModel::State stateOf(const QString &jid)
{
    FriendData contact;
    if (ctx().friendData(jid, &contact))
        return ExternalHitModel::Added;
    return AddExternalFrdManager::instance()->isRequested(jid) ? ExternalHitModel::Requested
                                                               : ExternalHitModel::MayAdd;
}

} // namespace

void ExternalHitModel::setPeople(const QList<SearchFriendResultData> &people)
{
    if (people.isEmpty() && m_people.isEmpty())
        return;
    beginResetModel();
    m_people = people;
    endResetModel();
}

void ExternalHitModel::showAnew()
{
    if (!m_people.isEmpty())
        emit dataChanged(index(0), index(m_people.size() - 1));
}

QString ExternalHitModel::stateText(State state)
{
    switch (state) {
    case MayAdd:
        return QObject::tr("outsideAdd");
    case Requested:
        return QObject::tr("outsideRequested");
    case Added:
        return QObject::tr("outsideAdded");
    }
    return QString();
}

int ExternalHitModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_people.size();
}

QVariant ExternalHitModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const SearchFriendResultData &person = m_people.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case ExternalHitRole::Name:
        return nameOf(person);
    case ExternalHitRole::Id:
        return person.jid;
    case ExternalHitRole::Photo:
        return person.photoName;
    case ExternalHitRole::State:
        return stateOf(person.jid);
    case ExternalHitRole::MarkedName: {
        const QString name = nameOf(person);
        const int at = m_text.isEmpty() ? -1 : name.indexOf(m_text, 0, Qt::CaseInsensitive);
        MarkedText marked{name, {}};
        if (at >= 0)
            marked.marks.append({at, m_text.size()});
        return QVariant::fromValue(marked);
    }
    case ExternalHitRole::Company:
        return companyOf(person);
    case Qt::ToolTipRole:
        return toolTipText(nameOf(person) + QLatin1Char('\n') + companyOf(person));
    case Qt::AccessibleTextRole:
        return QStringList{nameOf(person), companyOf(person), stateText(stateOf(person.jid))}.join(
            QStringLiteral(", "));
    default:
        return QVariant();
    }
}
