#include "controls/skin.h"
#include "controls/skinmenu.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QTranslator>

class TstSkin : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { Skin::instance().setRecord(SysUIData()); }

    void readsColours_data()
    {
        const Rows<QString, QColor> row{"text", "color"};
        const QColor fallback(1, 2, 3);
        row("plain", "180,181,182", QColor(180, 181, 182));
        row("blanks", " 0 , 255 ,7", QColor(0, 255, 7));
        row("empty", "", fallback);
        row("two", "1,2", fallback);
        row("four", "1,2,3,4", fallback);
        row("too large", "256,0,0", fallback);
        row("huge", "99999999999999999999,0,0", fallback);
        row("negative", "-1,0,0", fallback);
        row("fraction", "1.5,0,0", fallback);
        row("a name", "red", fallback);
        row("a missing part", "1,,3", fallback);
        row("a style sheet", "1,2,3); color: red", fallback);
        row("very long", QString(100000, QLatin1Char(',')), fallback);
    }

    void readsColours()
    {
        QFETCH(QString, text);
        QFETCH(QColor, color);
        QCOMPARE(Skin::color(text, QColor(1, 2, 3)), color);
    }

    void separatorsCanBeSeen_data()
    {
        const Rows<QString> row{"skin"};
        row("light", QString());
        row("dark", QStringLiteral("dark"));
    }
    void separatorsCanBeSeen()
    {
        QFETCH(QString, skin);
        setSkin(skin);
        SkinMenu menu(QStringLiteral("menu"), nullptr);
        menu.addKey("one");
        QAction *separator = menu.addSeparator();
        menu.addKey("two");
        menu.resize(menu.sizeHint());
        const QImage picture = menu.grab().toImage();
        const QRect area = menu.actionGeometry(separator);
        QVERIFY(contrast(picture.pixelColor(area.center()), Skin::instance().colors().background) >
                1.5);
    }

    void followsTheHost()
    {
        Skin &skin = Skin::instance();
        QWidget widget;
        followSkin(&widget);
        const QSignalSpy changed(&skin, &Skin::changed);
        SysUIData record;
        record.skinName = QStringLiteral("Dark Blue");
        record.themeColor = QStringLiteral("10,20,30");
        record.textColor = QStringLiteral("nonsense");
        emit FriendUISignalSender::instance()->signal_SkinChange(record);
        QCOMPARE(changed.count(), 1);
        QVERIFY(skin.isDark());
        QCOMPARE(skin.colors().theme, QColor(10, 20, 30));
        QVERIFY(skin.colors().text.lightness() > 128);
        QCOMPARE(widget.palette().color(QPalette::Window), skin.colors().background);
        // A skin name of the host's own: its text colour tells.
        record.skinName = QStringLiteral("night");
        record.textColor = QStringLiteral("240,240,240");
        skin.setRecord(record);
        QVERIFY(skin.isDark());
        // What one record sets is forgotten with the next.
        skin.setRecord(SysUIData());
        QVERIFY(!skin.isDark());
        QVERIFY(skin.colors().theme != QColor(10, 20, 30));
        QVERIFY(widget.palette().color(QPalette::Window).lightness() > 128);
    }

    void menusFollowTheLanguage()
    {
        class Marker : public QTranslator
        {
        public:
            QString translate(const char *, const char *source, const char *, int) const override
            {
                return QLatin1Char('!') + QLatin1String(source);
            }
            bool isEmpty() const override { return false; }
        };
        QWidget window;
        SkinMenu menu(QStringLiteral("menu"), &window);
        const QAction *action = menu.addKey("sure");
        const SkinMenu *sub = menu.addSubMenu("moveToGroup");
        QAction *data = menu.addAction(QStringLiteral("R&&D")); // somebody's name
        QCOMPARE(menu.action("sure"), action);
        QVERIFY(!menu.action("none"));
        Marker marker;
        QCoreApplication::installTranslator(&marker);
        QCoreApplication::processEvents();
        QCOMPARE(action->text(), QStringLiteral("!sure"));
        QCOMPARE(sub->menuAction()->text(), QStringLiteral("!moveToGroup"));
        QCOMPARE(data->text(), QStringLiteral("R&&D"));
        QCoreApplication::removeTranslator(&marker);
        QCoreApplication::processEvents();
        QCOMPARE(action->text(), QStringLiteral("sure"));
    }
};

FRIENDUI_TEST(TstSkin)
#include "tst_skin.moc"
