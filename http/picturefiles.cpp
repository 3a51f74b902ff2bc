#include "http/fileservices.h"

#include "Resources/frienduiresources.h"
#include "common/clientpaths.h"
#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QHash>

namespace {
constexpr int MostRefused = 5000;

// A plain name stands for itself. Others are hashed, and so are those with capitals,
// since on some systems two of them can be one file.
QString localName(const QString &pictureName)
{
    const bool isPlain =
        safeFileName(pictureName) == pictureName && pictureName.toLower() == pictureName;
    if (isPlain)
        return pictureName;
    return QString::fromLatin1(
        QCryptographicHash::hash(pictureName.toUtf8(), QCryptographicHash::Sha256).toHex());
}

// The pictures that come with the program, by name. Their folders are read once: lists
// ask for a name each time they paint.
QString systemPicture(const QString &name)
{
    static const QHash<QString, QString> files = [] {
        const QString folder = QStringLiteral("Resources/SystemAvatar");
        QHash<QString, QString> found;
        const QStringList names = resourceNames(folder);
        for (const QString &each : names) {
            const QFileInfo file(resourcePath(folder + QLatin1Char('/') + each));
            found.insert(each, file.absoluteFilePath());
        }
        return found;
    }();
    return files.value(name);
}
} // namespace

struct PictureFiles::Kind
{
    const char *folder; // below the user's
    int atATime;
    QString (*localName)(const QString &pictureName);
};

struct PictureFiles::Private
{
    const Kind kind;
    QString folder = {};      // of the pictures; empty: nobody is logged in
    QStringList waiting = {}; // last in, first out
    QHash<QString, FileDownload *> running = {};
    QHash<QString, QDeadlineTimer> refused = {}; // by name: not asked for again until then

    QString localFile(const QString &name) const { return folder + kind.localName(name); }

    bool isRefused(const QString &name)
    {
        const auto at = refused.find(name);
        if (at == refused.end())
            return false;
        if (!at->hasExpired())
            return true;
        refused.erase(at);
        return false;
    }

    void refuse(const QString &name, int milliseconds)
    {
        if (refused.size() >= MostRefused)
            refused.clear();
        refused.insert(name, QDeadlineTimer(milliseconds));
    }
};

PictureFiles &PictureFiles::instance()
{
    static auto *files = new PictureFiles({"/headImage/", AtATime, &localName});
    return *files;
}

// Other parts of the client look for an icon under the name that its record has.
PictureFiles &PictureFiles::serviceIcons()
{
    static auto *files =
        new PictureFiles({"/serviceIcon/", IconsAtATime, [](const QString &name) { return name; }});
    return *files;
}

PictureFiles::PictureFiles(const Kind &kind) : d(new Private{kind}) {}

PictureFiles::~PictureFiles() = default;

void PictureFiles::forgetOtherUser()
{
    const QString user = ClientPaths::userFolder();
    const QString folder = user.isEmpty() ? user : user + QLatin1String(d->kind.folder);
    if (folder == d->folder)
        return;
    stop();
    d->refused.clear();
    d->folder = folder;
    // Not before somebody is logged in: until then the module may be unloaded again.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &PictureFiles::stop,
            Qt::UniqueConnection);
}

QString PictureFiles::file(const QString &pictureName)
{
    forgetOtherUser();
    const QString system = systemPicture(pictureName);
    if (!system.isEmpty())
        return system;
    if (d->folder.isEmpty() || !FileServices::isSafeName(pictureName))
        return QString();
    const QString local = d->localFile(pictureName);
    if (QFileInfo(local).size() > 0)
        return local;
    if (d->running.contains(pictureName) || d->isRefused(pictureName))
        return QString();
    d->waiting.removeOne(pictureName);
    d->waiting.append(pictureName);
    if (d->waiting.size() > MaximumWaiting)
        d->waiting.removeFirst();
    fetchOn();
    return QString();
}

QString PictureFiles::ofPerson(const QString &jid, const QString &photoName)
{
    FriendData contact;
    if (ctx().friendData(jid, &contact) && !contact.headPath.isEmpty())
        return contact.headPath;
    const QString own = ctx().headPath(jid);
    // The service's name is no path of ours.
    const QString name = QFileInfo(photoName).fileName();
    if (!own.isEmpty() || name.isEmpty())
        return own;
    const QString known = ctx().headPath(name);
    return known.isEmpty() ? file(name) : known;
}

QString PictureFiles::ofRow(const QString &known, const QString &jid)
{
    VcardInfo profile;
    if (!known.isEmpty() || !ctx().vcard(jid, &profile) || profile.photoName.isEmpty())
        return known;
    return ofPerson(jid, profile.photoName);
}

void PictureFiles::fetchOn()
{
    forgetOtherUser();
    while (!d->waiting.isEmpty() && d->running.size() < d->kind.atATime) {
        const QString name = d->waiting.takeLast();
        auto *download = new FileDownload(this);
        d->running.insert(name, download);
        connect(download, &FileDownload::finished, this,
                [this, name](const HttpResponseData &result) { fetched(name, result); });
        download->start(name, d->localFile(name), true);
    }
}

void PictureFiles::fetched(const QString &pictureName, const HttpResponseData &result)
{
    d->running.take(pictureName)->deleteLater();
    if (!result.ok)
        d->refuse(pictureName, result.code == FileDownload::NotThere ? UnknownFor : FailedFor);
    fetchOn();
    if (result.ok)
        emit ready(pictureName, result.localPath);
}

void PictureFiles::stop()
{
    d->waiting.clear();
    qDeleteAll(d->running);
    d->running.clear();
}

bool PictureFiles::isBusy() const
{
    return !d->running.isEmpty();
}
