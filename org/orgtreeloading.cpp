// How the organisation tree is filled, and how a place in it is found.
#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/tipbox.h"
#include "http/fileservices.h"
#include "http/httpmgr.h"
#include "org/orgstructuremgr.h"
#include "org/orgstructuretreeview.h"
#include "org/orgtreemodel.h"
#include "plugin/frienduisignalsender.h"

namespace {
// Elements; few enough for the time of a frame.
constexpr int AddAtOnce = 2000;
} // namespace

void OrgStructureTreeView::connectSources()
{
    using View = OrgStructureTreeView;
    using Hub = FriendUISignalSender;
    // The cache first: it has to know what arrives before the tree asks it.
    const OrgStructureMgr *cache = OrgStructureMgr::instance();
    connect(cache, &OrgStructureMgr::signal_recvOrgElementList, this, &View::received);
    connect(cache, &OrgStructureMgr::signal_upDataOrgStructure, this, &View::slot_upDataTreeView);
    connect(cache, &OrgStructureMgr::signal_locateEmp, this, &View::slot_locateOrgElements);
    connect(cache, &OrgStructureMgr::signal_locateOrg, this, &View::locateOrgElements);
    connect(HttpMgr::instance(), &HttpMgr::signal_searchOrgDone, this, &View::departmentDone);

    connect(this, &RowView::activatedRow, this, &View::activate);
    connect(this, &QTreeView::expanded, this, &View::opened);
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex &index) {
        emit signal_orgClickItem();
        if (m_model->kind(index) == OrgRowKind::Failed)
            activate(index);
    });
    connect(&m_loadTimer, &QTimer::timeout, this, &View::slot_loadOrgTimeOut);
    connect(&m_addTimer, &QTimer::timeout, this, &View::addWaiting);
    connect(&m_flash, &QVariantAnimation::valueChanged, viewport(),
            [this] { viewport()->update(); });

    connect(&PictureFiles::instance(), &PictureFiles::ready, viewport(),
            QOverload<>::of(&QWidget::update));
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_updateFriendPresence, this, &View::setPresences);
    connect(hub, &Hub::signal_myStatusChanged, this, [this] {
        setPresences({{ctx().ownJid(), ctx().presence(ctx().ownJid())}});
    });
    connect(hub, &Hub::signal_UpdateFrdHead, viewport(), [this] { viewport()->update(); });
    connect(hub, &Hub::signal_isConnected, viewport(), [this] { viewport()->update(); });
    connect(hub, &Hub::signal_login, this, [this] {
        releaseMenus(); // the rights may be others
        buildMenus();
    });
}

// --- Departments -----------------------------------------------------------------

void OrgStructureTreeView::setRootId(const QString &rootId)
{
    if (m_model->rootId() == rootId)
        return;
    m_asked.clear();
    m_adding.clear();
    m_waiting.clear();
    m_loadTimer.stop();
    m_oldSearches.clear();
    if (isLocating()) {
        m_locating.clear();
        emit locatingChanged(false);
    }
    m_model->setRootId(rootId);
    // Only the topmost ones of what is known; the rest when its department is opened.
    const OrgStructureMgr *cache = OrgStructureMgr::instance();
    OrgElementList top;
    for (const QString &id : cache->rootList() + cache->childrenOf(rootId)) {
        const OrgElement element = cache->elements().value(id);
        if (element.strParentId.isEmpty() || element.strParentId == rootId)
            top.append(element);
    }
    addToModel(top);
}

QString OrgStructureTreeView::rootId() const
{
    return m_model->rootId();
}

bool OrgStructureTreeView::isEmpty() const
{
    return m_model->isEmpty();
}

void OrgStructureTreeView::loadRoot()
{
    if (rootId().isEmpty())
        LOG_DEBUG("strRootId.isEmpty() is true");
    else
        request(rootId());
}

void OrgStructureTreeView::refreshAll()
{
    if (rootId().isEmpty())
        return;
    QStringList open{rootId()};
    QModelIndexList levels{QModelIndex()};
    while (!levels.isEmpty()) {
        const QModelIndex parent = levels.takeFirst();
        for (int row = 0; row < m_model->rowCount(parent); ++row) {
            const QModelIndex index = m_model->index(row, 0, parent);
            if (m_model->kind(index) == OrgRowKind::Department && isExpanded(index)) {
                open.append(idOf(index));
                levels.append(index);
            }
        }
    }
    for (const QString &id : open)
        request(id);
}

void OrgStructureTreeView::request(const QString &id)
{
    m_loadTimer.start();
    if (m_asked.contains(id))
        return;
    m_asked.insert(id);
    // What is shown stays while it is asked for anew.
    if (id != rootId() && m_model->childrenState(id) != OrgTreeModel::Children::Loaded)
        m_model->setChildrenState(id, OrgTreeModel::Children::Loading);
    OrgStructureMgr::instance()->requestChildren(id, rootId());
}

