#include "servicenum/chttpservicenum.h"

#include "common/logging.h"
#include "http/chttpsession.h"
#include "http/jsonreader.h"
#include "http/oneshotcall.h"
#include "http/serviceaddresses.h"
#include "servicenum/servicenumreader.h"

// What an operation was asked for.
struct ServiceNumArguments
{
    QStringList codes = {};
    QStringList versions = {};
    QString name = {};
    QString groupId = {};

    QString code() const { return codes.value(0); }
    QString version() const { return versions.value(0); }
};

struct CHttpServiceNum::Service
{
    using Arguments = ServiceNumArguments;
    struct Field
    {
        const char *name = nullptr;
        QString (*value)(const Arguments &a) = nullptr;
    };

    const char *key; // of the address; null: the page of messages
    const char *request;
    const char *reply; // for the log, like the one before
    void (CHttpServiceNum::*slot)(QNetworkReply *reply);
    void (*tell)(CHttpServiceNum &q, const Arguments &a, const ServiceReply &reply);
    Field fields[3] = {};

    static const Service Search, Subscribe, Cancel, Mine, Info, InfoList, Message;
};

namespace {
using Operation = CHttpServiceNum;
using Arguments = ServiceNumArguments;
using Field = QString (*)(const Arguments &);

constexpr char HistoryKey[] = "/servicenum/getServiceNoRecordUrl";

constexpr Field codes = [](const Arguments &a) { return a.codes.join(QLatin1Char(',')); };
constexpr Field versions = [](const Arguments &a) { return a.versions.join(QLatin1Char(',')); };
constexpr Field name = [](const Arguments &a) { return a.name; };
constexpr Field group = [](const Arguments &a) { return a.groupId; };

// A subscription is the one service whose answer must have a code.
void tellSubscription(Operation &q, const Arguments &a, const ServiceReply &reply)
{
    const bool isAnswer = JsonReader::has(reply.root, "code") && reply.code != ServiceReply::NoCode;
    const QString error =
        isAnswer ? QString::number(reply.code) : QString::fromLatin1(Operation::NoAnswer);
    emit q.signal_notifySubServiceNum(a.code(), a.groupId, isAnswer && reply.ok, error);
}

void tellNumbers(Operation &q, const Arguments &, const ServiceReply &reply)
{
    if (reply.ok)
        emit q.signal_notifyAddServiceNum(ServiceNumReader::numbers(reply.data()));
    else
        emit q.signal_failed();
}
} // namespace

const Operation::Service Operation::Service::Search{
    "/servicenum/searchServiceNumUrl",
    "CHttpServiceNum::searchServiceNum()",
    "CHttpServiceNum::slot_searchServiceNum()",
    &Operation::slot_searchServiceNum,
    [](Operation &q, const Arguments &a, const ServiceReply &reply) {
        QList<CServiceNumData> found = ServiceNumReader::numbers(reply.data());
        emit q.signal_searchServiceNum(a.name, q.version(), a.groupId, found, reply.ok);
    },
    {{"name", name}, {"version", versions}, {"groupId", group}}};

const Operation::Service Operation::Service::Subscribe{"/servicenum/subServiceNumUrl",
                                                       "CHttpServiceNum::subServiceNum()",
                                                       "CHttpServiceNum::slot_subServiceNum()",
                                                       &Operation::slot_subServiceNum,
                                                       &tellSubscription,
                                                       {{"appCode", codes}, {"groupId", group}}};

const Operation::Service Operation::Service::Cancel{
    "/servicenum/cancelServiceNumUrl",
    "CHttpServiceNum::cancelSubServiceNum()",
    "CHttpServiceNum::slot_cancelSubServiceNum()",
    &Operation::slot_cancelSubServiceNum,
    [](Operation &q, const Arguments &a, const ServiceReply &reply) {
        emit q.signal_notifyCancelSubServiceNum(a.code(), a.groupId, reply.ok);
    },
    {{"appCode", codes}, {"groupId", group}}};

const Operation::Service Operation::Service::Mine{"/servicenum/myServiceNumUrl",
                                                  "CHttpServiceNum::getMyServiceNum()",
                                                  "CHttpServiceNum::slot_getMyServiceNum()",
                                                  &Operation::slot_getMyServiceNum,
                                                  &tellNumbers,
                                                  {{"version", versions}}};

const Operation::Service Operation::Service::Info{
    "/servicenum/getServiceNumInfoUrl",
    "CHttpServiceNum::getServiceNumInfo()",
    "CHttpServiceNum::slot_getServiceNumInfoFinished()",
    &Operation::slot_getServiceNumInfoFinished,
    [](Operation &q, const Arguments &a, const ServiceReply &reply) {
        const CServiceNumData number = ServiceNumReader::number(reply.data());
        // An answer about another number is none.
        if (reply.ok && (number.code.isEmpty() || number.code == a.code()))
            emit q.signal_notifyUpdateServiceNum(a.code(), number);
        else
            emit q.signal_failed();
    },
    {{"code", codes}, {"version", versions}}};

