// The host destroys the pane, at whatever moment.
#include "ExternalFriend/searchexternalfriend.h"
#include "contacts/friendcommands.h"
#include "controls/inputbox.h"
#include "controls/skinmenu.h"
#include "detail/avatar/editavatar.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/cservicenohistory.h"
#include "tests/contacts/panefixture.h"
#include "tests/support/testrunner.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

namespace {

const QString Anna = QStringLiteral("anna@corp.example");
const QString G1 = QStringLiteral("g1");

void rightClick(const PaneFixture &fixture, const QModelIndex &index)
{
    QWidget *viewport = fixture.view->viewport();
    const QPoint pos = fixture.view->visualRect(index).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, viewport->mapToGlobal(pos));
    QApplication::sendEvent(viewport, &event);
}

SkinMenu *openMenu()
{
    return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
}

void choose(QMenu *menu, QAction *action)
{
    QVERIFY(menu && action);
    const QPoint pos = menu->actionGeometry(action).center();
    QMouseEvent move(QEvent::MouseMove, pos, menu->mapToGlobal(pos), Qt::NoButton, {}, {});
    QApplication::sendEvent(menu, &move);
    QMouseEvent press(QEvent::MouseButtonPress, pos, menu->mapToGlobal(pos), Qt::LeftButton,
                      Qt::LeftButton, {});
    QApplication::sendEvent(menu, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, pos, menu->mapToGlobal(pos), Qt::LeftButton, {},
                        {});
    QApplication::sendEvent(menu, &release);
}

QPushButton *buttonOf(QDialog *box, const char *text)
{
    const auto buttons = box->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == QLatin1String(text))
            return button;
    }
    return nullptr;
}

void savePicture(const QString &file)
{
    QImage image(2000, 2000, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(file));
}

void showCard()
{
    FakeHost::send(Inbound::ShowContactCard, Anna, qint32(30), qint32(30), qint32(100), false);
}

void somebodyAsks(PaneFixture &f)
{
    const QString xena = QStringLiteral("xena@other.example");
    f.host.context.cooperation.insert(xena, false);
    FakeHost::send(Inbound::ContactRequested, xena, QStringLiteral("hello"), QString());
}

EditAvatar *editPicture(PaneFixture &f)
{
    f.host.context.profiles[QStringLiteral("me@corp.example")].nickName = QStringLiteral("Me");
    EditAvatar::edit(f.pane);
    return f.pane->findChild<EditAvatar *>();
}

struct Moment
{
    const char *name;
    void (*bringAbout)(PaneFixture &);
};

// What is under way when the host's window, and the pane in it, is deleted.
const Moment moments[] = {
    {"menu of a contact open", [](PaneFixture &f) { rightClick(f, f.contact("anna")); }},
    {"submenu open",
     [](PaneFixture &f) {
         rightClick(f, f.contact("anna"));
         SkinMenu *menu = openMenu();
         QVERIFY(menu);
         menu->setActiveAction(menu->findChild<SkinMenu *>()->menuAction());
         QTest::keyClick(menu, Qt::Key_Right);
     }},
    {"input box open", [](PaneFixture &f) { f.view->commands()->renameGroup(G1); }},
    {"input box with a refusal before it",
     [](PaneFixture &f) {
         f.view->commands()->createGroup();
         f.view->findChild<InputBox *>()->accept();
         QVERIFY(f.view->findChild<TipBox *>());
     }},
    {"confirmation open", [](PaneFixture &f) { f.view->commands()->deleteContact(Anna); }},
    {"box of a failed request open", [](PaneFixture &) { FakeHost::send(4120, false, G1, true); }},
    {"typing to find", [](PaneFixture &f) { QTest::keyClicks(f.view, QStringLiteral("an")); }},
    {"mouse button held down",
     [](PaneFixture &f) {
         QTest::mousePress(f.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                           f.view->visualRect(f.contact("bob")).center());
     }},
    {"batch taken in, layout due",
     [](PaneFixture &) {
         QList<FriendData> contacts;
         for (int i = 0; i < 3000; ++i)
             contacts.append(makeContact(QString::number(i), QString::number(i)));
         FakeHost::send(4115, contacts);
         FakeHost::send(4120, true, G1, true);
     }},
    {"pictures being decoded",
     [](PaneFixture &f) {
         const QString file = f.folder.filePath(QStringLiteral("head.png"));
         savePicture(file);
         FakeHost::send(Inbound::HeadChanged, Anna, file);
         f.pane->grab();
     }},
    {"groups asked for", [](PaneFixture &f) { f.view->slot_getGroupAgain(); }},
    {"card open", [](PaneFixture &) { showCard(); }},
    {"own picture being opened",
     [](PaneFixture &f) {
         const QString file = f.folder.filePath(QStringLiteral("own.png"));
         savePicture(file);
         editPicture(f)->loadLocalImage(file);
     }},
    {"history of a service number open",
     [](PaneFixture &f) {
         f.pane->raisePage(QStringLiteral("serviceNumbers"));
         CServiceNoHistory::showHistory(QStringLiteral("s1"), QString());
     }},
    {"external people searched",
     [](PaneFixture &f) {
         f.pane->raisePage(QStringLiteral("outsidefrd"));
         SearchExternalFriend::showSearch(f.pane);
         auto *search = f.pane->findChild<SearchExternalFriend *>();
         QTest::keyClicks(search->focusWidget(), QStringLiteral("xena"));
     }},
    {"somebody from outside asks", somebodyAsks},
};

