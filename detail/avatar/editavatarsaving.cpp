// How the new picture gets to the others.
#include "common/clientpaths.h"
#include "common/context.h"
#include "common/logging.h"
#include "controls/skinbutton.h"
#include "controls/tipbox.h"
#include "detail/avatar/editavatar.h"
#include "detail/avatar/headupload.h"
#include "plugin/frienduieventprocess.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QProgressBar>
#include <QStackedWidget>

void EditAvatar::slot_SaveBtnclicked()
{
    LOG_SCOPE("EditAvatar::slot_SaveBtnclicked()");
    if (m_upload)
        return;
    if (!isOwners()) {
        reject();
        return;
    }
    if (!m_changed || (!m_isSysPhoto && m_cut.isNull())) {
        TipBox::tell(this, QObject::tr("notmodify"));
        return;
    }
    if (!isOnline()) {
        TipBox::tell(this, QObject::tr("notexecuteoperation"));
        return;
    }
    // The rest of the profile goes along; one that is not known would be wiped out.
    VcardInfo newest;
    if (!m_knowsVcard && !ctx().vcard(m_jid, &newest)) {
        TipBox::tell(this, QObject::tr("ownProfileUnknown"));
        FriendUIEventProcess::requestProfile(m_jid, true);
        return;
    }
    if (!m_isSysPhoto) {
        startUpload();
        return;
    }
    LOG_DEBUG("m_isSysPhoto is true");
    take(QFileInfo(m_sysPath).fileName());
}

void EditAvatar::startUpload()
{
    m_upload = new HeadUpload(this);
    connect(m_upload, &HeadUpload::notStored, this,
            [this] { uploadEnded(QObject::tr("pictureNotStored")); });
    connect(m_upload, &HeadUpload::finished, this, &EditAvatar::slot_MyHeadUploadFinished);
    connect(m_upload, &HeadUpload::progress, this, [this](qint64 done, qint64 total) {
        constexpr int Percent = 100;
        m_progress->setRange(0, Percent);
        m_progress->setValue(total > 0 ? int(done * Percent / total) : 0);
    });
    m_progress->setRange(0, 0); // until something is on its way
    showSaving(true);
    m_upload->start(m_cut, ClientPaths::designedHeadImagesFolder(m_userId));
}

void EditAvatar::showSaving(bool saving)
{
    m_progress->setVisible(saving);
    m_save->setEnabled(!saving);
    m_pages->setEnabled(!saving);
    m_systemTab->setEnabled(!saving);
    m_localTab->setEnabled(!saving);
}

void EditAvatar::dropUpload()
{
    if (!m_upload)
        return;
    m_upload->disconnect(this);
    m_upload->deleteLater();
    m_upload = nullptr;
}

void EditAvatar::uploadEnded(const QString &why)
{
    dropUpload();
    showSaving(false);
    m_save->setFocus();
    if (!why.isEmpty())
        TipBox::tell(this, why);
}

void EditAvatar::slot_MyHeadUploadFinished(const HttpResponseData &response)
{
    LOG_SCOPE("EditAvatar::slot_MyHeadUploadFinished(const HttpResponseData &data)");
    if (!m_upload)
        return;
    const bool succeeded = response.ok && response.code == 0 && !response.fileName.isEmpty();
    if (!isOwners()) {
        reject();
        return;
    }
    uploadEnded(succeeded ? QString() : QObject::tr("uploadFail"));
    if (succeeded)
        take(response.fileName);
}

void EditAvatar::take(const QString &photoName)
{
    m_vcard.photoName = photoName;
    accept();
    saveVcard();
}

void EditAvatar::saveVcard()
{
    VcardInfo profile = m_vcard;
    ctx().vcard(m_jid, &profile);
    profile.jid = m_jid;
    profile.photoName = m_vcard.photoName;
    FriendUIEventProcess::storeOwnProfile(profile);
}
