// What the pages of the add-contact window show.
#include "tests/detail/addfriendfixture.h"
#include "tests/support/files.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QTranslator>

namespace {
using F = AddFriendFixture;

VcardInfo profile(const QString &nick, const QString &user, const char *sex)
{
    VcardInfo info;
    info.nickName = nick;
    info.userName = user;
    info.sex = QString::fromUtf8(sex);
    return info;
}
} // namespace

class TstAddFriendPages : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void names_data()
    {
        const Rows<QString, QString, QString> row{"nick", "user", "shown"};
        row("both", "Anna", "anna.x", "Anna(anna.x)");
        row("the same", "anna", "anna", "anna");
        row("nick only", "Anna", "", "Anna");
        row("user only", "", "anna.x", "anna.x");
        row("neither", "\n", "", "anna");
    }

    void names()
    {
        QFETCH(QString, nick);
        QFETCH(QString, user);
        QFETCH(QString, shown);
        F f;
        AddFriend *dialog = f.openForm("DENY_ALL");
        FakeHost::send(Inbound::ProfileReceived, f.anna(), profile(nick, user, "女"));
        QCOMPARE(f.text(dialog, "name"), shown);
        QCOMPARE(f.text(dialog, "resultText"), shown + QStringLiteral("refusefriends"));
        QVERIFY(dialog->findChild<QLabel *>(QStringLiteral("sex"))->isVisible());
        FakeHost::send(Inbound::ProfileReceived, f.anna(), profile(nick, user, "<b>"));
        QVERIFY(!dialog->findChild<QLabel *>(QStringLiteral("sex"))->isVisible());
    }

    void showsOnlyItsPersonsPicture()
    {
        F f;
        const AddFriend *dialog = f.open();
        const auto *picture = dialog->findChild<QLabel *>(QStringLiteral("picture"));
        const QImage before = picture->pixmap(Qt::ReturnByValue).toImage();
        QVERIFY(!before.isNull());
        const QString file = sourceFile("Resources/SystemAvatar/3.png");
        FakeHost::send(Inbound::HeadChanged, f.bob(), file);
        QCOMPARE(picture->pixmap(Qt::ReturnByValue).toImage(), before);
        FakeHost::send(Inbound::HeadChanged, f.anna(), file);
        QTRY_VERIFY(picture->pixmap(Qt::ReturnByValue).toImage() != before);
    }

    void foreignTextIsPlain()
    {
        F f;
        const QString hostile = QStringLiteral("<img src=/etc/passwd> & Co");
        f.host.context.innerGroups.append({QStringLiteral("g9"), hostile});
        AddFriend *dialog = f.openForm("DENY_ALL");
        FakeHost::send(Inbound::ProfileReceived, f.anna(), profile(hostile, QString(), "男"));
        QVERIFY(f.text(dialog, "name") == hostile);
        for (const QLabel *label : dialog->findChildren<QLabel *>())
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
    }

    void followsTheLanguage()
    {
        QTranslator translator;
        QVERIFY(translator.load(qEnvironmentVariable("FRIENDUI_BIN") +
                                QStringLiteral("/translations/friendui_en")));
        F f;
        AddFriend *dialog = f.openForm();
        dialog->findChild<ValidationEdit *>()->setPlainText(QStringLiteral("typed"));
        QCOMPARE(f.text(dialog, "statusText"), QStringLiteral("waitfriendsconfirm"));
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(f.text(dialog, "statusText"), QObject::tr("waitfriendsconfirm"));
        QCOMPARE(dialog->findChild<ValidationEdit *>()->toPlainText(), QStringLiteral("typed"));
        QCoreApplication::removeTranslator(&translator);
        QTRY_COMPARE(f.text(dialog, "statusText"), QStringLiteral("waitfriendsconfirm"));
    }

    void looks_data()
    {
        QTest::addColumn<QString>("skin");
        QTest::addColumn<QString>("language");
        QTest::addColumn<bool>("longName");
        for (const char *skin : {"light", "dark"}) {
            for (const char *language : {"zh_CN", "en"}) {
                QTest::addRow("%s %s", skin, language) << skin << language << false;
                QTest::addRow("%s %s, long name", skin, language) << skin << language << true;
            }
        }
    }

    void looks()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(bool, longName);
        const Language installed(language);
        setSkin(skin);
        F f;
        const QString nick = longName
                                 ? QString::fromUtf8("Wolfeschlegelsteinhausenbergerdorffwelche") +
                                       QString(60, QLatin1Char('x'))
                                 : QString::fromUtf8("欧阳晓明");
        f.host.context.innerGroups[2].name =
            longName ? QString(60, QLatin1Char('W')) : QString::fromUtf8("市场部的同事");
        f.host.context.profiles[f.anna()] =
            profile(nick, longName ? QString() : QStringLiteral("ouyangxm"), "女");
        AddFriend *dialog = f.open();
        const QString name =
            QStringLiteral("%1-%2%3-")
                .arg(skin, language, longName ? QStringLiteral("-long") : QString());

        const int width = dialog->width();
        const auto check = [&](const char *state) {
            QCoreApplication::processEvents();
            keepPicture(dialog->grab().toImage(), name + QLatin1String(state));
            // No page widens the window, and nothing of one is cut off.
            QCOMPARE(dialog->width(), width);
            for (const QWidget *part : dialog->findChildren<QWidget *>()) {
                const bool isCut = part->isVisible() && part->parentWidget() != dialog->window() &&
                                   !part->parentWidget()->inherits("QAbstractScrollArea") &&
                                   !part->parentWidget()->rect().contains(part->geometry());
                QVERIFY2(!isCut, qPrintable(part->objectName()));
            }
        };
        check("1-waiting");
        F::policy("NEED_CONFIRM", f.anna(), f.host.context.innerGroups[2].name);
        dialog->findChild<ValidationEdit *>()->setPlainText(QString::fromUtf8("我是市场部的李雷"));
        check("2-form");
        F::policy("ACCEPT_ALL");
        check("3-accepts-all");
        F::click(dialog, "okButton");
        check("4-sent");
        FakeHost::send(Inbound::ContactRequestAnswered, f.anna(), true, QString());
        check("5-added");
        dialog->slot_addFriendFail();
        check("6-failed");
        F::click(dialog, "resultButton");
        F::policy("DENY_ALL");
        check("7-refused");
    }
};

FRIENDUI_TEST(TstAddFriendPages)
#include "tst_addfriendpages.moc"
