#include "http/fileservices.h"

#include "common/logging.h"
#include "http/filedigest.h"
#include "http/filereply.h"
#include "http/jsonreader.h"
#include "http/serviceaddresses.h"
#include "http/transfersession.h"

#include <QFile>
#include <QFileInfo>
#include <QHttpMultiPart>

#include <algorithm>

struct FileUpload::Private
{
    QString file, type;
    QString address;
    FileDigest digest;
    TransferSession session;

    // Null when the file cannot be read any more.
    QHttpMultiPart *form(const QByteArray &md5) const
    {
        auto parts = std::make_unique<QHttpMultiPart>(QHttpMultiPart::FormDataType);
        auto *body = new QFile(file, parts.get());
        if (!body->open(QIODevice::ReadOnly) || body->size() > MaximumSize)
            return nullptr;
        QHttpPart part = FileForm::filePart(QFileInfo(file).fileName());
        part.setBodyDevice(body);
        parts->append(part);
        parts->append(FileForm::textPart("type", type.toUtf8()));
        parts->append(FileForm::textPart("md5", md5));
        return parts.release();
    }
};

namespace {
HttpResponseData uploaded(const FileReply &reply)
{
    HttpResponseData result = reply.response();
    result.fileName = JsonReader::text(reply.result, "fileName");
    if (result.ok && !FileServices::isSafeName(result.fileName)) {
        result.ok = false;
        result.code = ServiceReply::NoCode;
        result.fileName.clear();
        result.message = QStringLiteral("the service gave the file no usable name");
    }
    if (!result.ok)
        LOG_ERROR("an upload failed: " << logText(result.message));
    return result;
}
} // namespace

FileUpload::FileUpload(QObject *parent) : FileTransfer(parent), d(std::make_unique<Private>())
{
    connect(&d->digest, &FileDigest::finished, this, [this](const QByteArray &md5) {
        QHttpMultiPart *parts = md5.isEmpty() ? nullptr : d->form(md5);
        if (!parts) {
            fail(QStringLiteral("the file cannot be read"));
            return;
        }
        d->session.postParts(d->address, parts, {}, [this](QNetworkReply *reply) {
            end(uploaded(FileReply::of(ServiceReply::of(reply, HERE))));
        });
    });
    connect(&d->session, &TransferSession::uploadProgress, this, [this](qint64 sent, qint64 total) {
        // The form around the file counts, too.
        const qint64 size = QFileInfo(d->file).size();
        if (total > 0)
            emit progress(std::min(sent, size), size);
    });
}

FileUpload::~FileUpload() = default;

void FileUpload::start(const QString &file, const QString &type)
{
    LOG_SCOPE("FileUpload::start(const QString &file, const QString &type)");
    if (!begin())
        return;
    const QFileInfo info(file);
    d->file = file;
    d->type = type;
    d->address = ServiceAddresses::address("/ImFile/uploadFileUrl");
    if (!info.isFile())
        fail(QStringLiteral("the file cannot be read"));
    else if (info.size() > MaximumSize)
        fail(QStringLiteral("the file is too large"));
    else if (d->address.isEmpty())
        fail(QStringLiteral("the file service has no address"));
    else
        d->digest.start(file);
}

void FileUpload::cancel()
{
    if (!isRunning())
        return;
    d->digest.stop();
    d->session.stop();
    fail(QStringLiteral("cancelled"));
}