void OrgStructureTreeView::expandItem(const QModelIndex &index, bool bIsExpand)
{
    if (!index.isValid() || m_model->kind(index) != OrgRowKind::Department)
        return;
    if (bIsExpand)
        setExpanded(index, !isExpanded(index));
    else
        request(idOf(index));
}

void OrgStructureTreeView::opened(const QModelIndex &index)
{
    const QString id = idOf(index);
    switch (m_model->childrenState(id)) {
    case OrgTreeModel::Children::NotAsked:
        if (OrgStructureMgr::instance()->queryChildren(id)) {
            addWaiting();
            m_model->setChildrenState(id, OrgTreeModel::Children::Loaded);
            break;
        }
        request(id);
        break;
    case OrgTreeModel::Children::Failed:
        request(id);
        break;
    case OrgTreeModel::Children::Loading:
    case OrgTreeModel::Children::Loaded:
        break;
    }
}

void OrgStructureTreeView::received(const OrgElementList &elements)
{
    if (rootId().isEmpty())
        return;
    m_waiting += elements;
    m_elementsAdded = true;
    // The view lays out all its rows after each change: for a department of ten
    // thousand a change for each slice would cost more than everything else.
    if (!m_addTimer.isActive() || m_waiting.size() >= AddAtOnce)
        addWaiting();
}

void OrgStructureTreeView::addWaiting()
{
    if (m_waiting.isEmpty())
        return;
    addToModel(std::exchange(m_waiting, OrgElementList()));
    m_addTimer.start();
}

// Of the own user and of contacts the client knows the presence of this moment, which
// the service may not.
void OrgStructureTreeView::addToModel(OrgElementList elements)
{
    const QString domain = QLatin1Char('@') + ctx().serverDomain();
    const QString ownId = ctx().userId();
    FriendData contact;
    for (OrgElement &element : elements) {
        if (!element.bIsEmp)
            continue;
        const QString jid = element.strId + domain;
        if (element.strId != ownId && !ctx().friendData(jid, &contact))
            continue;
        const PresenceData presence = ctx().presence(jid);
        element.nStatus = presence.pcShow;
        element.nDevice = presence.mobile;
    }
    m_model->addElements(elements);
}

void OrgStructureTreeView::slot_upDataTreeView(const OrgElementMap &mapOrgElements)
{
    if (rootId().isEmpty()) {
        LOG_DEBUG("strRootId.isEmpty() is true");
        return;
    }
    // The map holds everything that was ever loaded; usually the few new ones have
    // come by themselves just before.
    if (!std::exchange(m_elementsAdded, false))
        addAll(mapOrgElements);
    if (isEmpty())
        addWaiting();
    emit signal_upDataTreeViewEnd(mapOrgElements);
}

void OrgStructureTreeView::addAll(const OrgElementMap &elements)
{
    // In the order of the replies, which the map does not keep.
    const OrgStructureMgr *cache = OrgStructureMgr::instance();
    OrgElementList list;
    QSet<QString> seen;
    QStringList departments{rootId()};
    const auto add = [&](const QString &id) {
        const auto at = elements.constFind(id);
        if (at == elements.constEnd() || seen.contains(id))
            return;
        seen.insert(id);
        list.append(*at);
        if (!at->bIsEmp)
            departments.append(id);
    };
    for (const QString &id : cache->rootList())
        add(id);
    for (int i = 0; i < departments.size(); ++i) {
        const QStringList children = cache->childrenOf(departments.at(i));
        for (const QString &id : children)
            add(id);
    }
    for (const OrgElement &element : elements)
        add(element.strId);
    addToModel(list);
    for (const QString &id : qAsConst(departments)) {
        if (id != rootId() && cache->isLoaded(id))
            m_model->setChildrenState(id, OrgTreeModel::Children::Loaded);
    }
}

void OrgStructureTreeView::departmentDone(const QString &id)
{
    addWaiting();
    m_asked.remove(id);
    if (m_asked.isEmpty() && !isLocating())
        m_loadTimer.stop();
    if (id == rootId())
        emit signal_upDataTreeViewEnd(OrgStructureMgr::instance()->elements());
    else
        m_model->setChildrenState(id, OrgTreeModel::Children::Loaded);
    finishAdding(id);
}

bool OrgStructureTreeView::departmentFailed(const QString &id)
{
    addWaiting();
    const bool wasAsked = m_asked.remove(id);
    const bool wasAdding = m_adding.remove(id);
    if (m_asked.isEmpty() && !isLocating())
        m_loadTimer.stop();
    if (id == rootId() || !m_model->indexOf(id).isValid())
        return wasAsked;
    if (m_model->childrenState(id) == OrgTreeModel::Children::Loading)
        m_model->setChildrenState(id, OrgTreeModel::Children::Failed);
    if (wasAsked && (wasAdding || m_model->childrenState(id) == OrgTreeModel::Children::Loaded))
        TipBox::tell(this, QObject::tr("orgRefreshFailed"));
    return wasAsked;
}

