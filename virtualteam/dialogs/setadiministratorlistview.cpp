#include "virtualteam/dialogs/setadiministratorlistview.h"

#include "controls/typefinder.h"
#include "http/fileservices.h"
#include "virtualteam/companynames.h"
#include "virtualteam/dialogs/memberchoicemodel.h"
#include "virtualteam/dialogs/setadminlistdelegate.h"
#include "virtualteam/teamroles.h"

#include <QKeyEvent>

SetAdiministratorListView::SetAdiministratorListView(QWidget *parent)
    : RowView(new MemberChoiceModel, TeamRowRole::Name, parent),
      m_members(static_cast<MemberChoiceModel *>(model()))
{
    m_members->setParent(this);
    setObjectName(QStringLiteral("SetAdiministratorListView"));
    setItemDelegate(new SetAdminListDelegate(this));
    setSelectionMode(SingleSelection);
    setAccessibleName(QObject::tr("setAdmin"));
    connect(this, &QTreeView::clicked, this, &SetAdiministratorListView::toggle);
    connect(&PictureFiles::instance(), &PictureFiles::ready, viewport(),
            QOverload<>::of(&QWidget::update));
    connect(&CompanyNames::instance(), &CompanyNames::learned, viewport(),
            QOverload<>::of(&QWidget::update));
}

void SetAdiministratorListView::setMembers(const QList<CVirtualTeamMemberInfo> &members)
{
    QList<CVirtualTeamMemberInfo> choices;
    QHash<QString, bool> changed;
    for (const CVirtualTeamMemberInfo &member : members) {
        if (member.role == TeamRole::Owner)
            continue;
        choices.append(member);
        const MemberChoice *known = m_members->find(member.userId);
        const bool isAdministrator = member.role == TeamRole::SubAdministrator;
        if (!known || isAdministrator != (known->member.role == TeamRole::SubAdministrator))
            changed.insert(member.userId, isAdministrator);
    }
    m_members->setMembers(choices, MemberChoiceModel::ByRoleAndName);
    for (auto at = changed.constBegin(); at != changed.constEnd(); ++at)
        m_members->setChecked(at.key(), at.value());
    emit checkedChanged();
}

void SetAdiministratorListView::setFilter(const QString &text)
{
    const QString current = currentIndex().data(TeamRowRole::Id).toString();
    m_members->setFilter(text);
    const QModelIndex same = m_members->indexOf(current);
    if (same.isValid())
        reveal(same);
}

void SetAdiministratorListView::toggle(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    m_members->setChecked(index.data(TeamRowRole::Id).toString(),
                          !index.data(TeamRowRole::Checked).toBool());
    emit checkedChanged();
}

void SetAdiministratorListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !finder()->isActive())
        toggle(currentIndex());
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        RowView::keyPressEvent(event);
}

void SetAdiministratorListView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        setAccessibleName(QObject::tr("setAdmin"));
        viewport()->update();
    }
    RowView::changeEvent(event);
}
