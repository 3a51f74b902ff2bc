#include "http/fileservices.h"

#include "common/logging.h"
#include "common/platform.h"
#include "http/chttpsession.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"
#include "http/transfersession.h"

#include <QDir>
#include <QFileInfo>
#include <QNetworkReply>
#include <QSaveFile>

namespace {
constexpr int Arrived = 200;

int statusOf(const QNetworkReply *reply)
{
    return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// With nobody logged in the service answers in JSON instead of the file.
bool isRefusal(const QNetworkReply *reply)
{
    const QString type = reply->header(QNetworkRequest::ContentTypeHeader).toString();
    return reply->rawHeader("passport.login.flag") == "true" &&
           type.startsWith(QLatin1String("application/json"), Qt::CaseInsensitive);
}

// A connection that ends in the middle is not always an error for the network layer.
bool isComplete(const QNetworkReply *reply, qint64 received)
{
    const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
    return !length.isValid() || length.toLongLong() == received;
}

std::unique_ptr<QSaveFile> openForOwner(const QString &target)
{
    QDir().mkpath(QFileInfo(target).path());
    auto file = std::make_unique<QSaveFile>(target);
    if (!file->open(QIODevice::WriteOnly) || !Platform::restrictToOwner(*file))
        return nullptr;
    return file;
}
} // namespace

struct FileDownload::Private
{
    TransferSession session;
    QString name, target;
    std::unique_ptr<QSaveFile> file; // null before the start and after the end
    qint64 received = 0;             // bytes

    // False when the disk takes no more. Writing alone would only fill a buffer.
    bool store(QNetworkReply *reply)
    {
        if (statusOf(reply) != Arrived) {
            // The page that explains a failure may be as long as the file.
            reply->skip(reply->bytesAvailable());
            return true;
        }
        const QByteArray bytes = reply->readAll();
        received += bytes.size();
        return file->write(bytes) == bytes.size() && file->flush();
    }
};

FileDownload::FileDownload(QObject *parent) : FileTransfer(parent), d(std::make_unique<Private>())
{
    connect(&d->session, &TransferSession::readyRead, this, [this](QNetworkReply *reply) {
        if (isRunning() && !d->store(reply))
            giveUp(QStringLiteral("the file cannot be written: ") + d->file->errorString());
    });
    connect(&d->session, &TransferSession::downloadProgress, this, &FileTransfer::progress);
}

FileDownload::~FileDownload() = default;

void FileDownload::start(const QString &name, const QString &target, bool picture)
{
    LOG_SCOPE("FileDownload::start(const QString &name, const QString &target, bool picture)");
    if (!begin())
        return;
    d->name = name;
    d->target = target;
    QString address = ServiceAddresses::address("/ImFile/downloadPointUrl");
    if (!FileServices::isSafeName(name)) {
        fail(QStringLiteral("the name of the file is refused"));
        return;
    }
    if (address.isEmpty()) {
        fail(QStringLiteral("the file service has no address"));
        return;
    }
    d->file = openForOwner(target);
    if (!d->file) {
        fail(QStringLiteral("the file cannot be written"));
        return;
    }
    address += QLatin1Char(address.contains(QLatin1Char('?')) ? '&' : '?') +
               QLatin1String("name=") + QLatin1String(QUrl::toPercentEncoding(name));
    ServiceRequest request;
    request.throttled = picture;
    request.kind = picture ? CHttpSession::PictureKind : 0;
    d->session.get(address, picture ? MaximumPicture : MaximumSize, request,
                   [this](QNetworkReply *reply) { arrived(reply); });
}

void FileDownload::arrived(QNetworkReply *reply)
{
    const int status = statusOf(reply);
    if (status == NotThere) {
        HttpResponseData result;
        result.code = NotThere;
        result.message = QStringLiteral("the service does not know the file");
        d->file.reset();
        end(result);
        return;
    }
    if (reply->error() != QNetworkReply::NoError || status != Arrived || isRefusal(reply)) {
        giveUp(RequestText::message(reply->errorString()));
        return;
    }
    if (!d->store(reply))
        giveUp(QStringLiteral("the file cannot be written: ") + d->file->errorString());
    else if (!isComplete(reply, d->received))
        giveUp(QStringLiteral("the connection was cut off"));
    else if (!Platform::waitUntilClosed(d->target))
        giveUp(QStringLiteral("another program has the file open"));
    else if (!d->file->commit())
        giveUp(QStringLiteral("the file cannot be written: ") + d->file->errorString());
    else
        succeed();
}

void FileDownload::succeed()
{
    d->file.reset();
    HttpResponseData result;
    result.ok = true;
    result.fileName = d->name;
    result.localPath = d->target;
    end(result);
}

void FileDownload::giveUp(const QString &reason)
{
    d->session.stop();
    d->file.reset();
    fail(reason);
}

void FileDownload::cancel()
{
    if (isRunning())
        giveUp(QStringLiteral("cancelled"));
}
