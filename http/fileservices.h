// Files to and from the back end. Each object is one transfer: it ends in exactly
// one finished(), never inside the call that started it or cancelled it. Deleting it
// ends the transfer without a signal; use deleteLater() inside a slot. The file of an
// upload is only read. GUI thread only.
#pragma once

#include "common/httpresponsedata.h"

#include <QObject>
#include <QString>

#include <memory>

class QNetworkReply;

class FileTransfer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // finished() follows with ok false; what was stored so far is removed. Nothing
    // happens when the transfer does not run.
    virtual void cancel() = 0;
    bool isRunning() const { return m_state == Running; }

signals:
    // Bytes; total is -1 while it is unknown.
    void progress(qint64 done, qint64 total);
    void finished(const HttpResponseData &result);

protected:
    bool begin(); // false: the object has had its transfer
    // The transfer is over; finished() follows from the event loop.
    void end(const HttpResponseData &result);
    // The same for a failure, with a line in the log.
    void fail(const QString &reason, int code = -1);

private:
    enum State
    {
        Idle,
        Running,
        Over
    };
    State m_state = Idle;
};

namespace FileServices {

// Whether the name is one plain component of a path on every system: such names
// are asked for, stored and taken from replies, no others.
bool isSafeName(const QString &name);

} // namespace FileServices

// One form with the whole file: for pictures.
class FileUpload : public FileTransfer
{
    Q_OBJECT

public:
    static constexpr qint64 MaximumSize = 64 * 1024 * 1024; // bytes

    explicit FileUpload(QObject *parent = nullptr);
    ~FileUpload() override;

    // `type` is the service's word for what the file is, such as "head". The
    // result's fileName is the name that the back end gave it, always a safe one.
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
    static constexpr int Repetitions = 3;               // of a part

    explicit MultipartUpload(QObject *parent = nullptr);
    ~MultipartUpload() override;

    void start(const QString &file);
    void cancel() override; // tells the back end to forget the parts, too

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// A file of the back end, stored under a new name first and renamed when it is
// complete: `target` is either the old or the whole new file, which only its owner
// can read.
class FileDownload : public FileTransfer
{
    Q_OBJECT

public:
    static constexpr qint64 MaximumSize = qint64(2) << 30;    // bytes
    static constexpr qint64 MaximumPicture = 8 * 1024 * 1024; // bytes

    // The service does not know the name: the result's code, then.
    static constexpr int NotThere = 404;

    explicit FileDownload(QObject *parent = nullptr);
    ~FileDownload() override;

    // `name` is the base name of a file of the file service; any other is refused.
    // `target` is a path on this computer, whose folder is made when it is missing.
    // `picture`: takes its turn among the pictures.
    void start(const QString &name, const QString &target, bool picture = false);
    void cancel() override;

private:
    void arrived(QNetworkReply *reply);
    void succeed();
    void giveUp(const QString &reason);

    struct Private;
    std::unique_ptr<Private> d;
};

// Pictures by the name that the back end knows them under. What is there is answered at
// once; the rest is fetched a few at a time, each name once, most recently asked for
// first. They are kept in a folder of the user who is logged in; with another user, or
// none, nothing of the old one is fetched on.
class PictureFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int AtATime = 4;      // of people
    static constexpr int IconsAtATime = 5; // of service numbers
    // Of those that wait, those asked for longest ago are given up.
    static constexpr int MaximumWaiting = 200;
    static constexpr int UnknownFor = 10 * 60 * 1000; // ms
    static constexpr int FailedFor = 30 * 1000;       // ms; when the service did not answer

    static PictureFiles &instance(); // of people
    static PictureFiles &serviceIcons();
    ~PictureFiles() override;

    // The local file: one of the program's own, such as "7.png" of
    // Resources/SystemAvatar, or one that was fetched. Empty: it is being fetched, and
    // ready() tells when it is there. A name that the back end does not know is not
    // asked for again for ten minutes.
    QString file(const QString &pictureName);

    // The picture of a person as file() tells it, unless the host has one of the jid;
    // `photoName` is what a service says of it: anybody's text, or empty.
    QString ofPerson(const QString &jid, const QString &photoName);

    // The same for a list row that has the picture `known`, or none: then the one that
    // the profile names.
    QString ofRow(const QString &known, const QString &jid);

    // Gives up everything that is being fetched: at log-out.
    void stop();

    // Whether anything is being fetched.
    bool isBusy() const;

signals:
    void ready(const QString &pictureName, const QString &file);

private:
    struct Kind;
    explicit PictureFiles(const Kind &kind);
    void fetchOn();
    void fetched(const QString &pictureName, const HttpResponseData &result);
    void forgetOtherUser();

    struct Private;
    std::unique_ptr<Private> d;
};
