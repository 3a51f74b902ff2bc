#include "org/orgtreechanges.h"

#include "hostapi/rosterrecords.h"

namespace {

quint32 digestOf(const OrgElement &element)
{
    uint digest = 0;
    for (const QString *text : {&element.strName, &element.strSpell, &element.strEmpCode,
                                &element.strDuty, &element.strEmail, &element.strPhotoName})
        digest = digest * 31 + qHash(*text, digest);
    return digest;
}

quint32 status(int value)
{
    return quint32(qBound(int(PresenceData::Offline), value, int(PresenceData::FreeForChat)));
}

quint32 device(int value)
{
    return quint32(qBound(int(PresenceData::NoMobile), value, int(PresenceData::Ios)));
}

} // namespace

QModelIndex OrgTreeChanges::index(quint32 number) const
{
    if (!m_rows->isShown(number))
        return QModelIndex();
    return m_model->createIndex(int(m_rows->node(number).row), 0, quintptr(number));
}

bool OrgTreeChanges::receive(const OrgElement &element)
{
    if (element.strId.isEmpty() || element.strId == element.strParentId)
        return false;
    const quint32 known = m_rows->find(element.strId);
    if (known == OrgTreeRows::Root)
        return false;
    if (known != OrgTreeRows::None) {
        update(known, element);
        return true;
    }
    if (m_rows->isFull())
        return false;
    const quint32 number = m_rows->append(element.strId);
    OrgTreeNode &node = m_rows->node(number);
    node.digest = digestOf(element);
    node.status = status(element.nStatus);
    node.device = device(element.nDevice);
    node.isEmployee = element.bIsEmp;
    place(number, element.strParentId);
    return true;
}

void OrgTreeChanges::finish()
{
    insertArrivals();
    changeKinds();
    moveRows();
    announceChanges();
}

void OrgTreeChanges::place(quint32 number, const QString &parentId)
{
    // Usually the one before went there too.
    if (m_lastHolder == OrgTreeRows::None || m_rows->node(m_lastHolder).id != parentId)
        m_lastHolder = m_rows->holder(parentId);
    if (m_lastHolder == OrgTreeRows::None)
        m_rows->waitFor(number, parentId);
    else
        arrive(number, m_lastHolder);
}

void OrgTreeChanges::arrive(quint32 number, quint32 parent)
{
    OrgTreeBranch &above = m_rows->branch(parent);
    if (above.arrivals.empty())
        m_arrivedUnder.push_back(parent);
    above.arrivals.push_back(number);
    OrgTreeNode &node = m_rows->node(number);
    node.isAttached = 1;
    node.parent = parent;
    if (!m_rows->canHold(number))
        return;
    // As deep as the tree may be, and no deeper.
    for (const quint32 child : m_rows->takeWaiting(node.id)) {
        if (!m_rows->node(child).isAttached)
            arrive(child, number);
    }
}

// A row comes before the ones below it, because that is the order in which their
// parents got arrivals.
void OrgTreeChanges::insertArrivals()
{
    for (size_t i = 0; i < m_arrivedUnder.size(); ++i) {
        const quint32 parent = m_arrivedUnder[i];
        OrgTreeBranch &branch = m_rows->branch(parent);
        const std::vector<quint32> arrivals = std::exchange(branch.arrivals, {});
        removePlaceholder(parent);
        const size_t first = branch.rows.size();
        m_model->beginInsertRows(index(parent), int(first), int(first + arrivals.size()) - 1);
        branch.rows.insert(branch.rows.end(), arrivals.begin(), arrivals.end());
        m_rows->renumber(parent, first);
        m_model->endInsertRows();
        for (const quint32 arrived : arrivals)
            updatePlaceholder(arrived, false);
    }
    m_arrivedUnder.clear();
}

// --- Known elements --------------------------------------------------------------

void OrgTreeChanges::update(quint32 number, const OrgElement &element)
{
    OrgTreeNode &node = m_rows->node(number);
    const quint32 digest = digestOf(element);
    const quint32 newStatus = status(element.nStatus), newDevice = device(element.nDevice);
    const bool newKind = bool(node.isEmployee) != element.bIsEmp;
    if (digest != node.digest || newStatus != node.status || newDevice != node.device || newKind) {
        node.digest = digest;
        node.status = newStatus;
        node.device = newDevice;
        node.isEmployee = element.bIsEmp;
        m_changed.push_back(number);
        if (newKind) {
            m_newKind.push_back(number);
            m_lastHolder = OrgTreeRows::None;
        }
    }
    setParent(number, element.strParentId);
}

