// The groups of a page of contacts.
#include "contacts/contacttreepage.h"
#include "contacts/contacttreescope.h"
#include "contacts/friendcommands.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/groupexpansion.h"
#include "plugin/frienduisignalsender.h"

void ContactTreePage::connectGroups()
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    using Page = ContactTreePage;
    connect(hub, &Hub::signal_addGroup, this, &Page::slot_addGroup);
    connect(hub, &Hub::signal_addAllGroup, this, &Page::slot_addAllGroup);
    connect(hub, &Hub::signal_delGroup, this, &Page::slot_delGroup);
    connect(hub, &Hub::signal_changeGroupName, this, &Page::slot_renameGroupName);
    connect(hub, &Hub::signal_moveitem, this, &Page::slot_moveFriendToNewGroup);
    connect(hub, &Hub::signal_getGroupFail, this, &Page::slot_getGroupAgain);
}

void ContactTreePage::slot_addGroup(QString strGroupId, QString groupName, bool bIsSuccess,
                                    bool bInnerGroup)
{
    LOG_PAGE_SCOPE(
        "slot_addGroup(QString strGroupId, QString groupName, bool bIsSuccess, bool bInnerGroup)");
    if (!isMine(bInnerGroup))
        return;
    if (bIsSuccess)
        m_model->mergeGroups({{strGroupId, groupName}});
    else
        LOG_ERROR("the group " << logText(groupName) << " could not be created");
    showState();
    const bool askedHere = m_view->commands()->groupCreated(groupName);
    if (!bIsSuccess && (askedHere || m_kind.tellsEveryCreation))
        tell(QObject::tr(m_kind.creationFailed));
}

void ContactTreePage::slot_addAllGroup(QList<GroupData> &groupList, bool bInnerGroup)
{
    LOG_PAGE_SCOPE("slot_addAllGroup(QList<GroupData>& groupList, bool bInnerGroup)");
    if (isMine(bInnerGroup))
        addallGroup(groupList);
}

void ContactTreePage::addallGroup(const QList<GroupData> &groups)
{
    LOG_PAGE_SCOPE("addallGroup(const QList<GroupData>& groups)");
    m_listArrived = true;
    m_failed = false;
    m_groupRetries = 0;
    m_view->groupsArrived();
    m_model->mergeGroups(groups);
    showState();
}

void ContactTreePage::slot_delGroup(bool bSuccess, QString strGroupId, bool bInnerGroup)
{
    LOG_PAGE_SCOPE("slot_delGroup(bool bSuccess, QString strGroupId, bool bInnerGroup)");
    if (!isMine(bInnerGroup))
        return;
    if (bSuccess) {
        delGroup(strGroupId);
        return;
    }
    LOG_ERROR("the group " << logText(strGroupId) << " could not be deleted");
    tellAsItStands(m_kind.deletionFailed);
}

void ContactTreePage::delGroup(const QString &strGroupId)
{
    LOG_PAGE_SCOPE("delGroup(const QString& strGroupId)");
    if (!m_model->removeGroup(strGroupId)) {
        LOG_DEBUG("删除的组不存在");
        if (m_kind.tellsUnknownDeletion)
            tellAsItStands("删除的组不存在");
    }
    showState();
}

void ContactTreePage::slot_renameGroupName(QString strGroupId, QString newGroupName, bool bSuccess,
                                           bool bInnerGroup)
{
    LOG_PAGE_SCOPE("slot_renameGroupName(QString strGroupId, QString newGroupName, bool bSuccess, "
                   "bool bInnerGroup)");
    if (!isMine(bInnerGroup))
        return;
    if (!bSuccess) {
        LOG_ERROR("the group " << logText(strGroupId) << " could not be renamed");
        tellAsItStands(m_kind.renamingFailed);
        return;
    }
    const QString oldName = m_model->groupName(strGroupId);
    if (m_model->renameGroup(strGroupId, newGroupName)) {
        m_expansion->noteRename(oldName, m_model->groupName(strGroupId));
        showState();
        return;
    }
    LOG_DEBUG("组名不存在");
    tellAsItStands("组名不存在");
}

void ContactTreePage::slot_moveFriendToNewGroup(bool bSuccess, QString frdjid, QString oldgroupId,
                                                QString newgroupId, bool bInnerGroup)
{
    LOG_PAGE_SCOPE("slot_moveFriendToNewGroup(bool bSuccess, QString frdjid, QString oldgroupId, "
                   "QString newgroupId, bool bInnerGroup)");
    if (!isMine(bInnerGroup))
        return;
    if (bSuccess) {
        moveFriendToNewGroup(frdjid, oldgroupId, newgroupId);
        return;
    }
    LOG_ERROR("the contact " << logText(frdjid) << " could not be moved");
    tellAsItStands("移动分组失败，请重试！");
}

void ContactTreePage::moveFriendToNewGroup(const QString &friendJid, const QString &oldGroup,
                                           const QString &newGroup)
{
    LOG_PAGE_SCOPE("moveFriendToNewGroup(const QString& friendJid, const QString& oldGroup, const "
                   "QString& newGroup)");
    if (!m_model->hasContact(friendJid))
        LOG_DEBUG(":user not exist");
    else if (oldGroup == newGroup)
        LOG_DEBUG("move group is same");
    else if (!m_model->moveContact(friendJid, newGroup))
        LOG_ERROR("the group " << logText(newGroup) << " is unknown");
}

void ContactTreePage::slot_setExpandContact(bool bExpandContact)
{
    LOG_PAGE_SCOPE("slot_setExpandContact(bool bExpandContact)");
    m_expansion->setAll(bExpandContact);
}

void ContactTreePage::slot_setgroupexpandlist(bool isexpanded, QString groupname)
{
    LOG_PAGE_SCOPE("slot_setgroupexpandlist(bool isexpanded, QString groupname)");
    m_expansion->note(isexpanded, groupname);
}
