#include "host/personpictures.h"

#include "host/externalroster.h"
#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "host/serviceevents.h"
#include "host/systempicture.h"
#include "host/webservices.h"
#include "hostapi/eventcodes.h"
#include "http/fileservices.h"
#include "http/serviceaddresses.h"
#include "http/servicecall.h"

namespace {
const char StorePath[] = "/center/user/setPhoto.do";
} // namespace

PersonPictures::PersonPictures(const Parts &parts, QObject *parent)
    : QObject(parent), m_parts(parts)
{
    connect(parts.events, &ServiceEvents::pictureChanged, this,
            [this](const QString &uid, const QString &photoName) {
                take(uid + QLatin1Char('@') + m_parts.core->serverDomain(), photoName);
            });
    connect(parts.roster, &ExternalRoster::pictureKnown, this, &PersonPictures::take);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this, &PersonPictures::fetched);
}

void PersonPictures::take(const QString &jid, const QString &photoName)
{
    VcardInfo profile;
    if (!m_parts.core->profile(jid, &profile) || profile.photoName == photoName)
        return;
    QString file = SystemPicture::file(photoName);
    if (file.isEmpty() && !photoName.isEmpty())
        file = PictureFiles::instance().file(photoName);
    // Without a file yet: no longer the old one.
    show(jid, photoName, file);
    if (file.isEmpty() && !photoName.isEmpty())
        m_fetching[photoName].insert(jid);
}

void PersonPictures::fetched(const QString &photoName, const QString &file)
{
    const QSet<QString> jids = m_fetching.take(photoName);
    for (const QString &jid : jids) {
        VcardInfo profile;
        if (m_parts.core->profile(jid, &profile) && profile.photoName == photoName)
            show(jid, photoName, file);
    }
}

void PersonPictures::show(const QString &jid, const QString &photoName, const QString &file)
{
    VcardInfo profile;
    if (!m_parts.core->keepPicture(jid, photoName, file) || !m_parts.core->profile(jid, &profile))
        return;
    m_parts.bus->notify(Inbound::ProfileReceived, jid, profile);
    if (jid == m_parts.core->ownJid())
        m_parts.bus->notify(Inbound::OwnProfileStored);
    m_parts.bus->notify(Inbound::HeadChanged, jid, file);
}

void PersonPictures::storeOwnProfile(const VcardInfo &profile)
{
    VcardInfo known;
    const QString own = m_parts.core->ownJid();
    if (!m_parts.core->profile(own, &known) || known.photoName == profile.photoName) {
        m_parts.core->storeOwnProfile(profile);
        return;
    }
    if (m_parts.services->state() != WebServices::Ready) {
        refusePicture();
        return;
    }
    ServiceRequest request;
    request.address = ServiceAddresses::host(QStringLiteral("center")) + QLatin1String(StorePath);
    request.fields = {{"photoName", profile.photoName}};
    ServiceCall::start(request, this, HERE, [this, own, profile](const ServiceReply &reply) {
        if (!reply.ok) {
            refusePicture();
            return;
        }
        take(own, profile.photoName);
        m_parts.core->storeOwnProfile(profile);
    });
}

void PersonPictures::refusePicture()
{
    emit note(tr("The services do not take the new picture; the profile was not stored."));
}
