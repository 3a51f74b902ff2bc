#include "contacts/groupexpansion.h"

#include "common/clientpaths.h"
#include "common/cmodifyconfigfile.h"
#include "common/settingsfile.h"
#include "contacts/friendtreeroles.h"

#include <QSignalBlocker>
#include <QTreeView>

GroupExpansion::GroupExpansion(QTreeView *view, const QString &key)
    : QObject(view), m_view(view), m_key(key)
{
    m_storing.setSingleShot(true);
    connect(&m_storing, &QTimer::timeout, this, &GroupExpansion::store);
}

GroupExpansion::~GroupExpansion()
{
    if (m_storing.isActive())
        store();
}

void GroupExpansion::load()
{
    if (m_storing.isActive())
        store(); // of the user before
    m_expanded.clear();
    m_known = false;
    m_file = ClientPaths::userSettingsFile();
    if (!m_file.isEmpty()) {
        const SettingsFile settings(m_file);
        m_known = settings.contains(m_key);
        const QStringList names = settings.list(m_key);
        m_expanded = QSet<QString>(names.begin(), names.end());
    }
    restore(0, m_view->model()->rowCount() - 1);
    m_view->doItemsLayout();
}

void GroupExpansion::restore(int first, int last)
{
    // Without signals: to whom they tell would lay the tree out for each group.
    const QSignalBlocker quiet(m_view);
    const QAbstractItemModel *model = m_view->model();
    // While the groups arrive, before their contacts, another one may become first.
    const QModelIndex formerFirst = first == 0 ? model->index(last + 1, 0) : QModelIndex();
    const bool takesOver =
        !m_known && first == 0 && (!formerFirst.isValid() || model->rowCount(formerFirst) == 0);
    if (takesOver && formerFirst.isValid())
        m_view->setExpanded(formerFirst, false);
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = model->index(row, 0);
        const QString name = index.data(FriendTreeRole::Name).toString();
        m_view->setExpanded(index, m_known ? m_expanded.contains(name) : takesOver && row == 0);
    }
}

void GroupExpansion::note(bool expanded, const QString &groupName)
{
    if (!m_known) {
        // From now on the list says it all, also of the groups that are open by default.
        m_known = true;
        for (int row = 0; row < m_view->model()->rowCount(); ++row) {
            const QModelIndex index = m_view->model()->index(row, 0);
            if (m_view->isExpanded(index))
                m_expanded.insert(index.data(FriendTreeRole::Name).toString());
        }
    }
    if (expanded)
        m_expanded.insert(groupName);
    else
        m_expanded.remove(groupName);
    storeSoon();
}

void GroupExpansion::noteRename(const QString &oldName, const QString &newName)
{
    if (m_known && m_expanded.remove(oldName)) {
        m_expanded.insert(newName);
        storeSoon();
    }
}

void GroupExpansion::setAll(bool expanded)
{
    m_known = true;
    m_expanded.clear();
    {
        const QSignalBlocker quiet(m_view);
        if (expanded)
            m_view->expandAll();
        else
            m_view->collapseAll();
    }
    m_view->doItemsLayout();
    for (int row = 0; expanded && row < m_view->model()->rowCount(); ++row)
        m_expanded.insert(m_view->model()->index(row, 0).data(FriendTreeRole::Name).toString());
    storeSoon();
}

void GroupExpansion::store()
{
    m_storing.stop();
    if (m_file.isEmpty())
        return;
    QStringList names = m_expanded.values();
    names.sort();
    emit CModifyConfigFile::instance().signal_changeConfigValue(m_file, m_key, names,
                                                                SettingsFile::Ini);
}
