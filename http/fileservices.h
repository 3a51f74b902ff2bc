// Files to and from the back end. Each object is one transfer: it ends in exactly
// one finished(), never inside the call that started it. Deleting it ends the
// transfer without a signal. The file of an upload is only read.
#pragma once

#include "common/httpresponsedata.h"

#include <QObject>
#include <QString>

#include <memory>

class FileTransfer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // finished() follows with ok false; what was stored so far is removed.
    virtual void cancel() = 0;

signals:
    // Bytes; total is -1 while it is unknown.
    void progress(qint64 done, qint64 total);
    void finished(const HttpResponseData &result);
};

// One form with the whole file: for pictures.
class FileUpload : public FileTransfer
{
    Q_OBJECT

public:
    static constexpr qint64 MaximumSize = 64 * 1024 * 1024; // bytes

    explicit FileUpload(QObject *parent = nullptr);
    ~FileUpload() override;

    // `type` is the service's word for what the file is, such as "head". The
    // result's fileName is the name that the back end gave it.
    void start(const QString &file, const QString &type);
    void cancel() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// A file in parts, for large ones: a part that fails is sent again, up to three
// times, without the others.
class MultipartUpload : public FileTransfer
{
    Q_OBJECT

public:
    static constexpr qint64 PartSize = 4 * 1024 * 1024; // bytes

    explicit MultipartUpload(QObject *parent = nullptr);
    ~MultipartUpload() override;

    void start(const QString &file);
    void cancel() override; // tells the back end to forget the parts, too

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// A file of the back end, stored under a new name first and renamed when it is
// complete: `target` is either the old or the whole new file.
class FileDownload : public FileTransfer
{
    Q_OBJECT

public:
    explicit FileDownload(QObject *parent = nullptr);
    ~FileDownload() override;

    // `name` is the base name of a file of the file service. `picture`: takes its
    // turn among the pictures.
    void start(const QString &name, const QString &target, bool picture = false);
    void cancel() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// Pictures of people and service numbers by the name that the back end knows them
// under. What is there is answered at once; the rest is fetched one after the
// other, each name once, most recently asked for first.
class PictureFiles : public QObject
{
    Q_OBJECT

public:
    static PictureFiles &instance();
    ~PictureFiles() override;

    // The local file, or empty: then it is being fetched, and ready() tells when it
    // is there. A name that the back end does not know is not asked for again for
    // ten minutes.
    QString file(const QString &pictureName);

signals:
    void ready(const QString &pictureName, const QString &file);

private:
    PictureFiles();
    struct Private;
    std::unique_ptr<Private> d;
};
