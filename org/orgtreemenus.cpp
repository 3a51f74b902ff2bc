// The menus of the organisation tree.
#include "common/context.h"
#include "common/logging.h"
#include "controls/skinmenu.h"
#include "org/orgcommands.h"
#include "org/orgstructuremgr.h"
#include "org/orgstructuretreeview.h"
#include "org/orgtreemodel.h"
#include "plugin/paneactions.h"

#include <QContextMenuEvent>

namespace {

struct Entry
{
    const char *key;
    int right; // an ApplicationContext::Right; -1: everybody has it
};

constexpr Entry departmentEntries[] = {
    {"openOrClose", -1},
    {"locateSelf", ApplicationContext::LocateSelf},
    {"freshPersionInfo", -1},
    {"addToContactList", ApplicationContext::AddContact},
};
constexpr Entry employeeEntries[] = {
    {"invitechat", ApplicationContext::Chat},   {"sendFile", ApplicationContext::SendFile},
    {"sendemail", ApplicationContext::Mail},    {"viewdetail", ApplicationContext::Detail},
    {"msgrecord", ApplicationContext::History}, {"addcon", ApplicationContext::AddContact},
};
constexpr Entry severalEntries[] = {{"createMuc", ApplicationContext::CreateMuc}};

template <int Count>
SkinMenu *makeMenu(const char *name, const Entry (&entries)[Count], QWidget *parent)
{
    auto *menu = new SkinMenu(QLatin1String(name), parent);
    for (const Entry &entry : entries) {
        if (entry.right < 0 || ctx().hasRight(entry.right))
            menu->addKey(entry.key);
    }
    return menu;
}

} // namespace

void OrgStructureTreeView::buildMenus()
{
    m_orgMenu = makeMenu("orgMenu", departmentEntries, this);
    m_empMenu = makeMenu("empMenu", employeeEntries, this);
    m_multipMenu = makeMenu("multipMenu", severalEntries, this);
    connect(m_orgMenu, &QMenu::triggered, this, &OrgStructureTreeView::slot_orgMenuClicked);
    connect(m_empMenu, &QMenu::triggered, this, &OrgStructureTreeView::slot_empMenuClicked);
    connect(m_multipMenu, &QMenu::triggered, this, &OrgStructureTreeView::slot_multipMenuClicked);
}

void OrgStructureTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const QPoint pos = menuPosition(*event);
    const QModelIndex index = indexAt(pos);
    if (!index.isValid())
        return;
    if (m_model->kind(index) == OrgRowKind::Department)
        openMenu(m_orgMenu, index, pos);
    else if (m_model->kind(index) == OrgRowKind::Employee)
        openMenu(selectedEmployees().size() > 1 ? m_multipMenu : m_empMenu, index, pos);
}

void OrgStructureTreeView::prepareEmployeeMenu(const QString &uid)
{
    const auto enable = [this](const char *key, bool enabled) {
        if (QAction *action = m_empMenu->action(key))
            action->setEnabled(enabled);
    };
    const bool other = uid != ctx().userId();
    for (const char *key : {"invitechat", "sendemail", "addcon"})
        enable(key, other);
    const PaneActions *actions = paneActions();
    enable("viewdetail", actions && actions->canOpenContactDetail());
}

void OrgStructureTreeView::openMenu(SkinMenu *menu, const QModelIndex &index, QPoint pos)
{
    m_menuId = idOf(index);
    prepareEmployeeMenu(m_menuId);
    if (!menu->isEmpty())
        popUp(menu, pos);
}

void OrgStructureTreeView::slot_orgMenuClicked(QAction *action)
{
    LOG_SCOPE("OrgStructureTreeView::slot_orgMenuClicked(QAction* action)");
    const QModelIndex index = m_model->indexOf(m_menuId);
    if (action == m_orgMenu->action("locateSelf"))
        locateSelf();
    else if (!index.isValid())
        LOG_DEBUG("the department of the menu is gone");
    else if (action == m_orgMenu->action("openOrClose"))
        expandItem(index, true);
    else if (action == m_orgMenu->action("freshPersionInfo"))
        expandItem(index, false);
    else if (action == m_orgMenu->action("addToContactList"))
        addToContacts(m_menuId);
}

void OrgStructureTreeView::slot_empMenuClicked(QAction *action)
{
    LOG_SCOPE("OrgStructureTreeView::slot_empMenuClicked(QAction* action)");
    const QString uid = m_menuId;
    if (!m_model->indexOf(uid).isValid()) {
        LOG_DEBUG("the employee of the menu is gone");
        return;
    }
    if (action == m_empMenu->action("invitechat")) {
        m_commands->openChat(uid);
    } else if (action == m_empMenu->action("sendFile")) {
        m_commands->sendFile(uid);
    } else if (action == m_empMenu->action("sendemail")) {
        const QStringList selected = selectedEmployees();
        m_commands->writeMail(selected.contains(uid) ? selected : QStringList{uid});
    } else if (action == m_empMenu->action("viewdetail")) {
        m_commands->viewDetail(uid);
    } else if (action == m_empMenu->action("msgrecord")) {
        m_commands->openHistory(uid);
    } else if (action == m_empMenu->action("addcon")) {
        m_commands->addContact(uid);
    }
}

void OrgStructureTreeView::slot_multipMenuClicked(QAction *action)
{
    LOG_SCOPE("OrgStructureTreeView::slot_multipMenuClicked(QAction* action)");
    if (action == m_multipMenu->action("createMuc"))
        m_commands->createGroupChat(selectedEmployees());
}

// --- A whole department into the contact list ----------------------------------

void OrgStructureTreeView::addToContacts(const QString &departmentId)
{
    if (m_adding.contains(departmentId) || !m_commands->mayAddContacts())
        return;
    m_adding.insert(departmentId);
    // The first people of a reply that is under way are not all of them.
    if (!m_asked.contains(departmentId) && OrgStructureMgr::instance()->isLoaded(departmentId))
        finishAdding(departmentId);
    else
        expandItem(m_model->indexOf(departmentId), false);
}

void OrgStructureTreeView::finishAdding(const QString &departmentId)
{
    if (!m_adding.remove(departmentId))
        return;
    const OrgStructureMgr *cache = OrgStructureMgr::instance();
    OrgElementList people;
    const QStringList children = cache->childrenOf(departmentId);
    for (const QString &id : children) {
        const OrgElement element = cache->elements().value(id);
        // Nobody leaves the list of a department that was left.
        if (element.strParentId == departmentId)
            people.append(element);
    }
    slot_addToFriendList(people);
}

void OrgStructureTreeView::slot_addToFriendList(const OrgElementList &orgList)
{
    LOG_SCOPE("OrgStructureTreeView::slot_addToFriendList(const OrgElementList& orgList)");
    m_commands->addContacts(orgList);
}
