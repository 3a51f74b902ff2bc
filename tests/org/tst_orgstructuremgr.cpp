// The cache of the organisation. It lives as long as the process: each test uses
// ids of its own.
#include "http/httpmgr.h"
#include "org/orgstructuremgr.h"
#include "tests/org/orgmaker.h"
#include "tests/support/testrunner.h"

class TstOrgStructureMgr : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        cache = OrgStructureMgr::instance();
        ++m_test;
    }

    void files()
    {
        const QString company = id("C");
        cache->slot_recvOrgStructureElements(
            {makeDepartment(id("d1"), company), makeDepartment(id("d2"), QString()),
             makeDepartment(id("self"), id("self")), makeDepartment(id("d3"), id("d1")),
             makeEmployee(id("u1"), id("d1"))},
            company);
        QCOMPARE(cache->rootList(), (QStringList{id("d1"), id("d2")}));
        QCOMPARE(cache->childrenOf(id("d1")), (QStringList{id("d3"), id("u1")}));
        QVERIFY(cache->childrenOf(company).isEmpty());
        QVERIFY(cache->isLoaded(id("d1")));
        QVERIFY(!cache->isLoaded(id("d3")));
        QVERIFY(!cache->elements().contains(id("self")));
        QVERIFY(cache->elements().value(id("u1")).bIsEmp);
    }

    void signalsInOrder()
    {
        QStringList seen;
        const QObject receiver;
        connect(cache, &OrgStructureMgr::signal_recvOrgElementList, &receiver,
                [&](const OrgElementList &list) {
                    seen.append(QStringLiteral("list %1").arg(list.size()));
                    // The cache is complete by then.
                    QVERIFY(cache->elements().contains(id("u1")));
                });
        connect(cache, &OrgStructureMgr::signal_upDataOrgStructure, &receiver,
                [&](const OrgElementMap &map) {
                    seen.append(QStringLiteral("map"));
                    QCOMPARE(&map, &cache->elements());
                });
        cache->slot_recvOrgStructureElements({makeEmployee(id("u1"), id("d1"))}, id("C"));
        QCOMPARE(seen, (QStringList{QStringLiteral("list 1"), QStringLiteral("map")}));
    }

    void listsOfOneWhoMoves()
    {
        for (const char *parent : {"a", "b", "a", "c", "b", "a"})
            cache->slot_recvOrgStructureElements({makeEmployee(id("u1"), id(parent))}, id("C"));
        for (const char *parent : {"a", "b", "c"})
            QCOMPARE(cache->childrenOf(id(parent)), QStringList{id("u1")});
        QCOMPARE(cache->elements().value(id("u1")).strParentId, id("a"));
    }

    void locationAndChildrenDiffer()
    {
        const OrgElement top = makeDepartment(id("d1"), id("C"));
        const int tops = cache->rootList().size();
        for (int i = 0; i < 2; ++i) {
            cache->slot_locateOrgElements({top}, id("u1"));
            cache->slot_recvOrgStructureElements({top}, id("C"));
        }
        QCOMPARE(cache->rootList().size(), tops + 1);
        QCOMPARE(cache->childrenOf(id("C")), QStringList{id("d1")});
        cache->slot_locateOrgElements({makeDepartment(id("d2"), QString())}, id("u1"));
        QCOMPARE(cache->rootList().last(), id("d2"));
    }

    void loadedWithoutChildren()
    {
        QVERIFY(!cache->queryChildren(id("empty")));
        emit HttpMgr::instance()->signal_searchOrgDone(id("empty"));
        QVERIFY(cache->isLoaded(id("empty")));
        int size = -1;
        const QObject receiver;
        connect(cache, &OrgStructureMgr::signal_recvOrgElementList, &receiver,
                [&](const OrgElementList &list) { size = list.size(); });
        QVERIFY(cache->queryChildren(id("empty")));
        QCOMPARE(size, 0);
    }

    void queriesTheCache()
    {
        cache->slot_recvOrgStructureElements({makeDepartment(id("d1"), id("C")),
                                              makeEmployee(id("u2"), id("d1")),
                                              makeEmployee(id("u1"), id("d1"))},
                                             id("C"));
        emit HttpMgr::instance()->signal_searchOrgDone(id("C"));
        QStringList ids;
        const QObject receiver;
        connect(cache, &OrgStructureMgr::signal_recvOrgElementList, &receiver,
                [&](const OrgElementList &list) {
                    ids.clear();
                    for (const OrgElement &element : list)
                        ids.append(element.strId);
                });
        QVERIFY(cache->queryChildren(id("d1")));
        QCOMPARE(ids, (QStringList{id("u2"), id("u1")}));
        QVERIFY(cache->queryChildren(id("C")));
        QVERIFY(ids.contains(id("d1")));
        QVERIFY(!cache->queryChildren(id("u1")));
    }

    // A copy that somebody keeps would make every later answer cost the whole cache.
    void emissionsShareTheMap()
    {
        OrgElementList many;
        for (int i = 0; i < 1000; ++i)
            many.append(makeEmployee(id("u") + QString::number(i), id("d1")));
        cache->slot_recvOrgStructureElements(many, id("C"));
        const OrgElement *kept = &*cache->elements().constFind(id("u") + QStringLiteral("7"));
        cache->slot_recvOrgStructureElements({makeEmployee(id("x"), id("d1"))}, id("C"));
        QCOMPARE(&*cache->elements().constFind(id("u") + QStringLiteral("7")), kept);
    }

    // The same ids over and over, and one that goes to and fro between two long lists:
    // looked up in the lists, this would take minutes.
    void hostileRepetition()
    {
        constexpr int Count = 100000;
        OrgElementList list;
        for (int i = 0; i < Count; ++i)
            list.append(makeEmployee(id("u") + QString::number(i), id(i % 2 ? "a" : "b")));
        for (int i = 0; i < Count; ++i)
            list.append(makeEmployee(id("u") + QString::number(i / 4), id(i % 3 ? "a" : "b")));
        cache->slot_recvOrgStructureElements(list, id("C"));
        cache->slot_recvOrgStructureElements(list, id("C"));
        QStringList a = cache->childrenOf(id("a"));
        const int size = a.size();
        a.removeDuplicates();
        QCOMPARE(a.size(), size);
    }

private:
    QString id(const char *name) const
    {
        return QStringLiteral("%1-%2").arg(QLatin1String(name)).arg(m_test);
    }

    OrgStructureMgr *cache = nullptr;
    int m_test = 0;
};

FRIENDUI_TEST(TstOrgStructureMgr)
#include "tst_orgstructuremgr.moc"