void OrgStructureTreeView::slot_loadOrgTimeOut()
{
    LOG_ERROR("the organisation does not answer");
    const QSet<QString> asked = m_asked;
    for (const QString &id : asked)
        emit signal_LoadFail(id, 0);
    if (asked.isEmpty() && isEmpty())
        emit signal_LoadFail(rootId(), 0);
    m_oldSearches.clear();
    if (isLocating())
        emit locateFailed(m_locating);
}

void OrgStructureTreeView::setPresences(const QMap<QString, PresenceData> &presences)
{
    for (auto at = presences.constBegin(); at != presences.constEnd(); ++at) {
        // Another server may have users of the same name.
        const QString uid = jidUser(at.key());
        if (makeJid(uid) != at.key())
            continue;
        OrgStructureMgr::instance()->setPresence(uid, at->pcShow, at->mobile);
        m_model->setPresence(uid, at->pcShow, at->mobile);
    }
}

// --- Places ----------------------------------------------------------------------

void OrgStructureTreeView::locateSelf()
{
    locate(ctx().userId(), false);
}

void OrgStructureTreeView::locateOrgElements(QString strOrgId)
{
    LOG_SCOPE("OrgStructureTreeView::locateOrgElements(QString strOrgId)");
    // Who calls does not say which; only a department is known before it is placed.
    const OrgElementMap &known = OrgStructureMgr::instance()->elements();
    const auto at = known.constFind(strOrgId);
    locate(strOrgId, at != known.constEnd() && !at->bIsEmp);
}

void OrgStructureTreeView::locate(const QString &id, bool isDepartment)
{
    if (id.isEmpty() || id == m_locating)
        return;
    placeFromCache(id);
    if (revealPlace(id)) {
        if (isLocating()) {
            m_oldSearches.append(std::exchange(m_locating, QString()));
            emit locatingChanged(false);
        }
        return;
    }
    if (isLocating())
        m_oldSearches.append(m_locating);
    m_locating = id;
    m_loadTimer.start();
    emit signal_LocateFriendToOrg();
    emit locatingChanged(true);
    HttpMgr::instance()->locateOrg(id, isDepartment);
}

bool OrgStructureTreeView::locateEnded(const QString &id)
{
    if (id.isEmpty() ? !m_oldSearches.isEmpty() : m_oldSearches.contains(id)) {
        m_oldSearches.removeAt(id.isEmpty() ? 0 : m_oldSearches.indexOf(id));
        return false;
    }
    if (!isLocating() || (!id.isEmpty() && id != m_locating))
        return true;
    m_locating.clear();
    if (m_asked.isEmpty())
        m_loadTimer.stop();
    emit locatingChanged(false);
    return true;
}

void OrgStructureTreeView::slot_locateOrgElements(const OrgElementMap &mapOrgElements,
                                                  QString strFrdJid)
{
    LOG_SCOPE("OrgStructureTreeView::slot_locateOrgElements(const OrgElementMap& mapOrgElements, "
              "QString strFrdJid)");
    placeFromCache(strFrdJid);
    if (!m_model->indexOf(strFrdJid).isValid())
        addAll(mapOrgElements);
    const bool wanted = locateEnded(strFrdJid);
    if (!isEmpty())
        emit signal_upDataTreeViewEnd(mapOrgElements);
    if (wanted && !revealPlace(strFrdJid))
        emit locateFailed(strFrdJid);
}

void OrgStructureTreeView::placeFromCache(const QString &id)
{
    addWaiting();
    const OrgStructureMgr *cache = OrgStructureMgr::instance();
    const OrgElementMap &known = cache->elements();
    if (!known.contains(id) || m_model->indexOf(id).isValid())
        return;
    // From the element up to the root; the service may have told of a circle.
    QStringList departments;
    QSet<QString> seen;
    QString at = known.value(id).strParentId;
    while (known.contains(at) && !seen.contains(at)) {
        seen.insert(at);
        departments.prepend(at);
        at = known.value(at).strParentId;
    }
    OrgElementList list;
    const auto append = [&](const QStringList &ids) {
        for (const QString &child : ids)
            list.append(known.value(child));
    };
    append(cache->rootList());
    append(cache->childrenOf(rootId()));
    for (const QString &department : qAsConst(departments))
        append(cache->childrenOf(department));
    addToModel(list);
    for (const QString &department : qAsConst(departments)) {
        if (cache->isLoaded(department) && department != rootId())
            m_model->setChildrenState(department, OrgTreeModel::Children::Loaded);
    }
}

bool OrgStructureTreeView::revealPlace(const QString &id)
{
    if (!m_model->indexOf(id).isValid())
        return false;
    emit signal_locateFrdOrgStructureShow();
    reveal(m_model->indexOf(id));
    scrollTo(currentIndex(), PositionAtCenter);
    flash(currentIndex());
    return true;
}
