// The dialog in which users change their own picture: to one that comes with the
// program, or to a square cut out of a picture of theirs. Every picture is seen as
// others will see it before it is saved.
#pragma once

#include "controls/basedialog.h"
#include "detail/avatar/headpicture.h"
#include "hostapi/rosterrecords.h"
#include "hostapi/skinrecord.h"

#include <QPixmap>

#include <functional>

class HeadPreviews;
class HeadUpload;
class ImageCutLabel;
class LoadingOverlay;
class QAbstractButton;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class SkinButton;
class SysAvatarTable;
struct HttpResponseData;

// Object name "EditAvatar". It belongs to the user who is logged in when it is opened,
// and closes when they log out.
class EditAvatar : public BaseDialog
{
    Q_OBJECT

public:
    static constexpr int BoundSide = 300; // device-independent pixels, of the picture to cut

    // Opens the one dialog, or raises it.
    static void edit(QWidget *parent);

    explicit EditAvatar(QWidget *parent = nullptr);

    // Shows what the user has now.
    void init();
    void initVcard();
    // Sends the profile as it is known by now with the new picture's name.
    void saveVcard();

    // The path itself, or with a picture's suffix added, whichever is there; else the
    // picture of people who have none.
    QString getTrueFilePath(const QString &path) const;

    // Opens a picture to cut, as the button does. It is decoded elsewhere and shown
    // when it is there; one that is opened meanwhile takes its place. What cannot be
    // shown is told in a box, and what was there stays.
    void loadLocalImage(const QString &path);

public slots:
    void slot_changeSystemPage();
    void slot_changeLocalPage();
    void slot_showSysAvatar(QString path, QPixmap px);
    void slot_SetCutPixmap(const QPixmap &_px);
    void slot_UploadBtnclicked();
    void slot_SaveBtnclicked();
    void slot_MyHeadUploadFinished(const HttpResponseData &data);
    void slot_SkinChange(const SysUIData &skin);

protected:
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // Laying out.
    void makeContents();
    QWidget *makeTabs();
    QPushButton *makeTab(const char *name, const QString &text);
    QWidget *makeLocalPage();
    QWidget *makeBar();
    void showPage(int page);
    void retranslate();

    // What is shown.
    void followUser();
    void showPresent();
    void previewPresent();
    void open(const std::function<HeadPicture::Picture()> &read);
    void show(HeadPicture::Picture &&picture);
    void setCut(HeadPicture::Picture &&picture);
    void paste();
    bool isOwners() const;

    // Saving.
    void startUpload();
    void showSaving(bool saving);
    void dropUpload();
    void uploadEnded(const QString &why);
    void take(const QString &photoName);

    const QString m_userId;
    const QString m_jid;
    VcardInfo m_vcard;
    bool m_knowsVcard = false;

    QPixmap m_cut;
    QPixmap m_present; // the whole picture that the user has; null while it is unknown
    QString m_sysPath; // of the chosen system picture
    bool m_isSysPhoto = false;
    bool m_bisHistory = false; // the picture to cut is the one the user has already
    bool m_changed = false;    // by the user
    bool m_isShowingPresent = false;
    int m_opened = 0; // pictures, so that only the last one is shown
    HeadUpload *m_upload = nullptr;

    QPushButton *m_systemTab = nullptr;
    QPushButton *m_localTab = nullptr;
    QLabel *m_systemMark = nullptr;
    QLabel *m_localMark = nullptr;
    QStackedWidget *m_pages = nullptr;
    SysAvatarTable *m_table = nullptr;
    ImageCutLabel *m_cutLabel = nullptr;
    LoadingOverlay *m_busy = nullptr;
    SkinButton *m_open = nullptr;
    HeadPreviews *m_previews = nullptr;
    QProgressBar *m_progress = nullptr;
    SkinButton *m_save = nullptr;
    SkinButton *m_cancel = nullptr;
};
