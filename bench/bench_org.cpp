// The organisation: a large department from the reply's last byte to its rows, what
// the cache and the tree cost as they grow, and what a person weighs.
#include "bench/support/heap.h"
#include "bench/support/ratio.h"
#include "http/jsonreader.h"
#include "org/httporgfun.h"
#include "org/orgstructuremgr.h"
#include "org/orgtreemodel.h"
#include "sample/samplecompany.h"
#include "tests/support/fakecontext.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardItemModel>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <json/reader.h>

#include <algorithm>
#include <memory>

namespace {

const QString company = QStringLiteral("C1");
const QString department = QStringLiteral("D1");
constexpr int DepartmentSize = 10000;

// --- A department of 10,000 -----------------------------------------------------

QByteArray replyOf(int people)
{
    const SampleCompany sample(people);
    QJsonArray employees;
    for (int i = 0; i < people; ++i) {
        const SamplePerson person = sample.person(i);
        QJsonObject presence{{QStringLiteral("av"), i % 3 == 0},
                             {QStringLiteral("show"), QStringLiteral("away")},
                             {QStringLiteral("pt"), QStringLiteral("pc")},
                             {QStringLiteral("rsc"), QStringLiteral("pc")}};
        employees.append(QJsonObject{{QStringLiteral("userId"), person.uid},
                                     {QStringLiteral("nickName"), person.name},
                                     {QStringLiteral("empChSpell"), person.spell},
                                     {QStringLiteral("orgId"), department},
                                     {QStringLiteral("email"), person.email},
                                     {QStringLiteral("photoName"), QString()},
                                     {QStringLiteral("employeeCode"), person.employeeCode},
                                     {QStringLiteral("duty"), person.duty},
                                     {QStringLiteral("presence"), QJsonArray{presence}}});
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("org"), QJsonArray()},
                                     {QStringLiteral("emp"), employees}})
        .toJson(QJsonDocument::Compact);
}

const QByteArray &largeReply()
{
    static const auto *reply = new QByteArray(replyOf(DepartmentSize));
    return *reply;
}

// Answers every request with the large department.
class Service : public QTcpServer
{
public:
    Service()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [socket] {
                if (!socket->readAll().contains("orgId="))
                    return;
                socket->write("HTTP/1.1 200 OK\r\nContent-Length: " +
                              QByteArray::number(largeReply().size()) + "\r\n\r\n" + largeReply());
            });
        });
    }
};

class BenchContext : public FakeContext
{
public:
    std::function<void()> lastByte;
    void webRequestFinished(const WebRequestRecord &) override { lastByte(); }
};

struct Shown
{
    double cpu = 0; // ns, from the last byte of the reply
    // ms of this thread's CPU time between two runs of a timer that is due every
    // one: what other processes take from the thread is no pause of its own.
    double longestGap = 0;
};

void prepareView(QTreeView *view, QAbstractItemModel *model)
{
    view->setUniformRowHeights(true);
    view->setHeaderHidden(true);
    view->resize(360, 640);
    view->setModel(model);
    view->show();
    QApplication::processEvents();
}

// As the application does it: request, cache, model, view.
Shown showDepartment()
{
    Service service;
    const QTemporaryDir folder;
    BenchContext host;
    const HostContextScope context(&host);
    host.programFolder = folder.path();
    QFile addresses(folder.filePath(QStringLiteral("allurl.ini")));
    if (!addresses.open(QIODevice::WriteOnly))
        return {-1, -1};
    addresses.write("[searchOrg]\nsearchorgurl=http://127.0.0.1:" +
                    QByteArray::number(service.serverPort()) + "/searchOrg.do\n");
    addresses.close();

    OrgStructureMgr cache;
    OrgTreeModel model;
    model.setRecords(&cache.elements());
    model.setRootId(company);
    QObject::connect(&cache, &OrgStructureMgr::signal_recvOrgElementList, &model,
                     &OrgTreeModel::addElements);
    OrgElement top;
    top.strId = department;
    top.strParentId = company;
    cache.slot_recvOrgStructureElements({top}, company);
    QTreeView view;
    prepareView(&view, &model);
    view.expandAll();

    Shown shown;
    double lastTick = 0;
    const auto ticked = [&] {
        const double now = Ratio::threadCpu();
        shown.longestGap = std::max(shown.longestGap, (now - lastTick) / 1e6);
        lastTick = now;
    };
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick, &QTimer::timeout, ticked);
    double before = 0;
    host.lastByte = [&] {
        before = Ratio::processCpu();
        lastTick = Ratio::threadCpu();
        tick.start(1);
    };
    bool isDone = false;
    auto *request = new HttpOrgFun;
    QObject::connect(request, &HttpOrgFun::signal_searchOrgElements, &cache,
                     &OrgStructureMgr::slot_recvOrgStructureElements);
    QObject::connect(request, &HttpOrgFun::signal_searchOrgDone, &view, [&] { isDone = true; });
    request->searchOrg(department, company);
    while (!isDone)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents(); // layout and paint
    shown.cpu = Ratio::processCpu() - before;
    ticked();
    if (model.rowCount(model.indexOf(department)) != DepartmentSize)
        return {-1, -1};
    return shown;
}

double showOurs()
{
    return showDepartment().cpu / DepartmentSize;
}

