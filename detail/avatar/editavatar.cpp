#include "detail/avatar/editavatar.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/loadingoverlay.h"
#include "controls/pictures.h"
#include "controls/skinbutton.h"
#include "controls/tipbox.h"
#include "detail/avatar/headpreviews.h"
#include "detail/avatar/imagecutlabel.h"
#include "detail/avatar/picturethread.h"
#include "detail/avatar/sysavatartable.h"
#include "detail/avatar/systempictures.h"
#include "http/fileservices.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"

#include <QClipboard>
#include <QDropEvent>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QProgressBar>
#include <QStandardPaths>

namespace {
const QSize Bound(EditAvatar::BoundSide, EditAvatar::BoundSide);

// A translator may leave the patterns out; without any nothing could be chosen.
QString fileFilter()
{
    const QString filter = QObject::tr("filetype");
    return filter.contains(QLatin1Char('(')) ? filter
                                             : filter + QStringLiteral(" (*.jpg *.jpeg *.png)");
}

QString textOf(HeadPicture::Flaw flaw)
{
    switch (flaw) {
    case HeadPicture::Flaw::None:
        break;
    case HeadPicture::Flaw::Missing:
        return QObject::tr("filenotexistscannotmodify");
    case HeadPicture::Flaw::NoPicture:
        return QObject::tr("typeerrorcannotmodify");
    case HeadPicture::Flaw::TooLarge:
        return QObject::tr("pictureTooLarge");
    }
    return QString();
}

// The one local file that is being dropped or pasted; empty for anything else.
QString fileIn(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}
} // namespace

void EditAvatar::edit(QWidget *parent)
{
    static QPointer<EditAvatar> only;
    if (!only || !only->isOwners()) {
        if (only)
            only->close();
        only = new EditAvatar(parent);
        only->init();
    }
    only->present();
}

EditAvatar::EditAvatar(QWidget *parent)
    : BaseDialog(parent), m_userId(ctx().userId()), m_jid(makeJid(m_userId))
{
    setObjectName(QStringLiteral("EditAvatar"));
    setWindowTitle(QString::fromUtf8("更改头像"));
    setAcceptDrops(true);
    makeContents();
    connect(m_table, &SysAvatarTable::sysAvatar_clicked, this, &EditAvatar::slot_showSysAvatar);
    slot_SkinChange(ctx().skin());
    showPage(0);
    retranslate();
    followUser();
}

void EditAvatar::followUser()
{
    // At once, not when it is deleted: until then an answer may still come.
    connect(this, &BaseDialog::closed, this, &EditAvatar::dropUpload);
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_SkinChange, this, &EditAvatar::slot_SkinChange);
    connect(hub, &Hub::signal_logout, this, &QDialog::reject);
    connect(hub, &Hub::signal_login, this, [this] {
        if (!isOwners())
            reject();
    });
    const auto showNewer = [this](const QString &jid) {
        if (jid != m_jid || m_changed)
            return;
        initVcard();
        showPresent();
    };
    connect(hub, &Hub::signal_FriendVcardInfo, this, showNewer);
    connect(hub, &Hub::signal_FriendFullVcardInfo, this, showNewer);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this,
            [this](const QString &name, const QString &) {
                if (!m_changed && name == QFileInfo(m_vcard.photoName).fileName())
                    showPresent();
            });
}

bool EditAvatar::isOwners() const
{
    return ctx().userId() == m_userId;
}

void EditAvatar::init()
{
    m_table->setNames(SystemPictures::names());
    m_previews->setPicture(QPixmap(getTrueFilePath(QString())));
    initVcard();
    showPresent();
    if (!m_knowsVcard)
        FriendUIEventProcess::requestProfile(m_jid, true);
}

void EditAvatar::initVcard()
{
    m_knowsVcard = ctx().vcard(m_jid, &m_vcard);
}

QString EditAvatar::getTrueFilePath(const QString &path) const
{
    LOG_DEBUG("enter EditAvatar::getTrueFilePath ");
    for (const char *suffix : {"", ".jpg", ".png", ".jpeg"}) {
        const QString file = path + QLatin1String(suffix);
        if (!path.isEmpty() && QFileInfo(file).isFile())
            return file;
    }
    return resourcePath(QStringLiteral("Resources/images/FriendDetail/defaultHead.png"));
}

