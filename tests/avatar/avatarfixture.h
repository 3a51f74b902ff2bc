// The dialog on screen, with a host that knows the user's profile and a back end that
// takes pictures.
#pragma once

#include "controls/tipbox.h"
#include "detail/avatar/editavatar.h"
#include "detail/avatar/imagecutlabel.h"
#include "tests/avatar/picturemaker.h"
#include "tests/support/fakehost.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

class AvatarFixture
{
public:
    static constexpr char UploadPath[] = "/center/im/uploadFile.do";
    static constexpr char Stored[] =
        R"({"SNRetCode":"0","SNRetMsg":"","result":{"fileName":"me_7.jpg"}})";

    const QString own = QStringLiteral("me@corp.example");

    AvatarFixture()
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("me");
        host.context.programFolder = folder.path();
        host.context.baseFolder = folder.filePath(QStringLiteral("users"));
        const QByteArray address = server.url().toEncoded();
        QByteArray ini = "[Hosts]\n";
        for (const char *name : {"center", "ids", "vcs", "monitor", "web"})
            ini += QByteArray(name) + '=' + address + '\n';
        writeFile(folder.filePath(QStringLiteral("allurl.ini")), ini);
        server.reply(UploadPath, FakeReply::json(Stored));
        VcardInfo profile;
        profile.jid = own;
        profile.nickName = QStringLiteral("Me");
        profile.mobile = QStringLiteral("13800000001");
        profile.version = 5;
        host.context.profiles.insert(own, profile);
    }
    ~AvatarFixture()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (qobject_cast<BaseDialog *>(window))
                window->close();
        }
        settle();
        TipBox::setNextAnswers(TipBox::ShowBox);
    }
    AvatarFixture(const AvatarFixture &) = delete;
    AvatarFixture &operator=(const AvatarFixture &) = delete;

    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    EditAvatar *open()
    {
        EditAvatar::edit(nullptr);
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (auto *editor = qobject_cast<EditAvatar *>(window))
                dialog = editor;
        }
        return dialog;
    }

    // A picture of that many pixels on a side, opened and shown.
    void load(int side)
    {
        dialog->loadLocalImage(
            file("photo.png", PictureMaker::png(PictureMaker::quarters(QSize(side, side)))));
        QTRY_VERIFY(!isBusy());
    }
    bool isBusy() const
    {
        return dialog->findChild<QWidget *>(QStringLiteral("widget_loading"))->isVisible();
    }
    QString file(const char *name, const QByteArray &bytes) const
    {
        const QString path = folder.filePath(QLatin1String(name));
        writeFile(path, bytes);
        return path;
    }

    void chooseSystem(int column) const
    {
        auto *table = dialog->findChild<QTableWidget *>(QStringLiteral("sysAvatarTable"));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier,
                          table->visualRect(table->model()->index(0, column)).center());
    }
    QPushButton *button(const char *name) const
    {
        return dialog->findChild<QPushButton *>(QLatin1String(name));
    }
    void save() const { QTest::mouseClick(button("btnSave"), Qt::LeftButton); }
    ImageCutLabel *cut() const { return dialog->findChild<ImageCutLabel *>(); }
    QImage preview(const char *name = "m_MiddleAvatarLabel") const
    {
        return dialog->findChild<QLabel *>(QLatin1String(name))->pixmap().toImage();
    }
    VcardInfo sent() const
    {
        return std::get<0>(host.arguments<VcardInfo>(Outbound::StoreOwnProfile));
    }
    int sentProfiles() const { return host.count(Outbound::StoreOwnProfile); }
    QStringList storedFiles() const
    {
        return QDir(host.context.baseFolder + QStringLiteral("/me/designHeadImage"))
            .entryList(QDir::Files);
    }

    QTemporaryDir folder;
    FakeServer server;
    FakeHost host;
    QPointer<EditAvatar> dialog;
};