// The same text parsed at once, and the toolkit's own model with what a row shows.
double parseAndFillBareModel()
{
    QStandardItemModel model;
    auto *top = new QStandardItem(department);
    model.appendRow(top);
    QTreeView view;
    prepareView(&view, &model);
    view.expandAll();
    return Ratio::cpuPerUnit(DepartmentSize, [&] {
        {
            Json::Value root;
            Json::CharReaderBuilder builder;
            const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
            const char *text = largeReply().constData();
            reader->parse(text, text + largeReply().size(), &root, nullptr);
            QList<QStandardItem *> rows;
            for (const Json::Value &entry : root["emp"]) {
                auto *row = new QStandardItem(QString::fromStdString(entry["nickName"].asString()));
                row->setData(QString::fromStdString(entry["userId"].asString()), OrgRole::Id);
                row->setData(QString::fromStdString(entry["duty"].asString()), OrgRole::Duty);
                row->setData(1, OrgRole::Status);
                rows.append(row);
            }
            top->appendRows(rows);
        }
        QApplication::processEvents();
    });
}

// --- A cache that grows -----------------------------------------------------------

constexpr int ReplySize = 100;

OrgElement person(int number)
{
    OrgElement element;
    element.strId = QStringLiteral("u%1").arg(number * 7919LL % 1000003, 6, 10, QLatin1Char('0'));
    element.strName = QStringLiteral("Person %1").arg(number);
    element.strSpell = element.strName.toLower();
    element.strEmail = element.strId + QStringLiteral("@corp.example");
    element.strParentId = QStringLiteral("D%1").arg(number / ReplySize);
    element.strDuty = QStringLiteral("Engineer");
    element.bIsEmp = true;
    return element;
}

// One department with its people, as two replies.
struct Reply
{
    OrgElementList top, people;
};

Reply replyNumber(int number)
{
    Reply reply;
    OrgElement element;
    element.strId = QStringLiteral("D%1").arg(number);
    element.strName = element.strId;
    element.strParentId = company;
    reply.top.append(element);
    for (int i = 0; i < ReplySize; ++i)
        reply.people.append(person(number * ReplySize + i));
    return reply;
}

const QVector<Reply> &replies(int count)
{
    static auto *all = new QVector<Reply>;
    while (all->size() < count)
        all->append(replyNumber(all->size()));
    return *all;
}

struct Organisation
{
    OrgStructureMgr cache;
    OrgTreeModel model;

    Organisation()
    {
        model.setRecords(&cache.elements());
        model.setRootId(company);
        QObject::connect(&cache, &OrgStructureMgr::signal_recvOrgElementList, &model,
                         &OrgTreeModel::addElements);
    }
    void load(const Reply &reply)
    {
        cache.slot_recvOrgStructureElements(reply.top, company);
        cache.slot_recvOrgStructureElements(reply.people, company);
    }
};

// CPU time of a new person when so many are known. The cache is a sorted map by
// contract: a search in it takes a few more steps the more it holds, and these miss
// the processor's caches; nothing goes through all of it.
double loadWhenKnown(int known)
{
    constexpr int Measured = 50; // replies
    const int before = known / ReplySize;
    replies(before + Measured);
    Organisation organisation;
    for (int i = 0; i < before; ++i)
        organisation.load(replies(0).at(i));
    return Ratio::cpuPerUnit(Measured * ReplySize, [&] {
        for (int i = before; i < before + Measured; ++i)
            organisation.load(replies(0).at(i));
    });
}

// --- Memory -----------------------------------------------------------------------

// The texts belong to the replies, which are there before and after.
double bytesPerPerson(bool withView)
{
    constexpr int People = 100000;
    replies(People / ReplySize);
    const double before = heapInUse();
    Organisation organisation;
    for (int i = 0; i < People / ReplySize; ++i)
        organisation.load(replies(0).at(i));
    QTreeView view;
    if (withView) {
        prepareView(&view, &organisation.model);
        view.expandAll();
        QApplication::processEvents();
    }
    return (heapInUse() - before) / People;
}

const bool registered[] = {
    Ratio::add({"Department of 10,000 from the last byte to its rows, jsoncpp and stock items",
                "employee", Ratio::atMostTimes(1.5)},
               [] {
                   largeReply();
                   return Ratio::Pair{showOurs, parseAndFillBareModel};
               }),
    Ratio::add({"Longest pause of the GUI thread meanwhile", "department", Ratio::atMost(8), "ms"},
               [] {
                   largeReply();
                   return Ratio::Pair{[] { return showDepartment().longestGap; }, {}};
               }),
    Ratio::add(
        {"A new person when 10,000 are known, when 1,000 are", "person", Ratio::atMostTimes(2)},
        [] {
            return Ratio::Pair{[] { return loadWhenKnown(10000); },
                               [] { return loadWhenKnown(1000); }};
        }),
    Ratio::add(
        {"A new person when 100,000 are known, when 1,000 are", "person", Ratio::atMostTimes(3.5)},
        [] {
            return Ratio::Pair{[] { return loadWhenKnown(100000); },
                               [] { return loadWhenKnown(1000); }};
        }),
    Ratio::add({"Heap of a person beyond the texts, cache and tree", "person", Ratio::atMost(260),
                "bytes"},
               [] {
                   return Ratio::Pair{[] { return bytesPerPerson(false); }, {}};
               }),
    Ratio::add(
        {"Heap of a person beyond the texts, view included", "person", Ratio::atMost(260), "bytes"},
        [] {
            return Ratio::Pair{[] { return bytesPerPerson(true); }, {}};
        }),
};

} // namespace