// What the user does so that a request reaches the host, which closes its window
// before the request returns.
const Moment requests[] = {
    {"Return",
     [](PaneFixture &f) {
         f.select(f.contact("anna"));
         QTest::keyClick(f.view, Qt::Key_Return);
     }},
    {"double click",
     [](PaneFixture &f) {
         const QPoint pos = f.view->visualRect(f.contact("bob")).center();
         QMouseEvent event(QEvent::MouseButtonDblClick, pos, Qt::LeftButton, Qt::LeftButton, {});
         QApplication::sendEvent(f.view->viewport(), &event);
     }},
    {"menu of a contact",
     [](PaneFixture &f) {
         rightClick(f, f.contact("anna"));
         choose(openMenu(), openMenu()->action("invitechat"));
     }},
    {"mail, which has two listeners",
     [](PaneFixture &f) {
         rightClick(f, f.contact("anna"));
         choose(openMenu(), openMenu()->action("sendemail"));
     }},
    {"submenu",
     [](PaneFixture &f) {
         rightClick(f, f.contact("anna"));
         SkinMenu *menu = openMenu();
         auto *groups = menu->findChild<SkinMenu *>();
         menu->setActiveAction(groups->menuAction());
         QTest::keyClick(menu, Qt::Key_Right);
         choose(groups, groups->actions().last());
     }},
    {"menu of a group",
     [](PaneFixture &f) {
         f.view->slot_contextMenu(f.view->visualRect(f.model->groupIndex(G1)).center());
         choose(openMenu(), openMenu()->action("createMuc"));
     }},
    {"input box",
     [](PaneFixture &f) {
         f.view->commands()->createGroup();
         auto *box = f.view->findChild<InputBox *>();
         box->setTextValue(QStringLiteral("New"));
         QTest::keyClick(box->findChild<QLineEdit *>(), Qt::Key_Return);
     }},
    {"confirmation",
     [](PaneFixture &f) {
         f.view->commands()->deleteContact(Anna);
         auto *box = f.view->findChild<TipBox *>();
         QTest::mouseClick(buttonOf(box, "sure"), Qt::LeftButton);
     }},
    {"the first of several moves",
     [](PaneFixture &f) {
         f.view->commands()->moveContacts({Anna, jidOf(QStringLiteral("bob"))},
                                          QStringLiteral("g2"));
     }},
    {"refresh", [](PaneFixture &f) { f.view->slot_getGroupAgain(); }},
    {"groups that the host failed to list", [](PaneFixture &) { FakeHost::send(4500); }},
    {"card", [](PaneFixture &) { showCard(); }},
    {"somebody from outside asks", somebodyAsks},
    {"own picture",
     [](PaneFixture &f) {
         EditAvatar *dialog = editPicture(f);
         dialog->slot_showSysAvatar(QStringLiteral("1.png"), QPixmap());
         dialog->slot_SaveBtnclicked();
     }},
};

template <size_t N> void addMoments(const Moment (&list)[N])
{
    QTest::addColumn<int>("row");
    for (size_t i = 0; i < N; ++i)
        QTest::newRow(list[i].name) << int(i);
}

int visibleWindows()
{
    int count = 0;
    const auto widgets = QApplication::topLevelWidgets();
    for (const QWidget *widget : widgets)
        count += widget->isVisible() ? 1 : 0;
    return count;
}

// Nothing is left behind, events find no pane, and the next pane works.
void checkAfterwards(PaneFixture &fixture)
{
    QVERIFY(!fixture.pane);
    QVERIFY(!FriendUIMessageProcess::instance()->hasPane());
    QCOMPARE(visibleWindows(), 0);
    FakeHost::send(4114, Anna);
    FakeHost::send(4898, Anna);
    FakeHost::send(4202, true);
    PaneFixture::settle();
    fixture.make();
    FakeHost::send(4117, QMap<QString, PresenceData>{{Anna, makePresence(1)}});
    QCOMPARE(fixture.contact("anna").data(FriendTreeRole::Presence).toInt(), 1);
    QVERIFY(!fixture.view->visualRect(fixture.contact("anna")).isEmpty());
}

} // namespace

class TstPaneDestroyed : public QObject
{
    Q_OBJECT

private slots:
    void betweenTwoEvents_data() { addMoments(moments); }

    void betweenTwoEvents()
    {
        QFETCH(int, row);
        PaneFixture fixture;
        moments[row].bringAbout(fixture);
        fixture.destroy();
        PaneFixture::settle();
        checkAfterwards(fixture);
    }

    void insideARequest_data() { addMoments(requests); }

    void insideARequest()
    {
        QFETCH(int, row);
        PaneFixture fixture;
        fixture.host.onRequest = [&fixture](const FakeHost::Request &) { fixture.destroy(); };
        requests[row].bringAbout(fixture);
        QCOMPARE(fixture.host.requests.size(), 1);
        PaneFixture::settle();
        checkAfterwards(fixture);
    }

    void amidPostedEvents()
    {
        PaneFixture fixture;
        QObject *receiver = FriendUIMessageProcess::instance();
        const auto post = [receiver](qint32 code, const QByteArray &payload) {
            QCoreApplication::postEvent(
                receiver,
                new BaseEvent(code, payload, QString(), QString::fromLatin1(PluginId::FriendUi)));
        };
        post(4119, FakeHost::encode(QList<GroupData>{{G1, QStringLiteral("Renamed")}}, true));
        post(4115, FakeHost::encode(QList<FriendData>{
                       makeContact(QStringLiteral("eva"), QStringLiteral("eva"))}));
        fixture.tester.reset();
        fixture.pane->deleteLater();
        post(4117, FakeHost::encode(QMap<QString, PresenceData>{{Anna, makePresence(1)}}));
        post(4120, FakeHost::encode(true, G1, true));
        post(4898, FakeHost::encode(Anna));
        PaneFixture::settle();
        checkAfterwards(fixture);
    }
};

FRIENDUI_TEST(TstPaneDestroyed)
#include "tst_panedestroyed.moc"
