// How the windows about external contacts look in each skin, language and ratio, also
// with texts that nobody expects.
#include "ExternalFriend/searchexternalfriend.h"
#include "controls/searchbox.h"
#include "tests/external/externalfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QApplication>
#include <QTreeView>

namespace {
using F = ExternalFixture;

SearchFriendResultData person(const char *user, const char *name, const char *company)
{
    SearchFriendResultData one;
    one.jid = QString::fromUtf8(user) + QStringLiteral("@other.example");
    one.nickName = QString::fromUtf8(name);
    one.companyName = QString::fromUtf8(company);
    return one;
}

const char *const LongName =
    "A name that goes on and on and on, far beyond what any window has room for \u202e<b>x</b>";

bool holdsItsParts(const QWidget *window)
{
    for (const QWidget *part : window->findChildren<QWidget *>()) {
        if (!part->isVisible() || part->parentWidget() != window)
            continue;
        if (!window->rect().contains(part->geometry()))
            return false;
    }
    return true;
}
} // namespace

class TstExternalRequestLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void requestWindow_data() { addLooks({1.0, 2.0}); }

    void requestWindow()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        F f;
        const Language translated(language);
        setSkin(skin);
        const QString name = QString::fromLatin1(QTest::currentDataTag()).replace(' ', '-');
        f.manager()->openDialog(person("eve", "王伊芙", "星河科技（上海）有限公司"));
        AddExternalFriend *window = f.dialog();
        const auto keep = [&](const char *state) {
            F::settle();
            QVERIFY(holdsItsParts(window));
            keepPicture(pictureOf(window, ratio),
                        QStringLiteral("external-%1-%2").arg(QLatin1String(state), name));
        };
        window->findChild<ValidationEdit *>()->setPlainText(QString::fromUtf8("上周展会上见过"));
        keep("request");
        f.click(window, "btnSend");
        keep("waiting");
        f.answer(true, 0, 0);
        keep("sent");
        f.ask(QString::fromUtf8("我是星河科技的王伊芙"));
        keep("asked");
        f.click(window, "btnConfirm");
        f.answer(false, 10003, 1);
        keep("expired");
        f.makeContact();
        keep("added");
        // Texts are told from the ground they stand on.
        const auto *label = window->findChild<QLabel *>(QStringLiteral("lblName"));
        QVERIFY(contrast(label->palette().color(QPalette::WindowText),
                         Skin::instance().colors().background) >= 4.5);
    }

    void longTextsStayInside()
    {
        F f;
        f.manager()->openDialog(person("eve", LongName, LongName));
        AddExternalFriend *window = f.dialog();
        QCOMPARE(window->width(), 400);
        QVERIFY(holdsItsParts(window));
        f.ask(QString::fromUtf8(LongName).repeated(20));
        F::settle();
        QCOMPARE(window->width(), 400);
        QVERIFY(holdsItsParts(window));
        QVERIFY(window->height() < 500);
        keepPicture(pictureOf(window, 1), QStringLiteral("external-long"));
    }

    void searchWindow_data() { addLooks({1.0, 2.0}); }

    void searchWindow()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        F f;
        const Language translated(language);
        setSkin(skin);
        const QString name = QString::fromLatin1(QTest::currentDataTag()).replace(' ', '-');
        SearchExternalFriend::showSearch(nullptr);
        QWidget *window = nullptr;
        for (QWidget *top : QApplication::topLevelWidgets()) {
            if (qobject_cast<SearchExternalFriend *>(top))
                window = top;
        }
        QVERIFY(window);
        const auto keep = [&](const char *state) {
            F::settle();
            QVERIFY(holdsItsParts(window));
            keepPicture(pictureOf(window, ratio),
                        QStringLiteral("external-search-%1-%2").arg(QLatin1String(state), name));
        };
        keep("hint");
        auto *box = window->findChild<SearchBox *>();
        box->setText(QStringLiteral("ev"));
        QTest::keyClick(box, Qt::Key_Return);
        f.makeContact();
        FakeHost::send(Inbound::PeopleFound,
                       QList<SearchFriendResultData>{
                           person("eve", "王伊芙 Eve", "星河科技（上海）有限公司"),
                           person("eva", "Eva Stein", "North Wind"),
                           person("evan", LongName, LongName), person("ev", "Ev", "")},
                       4);
        auto *list = window->findChild<QTreeView *>();
        list->setCurrentIndex(list->model()->index(1, 0));
        keep("hits");
    }
};

FRIENDUI_TEST(TstExternalRequestLook)

#include "tst_externalrequestlook.moc"