const Operation::Service Operation::Service::InfoList{
    "/servicenum/getServiceNumInfoListUrl",
    "CHttpServiceNum::getServiceNumInfoList()",
    "CHttpServiceNum::slot_getServiceNumInfoListFinished()",
    &Operation::slot_getServiceNumInfoListFinished,
    &tellNumbers,
    {{"codes", codes}, {"versions", versions}}};

const Operation::Service Operation::Service::Message{
    nullptr, "CHttpServiceNum::getServiceNumMessage()",
    "CHttpServiceNum::slot_getServiceNumMessageFinished()",
    &Operation::slot_getServiceNumMessageFinished,
    [](Operation &q, const Arguments &a, const ServiceReply &reply) {
        emit q.signal_serviceNumMessage(a.code(), reply.arrived);
    }};

struct CHttpServiceNum::Private
{
    explicit Private(QObject *operation) : call(operation) {}

    ServiceNumArguments arguments;
    OneShotCall call;
    QString version;
};

CHttpServiceNum::CHttpServiceNum(QObject *parent)
    : QObject(parent), d(std::make_unique<Private>(this))
{
    connect(&d->call, &OneShotCall::ranOut, this, &CHttpServiceNum::slot_replyTimeOut);
}

CHttpServiceNum::~CHttpServiceNum() = default;

QString CHttpServiceNum::historyAddress(const QString &code)
{
    const QString page = ServiceAddresses::address(HistoryKey);
    return page.isEmpty()
               ? page
               : page + QLatin1String("?id=") + QLatin1String(QUrl::toPercentEncoding(code));
}

QString CHttpServiceNum::version() const
{
    return d->version;
}

void CHttpServiceNum::start(const Service &service, const ServiceNumArguments &arguments)
{
    LOG_SCOPE(service.request);
    ServiceRequest request;
    request.isPage = !service.key;
    if (service.key)
        request.key = service.key;
    else
        request.address = historyAddress(arguments.code());
    for (const Service::Field &field : service.fields)
        if (field.name)
            request.fields.append({field.name, field.value(arguments)});
    CHttpSession *session = d->call.start(request);
    if (!session)
        return;
    d->arguments = arguments;
    connect(session, &CHttpSession::signal_finished, this, service.slot);
}

void CHttpServiceNum::finish(const Service &service, QNetworkReply *reply)
{
    LOG_SCOPE(service.reply);
    if (!reply || !d->call.end())
        return;
    const ServiceReply answer = ServiceReply::of(reply, HERE);
    if (service.key && answer.arrived && !answer.error.isEmpty())
        LOG_ERROR("JsonString prase error!");
    d->version = JsonReader::text(answer.root, "version");
    deleteLater();
    // Who is told may delete this, and go on with what it was told.
    const ServiceNumArguments arguments = d->arguments;
    service.tell(*this, arguments, answer);
}

// The session ends the request, and hands over a reply that says so.
void CHttpServiceNum::slot_replyTimeOut()
{
    LOG_SCOPE("CHttpServiceNum::slot_replyTimeOut()");
    d->call.timeOut();
}

// --- Requests and their replies --------------------------------------------------------

void CHttpServiceNum::searchServiceNum(const QString &text, const QString &version,
                                       const QString &groupId)
{
    start(Service::Search, {{}, {version}, text, groupId});
}

void CHttpServiceNum::slot_searchServiceNum(QNetworkReply *reply)
{
    finish(Service::Search, reply);
}

void CHttpServiceNum::subServiceNum(const QString &code, const QString &groupId)
{
    start(Service::Subscribe, {{code}, {}, {}, groupId});
}

void CHttpServiceNum::slot_subServiceNum(QNetworkReply *reply)
{
    finish(Service::Subscribe, reply);
}

void CHttpServiceNum::cancelSubServiceNum(const QString &code, const QString &groupId)
{
    start(Service::Cancel, {{code}, {}, {}, groupId});
}

void CHttpServiceNum::slot_cancelSubServiceNum(QNetworkReply *reply)
{
    finish(Service::Cancel, reply);
}

void CHttpServiceNum::getMyServiceNum(const QString &version)
{
    start(Service::Mine, {{}, {version}});
}

void CHttpServiceNum::slot_getMyServiceNum(QNetworkReply *reply)
{
    finish(Service::Mine, reply);
}

void CHttpServiceNum::getServiceNumInfo(const QString &code, const QString &version)
{
    start(Service::Info, {{code}, {version}});
}

void CHttpServiceNum::slot_getServiceNumInfoFinished(QNetworkReply *reply)
{
    finish(Service::Info, reply);
}

void CHttpServiceNum::getServiceNumInfoList(const QStringList &numbers, const QStringList &held)
{
    start(Service::InfoList, {numbers, held});
}

void CHttpServiceNum::slot_getServiceNumInfoListFinished(QNetworkReply *reply)
{
    finish(Service::InfoList, reply);
}

void CHttpServiceNum::getServiceNumMessage(const QString &code)
{
    start(Service::Message, {{code}});
}

void CHttpServiceNum::slot_getServiceNumMessageFinished(QNetworkReply *reply)
{
    finish(Service::Message, reply);
}
