#include "servicenum/serviceicons.h"

#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"

#include <QFileInfo>

namespace {
constexpr char DefaultIcon[] = "Resources/images/FriendDetail/ic_portrait_server_90.png";

// The last component, whatever system the path is of; empty for the default icon.
QString nameOf(const QString &value)
{
    const int slash =
        qMax(value.lastIndexOf(QLatin1Char('/')), value.lastIndexOf(QLatin1Char('\\')));
    return value == QLatin1String(DefaultIcon) ? QString() : value.mid(slash + 1);
}
} // namespace

ServiceIcons::ServiceIcons()
{
    connect(FriendUISignalSender::instance(),
            &FriendUISignalSender::signal_notifyDownloadServiceIconResult, this,
            &ServiceIcons::stored);
    connect(&PictureFiles::serviceIcons(), &PictureFiles::ready, this, &ServiceIcons::fetched);
}

QString ServiceIcons::icon(const QString &code, const QString &value)
{
    const QString own = m_stored.value(code);
    if (!own.isEmpty() && QFileInfo::exists(own))
        return own;
    const QString name = nameOf(value);
    if (name.isEmpty())
        return QString::fromLatin1(DefaultIcon);
    const QString file = PictureFiles::serviceIcons().file(name);
    if (!file.isEmpty())
        return file;
    m_awaited[name].insert(code);
    return QString::fromLatin1(DefaultIcon);
}

void ServiceIcons::forget(const QString &code)
{
    m_stored.remove(code);
}

void ServiceIcons::clear()
{
    PictureFiles::serviceIcons().stop();
    m_awaited.clear();
    m_stored.clear();
}

void ServiceIcons::fetched(const QString &name, const QString &file)
{
    const QSet<QString> codes = m_awaited.take(name);
    for (const QString &code : codes)
        emit FriendUISignalSender::instance()->signal_notifyDownloadServiceIconResult(code, file);
}

void ServiceIcons::stored(const QString &code, const QString &file)
{
    const QString local = localPicture(file);
    if (code.isEmpty() || local.isEmpty())
        return;
    AvatarStore::instance().refresh(local);
    m_stored.insert(code, local);
    emit ready(code, local);
}
