#include "org/orgtreemodel.h"

#include "common/displaytext.h"
#include "controls/presencetext.h"
#include "hostapi/rosterrecords.h"
#include "org/orgtreechanges.h"

struct OrgTreeModel::Private
{
    OrgTreeRows rows;
    const OrgElementMap *records = nullptr;
    OrgElementMap ownRecords;

    OrgElement record(quint32 number) const
    {
        const OrgElementMap &map = records ? *records : ownRecords;
        return map.value(rows.node(number).id);
    }
    static PresenceData presence(const OrgTreeNode &node)
    {
        PresenceData presence;
        presence.pcShow = PresenceData::ePcShowType(node.status);
        presence.mobile = qint32(node.device);
        return presence;
    }
    static QString accessibleText(const OrgTreeNode &node, const OrgElement &record)
    {
        const QString name = displayText(record.strName);
        if (!node.isEmployee)
            return name;
        QStringList parts{name, displayText(record.strDuty), presenceText(presence(node))};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }
    QVariant rowData(const OrgTreeNode &node, const OrgElement &record, int role) const;
};

OrgTreeModel::OrgTreeModel(QObject *parent) : OrgTreeSteps(parent), d(std::make_unique<Private>())
{
}

OrgTreeModel::~OrgTreeModel() = default;

void OrgTreeModel::setRecords(const OrgElementMap *records)
{
    d->records = records;
    if (records)
        d->ownRecords.clear();
}

void OrgTreeModel::setRootId(const QString &rootId)
{
    if (rootId == d->rows.rootId())
        return;
    beginResetModel();
    d->rows.clear(rootId);
    d->ownRecords.clear();
    endResetModel();
}

QString OrgTreeModel::rootId() const
{
    return d->rows.rootId();
}

void OrgTreeModel::addElements(const OrgElementList &elements)
{
    OrgTreeChanges changes(this, &d->rows);
    for (const OrgElement &element : elements) {
        if (changes.receive(element) && !d->records)
            d->ownRecords.insert(element.strId, element);
    }
    changes.finish();
}

void OrgTreeModel::setChildrenState(const QString &departmentId, Children state)
{
    const quint32 number = d->rows.find(departmentId);
    if (number == OrgTreeRows::None || childrenState(departmentId) == state)
        return;
    const QModelIndex index = indexOf(departmentId);
    d->rows.branch(number).state = state;
    OrgTreeChanges(this, &d->rows).updatePlaceholder(number, true);
    // Whether it can be opened may have changed.
    if (index.isValid())
        emit dataChanged(index, index);
}

OrgTreeModel::Children OrgTreeModel::childrenState(const QString &departmentId) const
{
    const quint32 number = d->rows.find(departmentId);
    const OrgTreeBranch *branch = number == OrgTreeRows::None ? nullptr : d->rows.branchOf(number);
    return branch ? branch->state : Children::NotAsked;
}

void OrgTreeModel::setPresence(const QString &uid, int status, int device)
{
    const quint32 number = d->rows.find(uid);
    if (number != OrgTreeRows::None && number != OrgTreeRows::Root)
        OrgTreeChanges(this, &d->rows).setPresence(number, status, device);
}

QModelIndex OrgTreeModel::indexOf(const QString &id) const
{
    const quint32 number = d->rows.find(id);
    if (number == OrgTreeRows::None || !d->rows.isShown(number))
        return QModelIndex();
    return createIndex(int(d->rows.node(number).row), 0, quintptr(number));
}

OrgRowKind OrgTreeModel::kind(const QModelIndex &index) const
{
    if (!index.isValid() || !OrgTreeRows::isPlaceholder(index.internalId())) {
        const bool isEmployee =
            index.isValid() && d->rows.node(quint32(index.internalId())).isEmployee;
        return isEmployee ? OrgRowKind::Employee : OrgRowKind::Department;
    }
    const OrgTreeBranch *branch = d->rows.branchOf(OrgTreeRows::departmentOf(index.internalId()));
    return branch->state == Children::Failed ? OrgRowKind::Failed : OrgRowKind::Loading;
}

