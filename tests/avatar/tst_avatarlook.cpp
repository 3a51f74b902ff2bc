// How the dialog looks in both skins and languages, and on sharper screens.
#include "tests/avatar/avatarfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QPainter>

#include <memory>

class TstAvatarLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void pages_data() { addLooks({1.0, 2.0}); }
    void pages()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        const Language installed(language);
        AvatarFixture fixture;
        fixture.host.context.skinRecord.skinName = skin;
        FakeHost::send(Inbound::SkinChanged, fixture.host.context.skinRecord);
        EditAvatar *dialog = fixture.open();
        fixture.chooseSystem(3);
        const QString name = QStringLiteral("avatar-%1-%2-%3x-").arg(skin, language).arg(ratio);
        keepPicture(pictureOf(dialog, ratio), name + QStringLiteral("system"));
        dialog->loadLocalImage(fixture.file("photo.jpg", PictureMaker::jpeg(photograph())));
        QTRY_VERIFY(!fixture.isBusy());
        QTest::mousePress(fixture.cut(), Qt::LeftButton, Qt::NoModifier, QPoint(150, 100));
        keepPicture(pictureOf(dialog, ratio), name + QStringLiteral("local"));
        QTest::mouseRelease(fixture.cut(), Qt::LeftButton, Qt::NoModifier, QPoint(150, 100));
        nothingIsCutOff(dialog);
    }

    // The title bar has a style sheet, and a window may stay open while the skin changes.
    void titleFollowsTheSkin()
    {
        AvatarFixture fixture;
        const EditAvatar *dialog = fixture.open();
        const auto *title = dialog->findChild<QLabel *>(QStringLiteral("label_title"));
        SysUIData &record = fixture.host.context.skinRecord;
        for (const char *skin : {"dark", "light", "dark"}) {
            record.skinName = QString::fromLatin1(skin);
            FakeHost::send(Inbound::SkinChanged, record);
            QTRY_COMPARE(title->palette().color(QPalette::WindowText),
                         Skin::instance().colors().text);
        }
    }

    void whatIsOutsideIsDimmed()
    {
        AvatarFixture fixture;
        fixture.open();
        fixture.load(300);
        const QImage image = pictureOf(fixture.cut(), 1);
        QCOMPARE(image.pixelColor(120, 120), QColor(Qt::red));
        const QColor outside = image.pixelColor(40, 40);
        QVERIFY2(outside.red() < 160 && outside.green() == 0, qPrintable(outside.name()));
    }

    void theTwoPreviewsAreRound()
    {
        AvatarFixture fixture;
        fixture.open();
        fixture.load(300);
        for (const char *name : {"m_MiddleAvatarLabel", "m_SmallAvatarLabel"}) {
            const QImage image = fixture.preview(name);
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
            QCOMPARE(image.pixelColor(image.width() / 3, image.height() / 3), QColor(Qt::red));
        }
    }

private:
    static QImage photograph()
    {
        QImage image(1500, 1000, QImage::Format_RGB32);
        QPainter painter(&image);
        QLinearGradient sky(0, 0, 0, 1000);
        sky.setColorAt(0, QColor(90, 150, 220));
        sky.setColorAt(1, QColor(240, 220, 190));
        painter.fillRect(image.rect(), sky);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(60, 110, 80));
        painter.drawEllipse(QRect(-300, 650, 1500, 900));
        painter.setBrush(QColor(250, 240, 200));
        painter.drawEllipse(QPoint(750, 480), 220, 220);
        return image;
    }

    static void nothingIsCutOff(const QWidget *dialog)
    {
        const auto labels = dialog->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->isVisible() && !label->text().isEmpty())
                QVERIFY2(label->width() >= label->sizeHint().width() &&
                             label->height() >= label->sizeHint().height(),
                         qPrintable(label->text()));
        }
        const auto buttons = dialog->findChildren<QPushButton *>();
        for (const QPushButton *button : buttons) {
            if (button->isVisible())
                QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
        }
    }
};

FRIENDUI_TEST(TstAvatarLook)
#include "tst_avatarlook.moc"
