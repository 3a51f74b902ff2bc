#include "http/fileservices.h"

#include "common/logging.h"
#include "http/filedigest.h"
#include "http/filereply.h"
#include "http/jsonreader.h"
#include "http/serviceaddresses.h"
#include "http/transfersession.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHttpMultiPart>
#include <QTimer>

#include <algorithm>

namespace {
constexpr int RetryDelay = 250; // ms, times the sendings so far

using Fields = RequestHeaders::Fields;
} // namespace

struct MultipartUpload::Private
{
    explicit Private(MultipartUpload *upload) : q(upload) {}
    ~Private()
    {
        delete call;
        if (q->isRunning())
            forgetParts();
    }

    void ask(const char *key, const Fields &fields, void (Private::*next)(const FileReply &));
    void askForObject(const QByteArray &digest);
    void begin(const FileReply &reply);
    void sendPart();
    void partSent(const FileReply &reply);
    void sendAgain(const FileReply &failure);
    void renewed(const FileReply &reply);
    void complete();
    void completed(const FileReply &reply);
    void giveUp(const QString &reason, int code = -1);
    void forgetParts();

    MultipartUpload *const q;
    QFile file;
    qint64 size = 0;
    QString objectId;
    QByteArray token;
    int part = 1; // the one that is being sent
    int parts = 1;
    int sendings = 0; // of that part
    FileDigest digest;
    TransferSession session;
    QTimer retry;
    QPointer<ServiceCall> call;
};

void MultipartUpload::Private::ask(const char *key, const Fields &fields,
                                   void (Private::*next)(const FileReply &))
{
    call = ServiceCall::start({key, fields}, q, HERE, [this, next](const ServiceReply &reply) {
        call = nullptr; // it deletes itself
        if (q->isRunning())
            (this->*next)(FileReply::of(reply));
    });
}

void MultipartUpload::Private::askForObject(const QByteArray &md5)
{
    if (md5.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        q->fail(QStringLiteral("the file cannot be read"));
        return;
    }
    size = file.size();
    parts = int(std::max<qint64>(1, (size + PartSize - 1) / PartSize));
    ask("/ImFile/queryObjectIdUrl",
        {{"fileName", QFileInfo(file.fileName()).fileName()},
         {"fileSize", QString::number(size)},
         {"md5", QString::fromLatin1(md5)}},
        &Private::begin);
}

void MultipartUpload::Private::begin(const FileReply &reply)
{
    objectId = JsonReader::text(reply.result, "objectId");
    token = JsonReader::text(reply.result, "token").toUtf8();
    if (!reply.ok)
        giveUp(reply.message, reply.code);
    else if (objectId.isEmpty())
        giveUp(QStringLiteral("the service gave the file no id"));
    else
        sendPart();
}

void MultipartUpload::Private::sendPart()
{
    const QString address = ServiceAddresses::address("/ImFile/uploadMultiFileUrl");
    const qint64 begin = PartSize * (part - 1);
    const qint64 length = std::min(PartSize, size - begin);
    const QByteArray bytes = file.seek(begin) ? file.read(length) : QByteArray();
    if (address.isEmpty() || bytes.size() != length) {
        giveUp(address.isEmpty() ? QStringLiteral("the file service has no address")
                                 : QStringLiteral("the file has changed"));
        return;
    }
    auto *form = new QHttpMultiPart(QHttpMultiPart::FormDataType);
    const QByteArray md5 = QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
    form->append(FileForm::textPart("objectId", objectId.toUtf8()));
    form->append(FileForm::textPart("partNumber", QByteArray::number(part)));
    form->append(FileForm::textPart("md5", md5));
    QHttpPart body = FileForm::filePart(QFileInfo(file.fileName()).fileName());
    body.setBody(bytes);
    form->append(body);

    ServiceRequest request;
    if (!token.isEmpty())
        request.headers.append({"Token", token});
    ++sendings;
    session.postParts(address, form, request, [this](QNetworkReply *reply) {
        partSent(FileReply::of(ServiceReply::of(reply, HERE)));
    });
}

void MultipartUpload::Private::partSent(const FileReply &reply)
{
    if (!reply.ok) {
        sendAgain(reply);
        return;
    }
    emit q->progress(std::min(size, PartSize * part), size);
    if (!q->isRunning())
        return;
    sendings = 0;
    if (part++ == parts)
        complete();
    else
        sendPart();
}

void MultipartUpload::Private::sendAgain(const FileReply &failure)
{
    constexpr int unauthorized = 401, forbidden = 403;
    if (sendings > Repetitions)
        giveUp(failure.message, failure.code);
    else if (failure.status == unauthorized || failure.status == forbidden)
        ask("/ImFile/updateUploadMultiFileAuthUrl", {{"objectId", objectId}}, &Private::renewed);
    else
        retry.start(RetryDelay * sendings);
}

void MultipartUpload::Private::renewed(const FileReply &reply)
{
    token = JsonReader::text(reply.result, "token").toUtf8();
    if (reply.ok)
        sendPart();
    else
        giveUp(reply.message, reply.code);
}

void MultipartUpload::Private::complete()
{
    ask("/ImFile/completeUploadMultiFileUrl",
        {{"objectId", objectId}, {"parts", QString::number(parts)}}, &Private::completed);
}

void MultipartUpload::Private::completed(const FileReply &reply)
{
    HttpResponseData result = reply.response();
    result.fileName = JsonReader::text(reply.result, "fileName");
    if (!result.ok)
        giveUp(reply.message, reply.code);
    else if (!FileServices::isSafeName(result.fileName))
        giveUp(QStringLiteral("the service gave the file no usable name"));
    else
        q->end(result);
}

void MultipartUpload::Private::giveUp(const QString &reason, int code)
{
    digest.stop();
    retry.stop();
    session.stop();
    delete call;
    forgetParts();
    q->fail(reason, code);
}

// Goes on when the upload is gone, and its answer changes nothing.
void MultipartUpload::Private::forgetParts()
{
    if (objectId.isEmpty() || !QCoreApplication::instance())
        return;
    ServiceCall::start({"/ImFile/abortUploadMultiFileUrl", {{"objectId", objectId}}},
                       QCoreApplication::instance(), HERE, [](const ServiceReply &) {});
    objectId.clear();
}

MultipartUpload::MultipartUpload(QObject *parent)
    : FileTransfer(parent), d(std::make_unique<Private>(this))
{
    d->retry.setSingleShot(true);
    connect(&d->retry, &QTimer::timeout, this, [this] { d->sendPart(); });
    connect(&d->digest, &FileDigest::finished, this,
            [this](const QByteArray &md5) { d->askForObject(md5); });
    connect(&d->session, &TransferSession::uploadProgress, this, [this](qint64 sent, qint64 total) {
        const qint64 done = PartSize * (d->part - 1);
        const qint64 part = std::min(PartSize, d->size - done);
        if (total > 0)
            emit progress(done + std::min(sent, part), d->size);
    });
}

MultipartUpload::~MultipartUpload() = default;

void MultipartUpload::start(const QString &file)
{
    LOG_SCOPE("MultipartUpload::start(const QString &file)");
    if (!begin())
        return;
    d->file.setFileName(file);
    if (QFileInfo(file).isFile())
        d->digest.start(file);
    else
        fail(QStringLiteral("the file cannot be read"));
}

void MultipartUpload::cancel()
{
    if (isRunning())
        d->giveUp(QStringLiteral("cancelled"));
}
