#include "detail/avatar/headupload.h"

#include "detail/avatar/headfile.h"
#include "detail/avatar/picturethread.h"
#include "http/fileservices.h"

void HeadUpload::start(const QPixmap &cut, const QString &folder)
{
    PictureThread::run<QString>(
        this,
        [image = cut.toImage(), folder] {
            return HeadFile::store(HeadFile::finished(image), folder);
        },
        [this](const QString &file) { upload(file); });
}

void HeadUpload::upload(const QString &file)
{
    if (file.isEmpty()) {
        emit notStored();
        return;
    }
    auto *upload = new FileUpload(this);
    connect(upload, &FileTransfer::progress, this, &HeadUpload::progress);
    connect(upload, &FileTransfer::finished, this, &HeadUpload::finished);
    upload->start(file, QStringLiteral("head"));
}