void OrgTreeChanges::setParent(quint32 number, const QString &parentId)
{
    const OrgTreeNode &node = m_rows->node(number);
    const QString &old = m_rows->parentId(number);
    const bool isSame = old == parentId || (parentId.isEmpty() && old == m_rows->rootId());
    if (!node.isAttached) {
        if (!isSame)
            place(number, parentId);
        return;
    }
    const bool isLeaving = !m_newParent.isEmpty() && m_newParent.contains(number);
    if (isSame && !isLeaving)
        return;
    if (!isLeaving)
        m_leaving.push_back(number);
    m_newParent.insert(number, parentId);
}

// An employee has nobody below.
void OrgTreeChanges::changeKinds()
{
    for (const quint32 number : m_newKind) {
        const OrgTreeNode &node = m_rows->node(number);
        if (!node.isEmployee && m_rows->canHold(number)) {
            for (const quint32 child : m_rows->takeWaiting(node.id)) {
                if (!m_rows->node(child).isAttached)
                    arrive(child, number);
            }
        }
        const int rows = m_rows->rowCount(number);
        if (node.isEmployee && rows > 0) {
            m_model->beginRemoveRows(index(number), 0, rows - 1);
            m_rows->putChildrenAside(number);
            m_model->endRemoveRows();
        }
        insertArrivals();
        updatePlaceholder(number, false);
    }
}

void OrgTreeChanges::setPresence(quint32 number, int newStatus, int newDevice)
{
    OrgTreeNode &node = m_rows->node(number);
    if (node.status == status(newStatus) && node.device == device(newDevice))
        return;
    node.status = status(newStatus);
    node.device = device(newDevice);
    const QModelIndex at = index(number);
    if (at.isValid())
        emit m_model->dataChanged(at, at,
                                  {OrgRole::Status, OrgRole::Device, Qt::AccessibleTextRole});
}

void OrgTreeChanges::updatePlaceholder(quint32 number, bool stateChanged)
{
    const OrgTreeBranch *known = m_rows->branchOf(number);
    if (!known || number == OrgTreeRows::Root)
        return;
    OrgTreeBranch &branch = m_rows->branch(number);
    const OrgTreeNode &node = m_rows->node(number);
    const bool wanted =
        branch.rows.empty() && !node.isEmployee && node.isAttached &&
        (branch.state == OrgChildren::Loading || branch.state == OrgChildren::Failed);
    if (wanted && !branch.hasPlaceholder) {
        m_model->beginInsertRows(index(number), 0, 0);
        branch.hasPlaceholder = true;
        m_model->endInsertRows();
    } else if (!wanted) {
        removePlaceholder(number);
    } else if (wanted && stateChanged) {
        const QModelIndex at = m_model->index(0, 0, index(number));
        emit m_model->dataChanged(at, at);
    }
}

void OrgTreeChanges::removePlaceholder(quint32 number)
{
    OrgTreeBranch &branch = m_rows->branch(number);
    if (!branch.hasPlaceholder)
        return;
    m_model->beginRemoveRows(index(number), 0, 0);
    branch.hasPlaceholder = false;
    m_model->endRemoveRows();
}

// Neighbours in one signal.
void OrgTreeChanges::announceChanges()
{
    const auto place = [this](quint32 number) {
        const OrgTreeNode &node = m_rows->node(number);
        return std::make_pair(node.parent, node.row);
    };
    std::sort(m_changed.begin(), m_changed.end(),
              [&](quint32 a, quint32 b) { return place(a) < place(b); });
    m_changed.erase(std::unique(m_changed.begin(), m_changed.end()), m_changed.end());
    for (size_t first = 0; first < m_changed.size();) {
        size_t last = first;
        const auto start = place(m_changed[first]);
        while (last + 1 < m_changed.size() && m_rows->isShown(m_changed[last + 1]) &&
               place(m_changed[last + 1]) ==
                   std::make_pair(start.first, start.second + quint32(last + 1 - first)))
            ++last;
        const QModelIndex from = index(m_changed[first]);
        if (from.isValid())
            emit m_model->dataChanged(from, index(m_changed[last]));
        first = last + 1;
    }
}