OrgElement OrgTreeModel::element(const QModelIndex &index) const
{
    if (!index.isValid() || OrgTreeRows::isPlaceholder(index.internalId()))
        return OrgElement();
    const auto number = quint32(index.internalId());
    OrgElement record = d->record(number);
    record.nStatus = qint32(d->rows.node(number).status);
    record.nDevice = qint32(d->rows.node(number).device);
    return record;
}

bool OrgTreeModel::isEmpty() const
{
    return d->rows.rowCount(OrgTreeRows::Root) == 0;
}

// --- What views read -----------------------------------------------------------------

QModelIndex OrgTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return QModelIndex();
    const quint32 above = parent.isValid() ? quint32(parent.internalId()) : OrgTreeRows::Root;
    const OrgTreeBranch *branch = d->rows.branchOf(above);
    if (branch->hasPlaceholder)
        return createIndex(0, 0, OrgTreeRows::placeholderId(above));
    return createIndex(row, 0, quintptr(branch->rows[size_t(row)]));
}

QModelIndex OrgTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid())
        return QModelIndex();
    const quintptr id = child.internalId();
    const quint32 above = OrgTreeRows::isPlaceholder(id) ? OrgTreeRows::departmentOf(id)
                                                         : d->rows.node(quint32(id)).parent;
    if (above == OrgTreeRows::Root)
        return QModelIndex();
    return createIndex(int(d->rows.node(above).row), 0, quintptr(above));
}

int OrgTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return d->rows.rowCount(OrgTreeRows::Root);
    if (parent.column() != 0 || OrgTreeRows::isPlaceholder(parent.internalId()))
        return 0;
    return d->rows.rowCount(quint32(parent.internalId()));
}

int OrgTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

// A department may have children until the service has said that it has none.
bool OrgTreeModel::hasChildren(const QModelIndex &parent) const
{
    if (rowCount(parent) > 0)
        return true;
    if (!parent.isValid() || kind(parent) != OrgRowKind::Department)
        return false;
    const OrgTreeBranch *branch = d->rows.branchOf(quint32(parent.internalId()));
    return !branch || branch->state != Children::Loaded;
}

Qt::ItemFlags OrgTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    switch (kind(index)) {
    case OrgRowKind::Department:
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    case OrgRowKind::Employee:
    case OrgRowKind::Failed:
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    case OrgRowKind::Loading:
        break;
    }
    return Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

QVariant OrgTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const OrgRowKind rowKind = kind(index);
    if (role == OrgRole::Kind)
        return int(rowKind);
    if (rowKind == OrgRowKind::Loading || rowKind == OrgRowKind::Failed) {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
            return QVariant();
        return rowKind == OrgRowKind::Loading ? QObject::tr("orgWidgetLoading")
                                              : QObject::tr("loadErrorAndCrazyRetry");
    }
    const auto number = quint32(index.internalId());
    const OrgTreeNode &node = d->rows.node(number);
    switch (role) {
    case OrgRole::Id:
        return node.id;
    case OrgRole::Status:
        return int(node.status);
    case OrgRole::Device:
        return int(node.device);
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
    case OrgRole::Name:
    case OrgRole::Photo:
    case OrgRole::Duty:
        return d->rowData(node, d->record(number), role);
    default:
        return QVariant();
    }
}

QVariant OrgTreeModel::Private::rowData(const OrgTreeNode &node, const OrgElement &record,
                                        int role) const
{
    switch (role) {
    case Qt::ToolTipRole:
        return toolTipText(record.strDuty.isEmpty()
                               ? record.strName
                               : record.strName + QLatin1Char('\n') + record.strDuty);
    case Qt::AccessibleTextRole:
        return accessibleText(node, record);
    case OrgRole::Photo:
        return record.strPhotoName;
    case OrgRole::Duty:
        return displayText(record.strDuty);
    default: // the name
        return displayText(record.strName);
    }
}
