// How the page of virtual teams looks: every state in both skins and languages, as
// narrow as the pane can be.
#include "controls/rowpainter.h"
#include "tests/support/looks.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teampagefixture.h"
#include "virtualteam/waitwgt.h"

#include <QLabel>

class TstTeamPageLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QString()); }

    void states_data()
    {
        const Rows<QString, QString, QString> row{"state", "skin", "language"};
        for (const char *state : {"loading", "failed", "empty", "list", "stale", "hits",
                                  "someFailed", "searching", "nothing", "offline"}) {
            for (const char *skin : {"", "dark"}) {
                for (const char *language : {"zh_CN", "en"}) {
                    const QByteArray name =
                        QByteArray(state) + '-' + (*skin ? skin : "light") + '-' + language;
                    row(name.constData(), QLatin1String(state), QLatin1String(skin),
                        QLatin1String(language));
                }
            }
        }
    }
    // Nothing is cut off, and what is to be read can be read.
    void states()
    {
        QFETCH(QString, state);
        QFETCH(QString, skin);
        QFETCH(QString, language);
        const Language translated(language);
        setSkin(skin);
        TeamPageFixture f({QStringLiteral("1"), QStringLiteral("2")});
        bring(f, state);
        for (const QLabel *label : f.page->findChildren<QLabel *>()) {
            if (!label->isVisible() || label->text().isEmpty())
                continue;
            QTRY_VERIFY2(label->heightForWidth(label->width()) <= label->height(),
                         qPrintable(label->text()));
            QVERIFY(f.page->rect().contains(
                QRect(label->mapTo(f.page.get(), QPoint()), label->size())));
            const QPalette palette = label->palette();
            QVERIFY(contrast(palette.color(label->foregroundRole()),
                             Skin::instance().colors().background) >= 3);
        }
        for (const QPushButton *button : f.page->findChildren<QPushButton *>()) {
            QVERIFY2(button->width() >= button->sizeHint().width() || !button->isVisible(),
                     qPrintable(button->text()));
            QVERIFY(!button->accessibleName().isEmpty() || !button->text().isEmpty());
        }
        keepPicture(f.page->grab().toImage(),
                    QStringLiteral("teampage-") + QLatin1String(QTest::currentDataTag()));
    }

private:
    static void bring(TeamPageFixture &f, const QString &state)
    {
        if (state == QLatin1String("loading"))
            f.hold("getAllVirtualTeam");
        else if (state == QLatin1String("failed"))
            f.fail("getAllVirtualTeam");
        else if (state == QLatin1String("empty"))
            f.setTeams({});
        f.setHits(QStringLiteral("1"),
                  {R"({"userId":"u000001","nickName":"小王","name":"王小明",)"
                   R"("companyName":"北方科技有限公司","mobile":"13800001234",)"
                   R"("presence":{"av":true,"show":"chat","pt":"pc"}})",
                   R"({"userId":"u000002","nickName":"Wang Wei","duty":"Tester",)"
                   R"("companyName":"A company with a very long name indeed Ltd."})"});
        f.show();
        if (state == QLatin1String("loading"))
            return;
        QTRY_VERIFY(f.refresh->isEnabled());
        if (state == QLatin1String("stale")) {
            f.fail("getAllVirtualTeam");
            QTest::mouseClick(f.refresh, Qt::LeftButton);
            QTRY_VERIFY(f.visible<QPushButton>("noticeRetry"));
        }
        search(f, state);
    }
    static void search(TeamPageFixture &f, const QString &state)
    {
        if (state == QLatin1String("searching"))
            f.hold("fuzzySearchVirtualTeamMember");
        else if (state == QLatin1String("someFailed"))
            f.setSpecial([](const FakeRequest &request, FakeReply *answer) {
                *answer = FakeReply::of(500);
                return TeamPageFixture::value(request, "vtId") == QLatin1String("2");
            });
        else if (state == QLatin1String("nothing"))
            f.setHits(QStringLiteral("1"), {});
        else if (state == QLatin1String("offline"))
            f.setOnline(false);
        else if (state != QLatin1String("hits"))
            return;
        f.box->setFocus();
        f.box->setText(QStringLiteral("138"));
        if (state == QLatin1String("hits"))
            QTRY_COMPARE(f.list->model()->rowCount(), 2);
        else if (state == QLatin1String("someFailed"))
            QTRY_VERIFY(f.visible<QPushButton>("noticeRetry"));
        else if (state == QLatin1String("nothing"))
            QTRY_VERIFY(f.visible<QWidget>("searchNothing"));
        QCoreApplication::processEvents();
    }
};

FRIENDUI_TEST(TstTeamPageLook)
#include "tst_teampagelook.moc"
