// The program's own pictures, and their list when somebody has meddled with it.
#include "controls/pictures.h"
#include "detail/avatar/sysavatartable.h"
#include "detail/avatar/systempictures.h"
#include "tests/support/testrunner.h"

class TstSystemPictures : public QObject
{
    Q_OBJECT

private slots:
    void listings_data()
    {
        const Rows<QByteArray, QString> row{"xml", "names"};
        row("plain", "<avatars><avatar>1.png</avatar><avatar> 2.png </avatar></avatars>",
            "1.png 2.png");
        row("twice", "<avatars><avatar>1.png</avatar><avatar>1.png</avatar></avatars>", "1.png");
        row("paths",
            "<avatars><avatar>/etc/passwd</avatar><avatar>../../a.png</avatar>"
            "<avatar>..</avatar><avatar></avatar><avatar>nul</avatar></avatars>",
            "passwd a.png");
        row("others", "<avatars><x><avatar>3.png</avatar></x><avatar>1.png<b/></avatar></avatars>",
            "1.png");
        row("ends early", "<avatars><avatar>1.png</avatar><avatar>2", "1.png");
        row("another root", "<html><avatar>1.png</avatar></html>", "");
        row("nothing", "", "");
        row("no XML", "1.png\n2.png", "");
        row("entities that grow",
            "<!DOCTYPE a [<!ENTITY b \"xxxxxxxxxx\"><!ENTITY c \"&b;&b;&b;\">"
            "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">"
            "<!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">]>"
            "<avatars><avatar>&e;</avatar><avatar>1.png</avatar></avatars>",
            "");
        row("file of this computer",
            "<!DOCTYPE a [<!ENTITY f SYSTEM \"file:///etc/hostname\">]>"
            "<avatars><avatar>&f;</avatar></avatars>",
            "");
    }
    void listings()
    {
        QFETCH(QByteArray, xml);
        QTEST(SystemPictures::namesIn(xml).join(QLatin1Char(' ')), "names");
    }

    void noMoreThanOneLooksThrough()
    {
        QByteArray xml = "<avatars>";
        for (int i = 0; i < 5000; ++i)
            xml += "<avatar>" + QByteArray::number(i) + ".png</avatar>";
        QCOMPARE(SystemPictures::namesIn(xml + "</avatars>").size(), SystemPictures::Maximum);
    }

    void allAreThereInTheirOrder()
    {
        const QStringList names = SystemPictures::names();
        QVERIFY(names.size() >= 24);
        QCOMPARE(names.mid(0, 3), (QStringList{QStringLiteral("1.png"), QStringLiteral("2.png"),
                                               QStringLiteral("3.png")}));
    }

    // A picture in the current folder takes the place of one, not of all.
    void replacedOneByOne()
    {
        const QString before = QDir::currentPath();
        const QStringList all = SystemPictures::names();
        const QTemporaryDir folder;
        const QString own = folder.filePath(SystemPictures::path(all.first()));
        QVERIFY(QDir().mkpath(QFileInfo(own).path()));
        QVERIFY(QFile::copy(resourcePath(SystemPictures::path(all.first())), own));
        QDir::setCurrent(folder.path());
        const QStringList found = SystemPictures::names();
        QDir::setCurrent(before);
        QCOMPARE(found, all);
    }

    void chosenByPointerAndKeyboard()
    {
        SysAvatarTable table;
        table.setNames(SystemPictures::names().mid(0, 8));
        table.show();
        QCOMPARE(table.columnCount(), 6);
        QCOMPARE(table.rowCount(), 2);
        QSignalSpy chosen(&table, &SysAvatarTable::sysAvatar_clicked);
        const auto click = [&table](int row, int column) {
            QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier,
                              table.visualRect(table.model()->index(row, column)).center());
        };
        const auto newest = [&chosen] { return chosen.last().at(0).toString(); };
        click(0, 2);
        QCOMPARE(newest(), QStringLiteral("Resources/SystemAvatar/3.png"));
        QCOMPARE(chosen.last().at(1).value<QPixmap>().toImage(),
                 QPixmap(resourcePath(newest())).toImage());
        click(1, 4); // an empty cell
        QCOMPARE(chosen.size(), 1);
        table.setCurrentCell(0, 1);
        QTest::keyClick(&table, Qt::Key_Down);
        QCOMPARE(chosen.size(), 1);
        QTest::keyClick(&table, Qt::Key_Return);
        QCOMPARE(newest(), QStringLiteral("Resources/SystemAvatar/8.png"));
        QTest::keyClick(&table, Qt::Key_Left);
        QTest::keyClick(&table, Qt::Key_Space);
        QCOMPARE(newest(), QStringLiteral("Resources/SystemAvatar/7.png"));
        QCOMPARE(chosen.size(), 3);
    }
};

FRIENDUI_TEST(TstSystemPictures)
#include "tst_systempictures.moc"