void EditAvatar::showPresent()
{
    const QString name = QFileInfo(m_vcard.photoName).fileName();
    const QString system = SystemPictures::names().contains(name) ? name : QString();
    m_table->setChosen(system);
    const QString file = PictureFiles::instance().ofPerson(m_jid, m_vcard.photoName);
    if (file.isEmpty())
        return;
    const QString path = getTrueFilePath(file);
    const QSize bound = m_cutLabel->shownBound(Bound);
    PictureThread::run<HeadPicture::Picture>(
        this, [path, bound] { return HeadPicture::load(path, bound); },
        [this, system](HeadPicture::Picture picture) {
            const bool isOther = m_cutLabel->hasPicture() && !m_bisHistory;
            if (m_changed || isOther || picture.flaw != HeadPicture::Flaw::None)
                return;
            m_isShowingPresent = true;
            m_bisHistory = system.isEmpty();
            m_present = QPixmap::fromImage(picture.image);
            if (m_bisHistory)
                setCut(std::move(picture));
            m_isShowingPresent = false;
            previewPresent();
        });
}

// The frame around a part of it says nothing until its page is seen.
void EditAvatar::previewPresent()
{
    if (m_changed || m_present.isNull())
        return;
    const bool isCutShown = m_bisHistory && m_localTab->isChecked();
    m_previews->setPicture(isCutShown ? m_cut : m_present);
}

void EditAvatar::slot_changeSystemPage()
{
    showPage(0);
}

void EditAvatar::slot_changeLocalPage()
{
    showPage(1);
}

void EditAvatar::slot_showSysAvatar(QString path, QPixmap px)
{
    m_sysPath = path;
    m_isSysPhoto = true;
    m_changed = true;
    m_previews->setPicture(px);
}

void EditAvatar::slot_SetCutPixmap(const QPixmap &_px)
{
    m_cut = _px;
    m_previews->setPicture(m_cut);
    if (m_isShowingPresent)
        return;
    m_changed = true;
    m_isSysPhoto = false;
    m_table->setChosen(QString());
}

void EditAvatar::slot_UploadBtnclicked()
{
    auto *dialog = new QFileDialog(
        this, QObject::tr("selectpic"),
        QStandardPaths::writableLocation(QStandardPaths::PicturesLocation), fileFilter());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &EditAvatar::loadLocalImage);
    dialog->open();
}

void EditAvatar::loadLocalImage(const QString &path)
{
    if (m_upload)
        return;
    if (!QFileInfo(path).isFile()) {
        TipBox::tell(this, textOf(HeadPicture::Flaw::Missing));
        return;
    }
    if (!HeadPicture::hasRightSuffix(path)) {
        TipBox::tell(this, textOf(HeadPicture::Flaw::NoPicture));
        return;
    }
    const QSize bound = m_cutLabel->shownBound(Bound);
    open([path, bound] { return HeadPicture::load(path, bound); });
}

void EditAvatar::open(const std::function<HeadPicture::Picture()> &read)
{
    const int ticket = ++m_opened;
    showPage(1);
    m_busy->cover();
    m_save->setEnabled(false); // what would be saved is not what is being opened
    PictureThread::run<HeadPicture::Picture>(this, read,
                                             [this, ticket](HeadPicture::Picture picture) {
                                                 if (ticket != m_opened)
                                                     return;
                                                 m_busy->hide();
                                                 m_save->setEnabled(true);
                                                 show(std::move(picture));
                                             });
}

void EditAvatar::show(HeadPicture::Picture &&picture)
{
    if (picture.flaw != HeadPicture::Flaw::None) {
        TipBox::tell(this, textOf(picture.flaw));
        return;
    }
    m_bisHistory = false;
    setCut(std::move(picture));
    m_cutLabel->setFocus();
}

void EditAvatar::setCut(HeadPicture::Picture &&picture)
{
    const QPixmap shown = QPixmap::fromImage(std::move(picture.shown));
    m_cutLabel->setPixmap(QPixmap::fromImage(std::move(picture.image)), shown, Bound);
}

void EditAvatar::paste()
{
    const QMimeData *pasted = QGuiApplication::clipboard()->mimeData();
    if (!pasted || m_upload)
        return;
    const QString file = fileIn(pasted);
    if (!file.isEmpty()) {
        loadLocalImage(file);
    } else if (pasted->hasImage()) {
        const auto image = pasted->imageData().value<QImage>();
        const QSize bound = m_cutLabel->shownBound(Bound);
        open([image, bound] { return HeadPicture::of(image, bound); });
    }
}

void EditAvatar::dragEnterEvent(QDragEnterEvent *event)
{
    if (!m_upload && !fileIn(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void EditAvatar::dropEvent(QDropEvent *event)
{
    const QString file = fileIn(event->mimeData());
    if (file.isEmpty())
        return;
    event->acceptProposedAction();
    loadLocalImage(file);
}

void EditAvatar::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste))
        paste();
    else
        BaseDialog::keyPressEvent(event);
}

void EditAvatar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    BaseDialog::changeEvent(event);
}

void EditAvatar::retranslate()
{
    m_progress->setFormat(QObject::tr("uploadingPicture"));
    m_progress->setAccessibleName(QObject::tr("uploadingPicture"));
}
