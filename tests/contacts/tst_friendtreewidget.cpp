// The friend tree fed by host events.
#include "common/clientpaths.h"
#include "common/settingsfile.h"
#include "contacts/assembly.h"
#include "contacts/friendwidget.h"
#include "plugin/frienduimessageprocess.h"
#include "tests/contacts/treefixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>
#include <QStackedLayout>

namespace {
const QString Anna = QStringLiteral("anna@corp.example");
const QString Bob = QStringLiteral("bob@corp.example");
const QString Stranger = QStringLiteral("stranger@corp.example");
const QString G1 = QStringLiteral("g1");
const QString G2 = QStringLiteral("g2");
const QString G9 = QStringLiteral("g9");

QString page(const TreeFixture &tree)
{
    return static_cast<QStackedLayout *>(tree.widget->layout())->currentWidget()->objectName();
}
} // namespace

class TstFriendTreeWidget : public QObject
{
    Q_OBJECT

private slots:
    void failures_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("line");
        const QString moveFailed = QString::fromUtf8("移动分组失败，请重试！");
        const QString groupFailed = QString::fromUtf8("重命名删除失败，请重试！");
        const QString noGroup = QString::fromUtf8("组名不存在");
        const auto row = [](const char *name, int code, const QByteArray &payload,
                            const QString &box, const char *line) {
            QTest::newRow(name) << code << payload << box << QString::fromUtf8(line);
        };
        row("move failed", 4121, FakeHost::encode(false, Anna, G1, G2, true), moveFailed, "");
        row("move of a stranger", 4121, FakeHost::encode(true, Stranger, G1, G2, true), QString(),
            ": :user not exist");
        row("move to the same group", 4121, FakeHost::encode(true, Anna, G1, G1, true), QString(),
            ": move group is same");
        row("move to an unknown group", 4121, FakeHost::encode(true, Anna, G1, G9, true), QString(),
            "g9");
        row("rename failed", 4134, FakeHost::encode(G1, QStringLiteral("New"), false, true),
            groupFailed, "");
        row("rename of an unknown group", 4134,
            FakeHost::encode(G9, QStringLiteral("New"), true, true), noGroup, ": 组名不存在");
        row("deletion failed", 4120, FakeHost::encode(false, G1, true), groupFailed, "");
        row("deletion of an unknown group", 4120, FakeHost::encode(true, G9, true), QString(),
            ": 删除的组不存在");
        row("creation failed", 4118, FakeHost::encode(G9, QStringLiteral("New"), false, true),
            QString(), "could not be created");
        row("deletion of a stranger", 4101, FakeHost::encode(Stranger, true), QString(),
            ":  entry fun FriendTreeWidget::delUser user not exist");
        row("empty contact list", 4115, FakeHost::encode(QList<FriendData>()), QString(),
            ": entry fun FriendTreeWidget::slot_addAllFriend()：listFriendData is 0");
        // Groups of the other side are no business of this tree.
        row("external: add", 4118, FakeHost::encode(G9, QStringLiteral("New"), true, false),
            QString(), "");
        row("external: all", 4119,
            FakeHost::encode(QList<GroupData>{{G9, QStringLiteral("New")}}, false), QString(), "");
        row("external: delete", 4120, FakeHost::encode(true, G1, false), QString(), "");
        row("external: delete failed", 4120, FakeHost::encode(false, G1, false), QString(), "");
        row("external: rename", 4134, FakeHost::encode(G1, QStringLiteral("New"), true, false),
            QString(), "");
        row("external: move", 4121, FakeHost::encode(true, Anna, G1, G2, false), QString(), "");
        row("external: move failed", 4121, FakeHost::encode(false, Anna, G1, G2, false), QString(),
            "");
    }

    void failures()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        QFETCH(QString, box);
        QFETCH(QString, line);
        TreeFixture tree;
        const QStringList before = tree.rows("g1") + tree.rows("g2");
        const int boxes = TipBox::count();
        const LogCapture log(tree.host.context);
        FakeHost::sendRaw(code, payload);
        QCOMPARE(TipBox::count() - boxes, box.isEmpty() ? 0 : 1);
        if (!box.isEmpty())
            QCOMPARE(TipBox::lastText(), box);
        if (!line.isEmpty())
            QCOMPARE(log.linesWith(line.toUtf8().constData()).size(), 1);
        QCOMPARE(tree.rows("g1") + tree.rows("g2"), before);
        QCOMPARE(tree.model->rowCount(), 2);
        QCOMPARE(tree.model->groupName(G1), QStringLiteral("Alpha"));
    }

    void addsContacts()
    {
        TreeFixture tree;
        tree.add(QStringLiteral("al"), QStringLiteral("al"));
        FakeHost::send(4114, jidOf(QStringLiteral("al")));
        QCOMPARE(tree.rows("g1"), QStringList({"me", "anna", "al", "bob", "carl"}));
        // Unknown to the host: what the jid tells, in the default group.
        FakeHost::send(4114, Stranger);
        QCOMPARE(tree.rows(""), QStringList({"stranger"}));
        // Who stands in the tree already keeps what is known.
        tree.host.context.contacts.clear();
        tree.widget->slot_updateFriendRemarkName(Anna, QStringLiteral("Ann"));
        FakeHost::send(4114, Anna);
        QCOMPARE(tree.contact("anna").data(FriendTreeRole::Name).toString(), QStringLiteral("Ann"));
        QCOMPARE(tree.model->groupOf(Anna), G1);
    }

    void updatesContacts()
    {
        TreeFixture tree;
        FakeHost::send(4101, Bob, true);
        QCOMPARE(tree.rows("g1"), QStringList({"me", "anna", "carl"}));
        VcardInfo profile;
        profile.nickName = QStringLiteral("zack");
        profile.sign = QStringLiteral("busy <b>");
        tree.widget->slot_updatefriend_new(Anna, profile);
        QCOMPARE(tree.contact("anna").data(FriendTreeRole::Name).toString(),
                 QStringLiteral("zack"));
        QCOMPARE(tree.contact("anna").data(FriendTreeRole::Sign).toString(),
                 QStringLiteral("busy <b>"));
        FakeHost::send(4748, Anna, QStringLiteral("remark"));
        QCOMPARE(tree.contact("anna").data(FriendTreeRole::Name).toString(),
                 QStringLiteral("remark"));
        FriendData record;
        tree.widget->getFriendDataFromItem(Anna, record);
        QCOMPARE(record.remark, QStringLiteral("remark"));
        QCOMPARE(record.groupName, QStringLiteral("Alpha"));
        const LogCapture log(tree.host.context);
        record.jid = QStringLiteral("unchanged");
        tree.widget->getFriendDataFromItem(Stranger, record);
        QCOMPARE(record.jid, QStringLiteral("unchanged"));
        QCOMPARE(log.linesWith(": user not exist").size(), 1);
        tree.widget->slot_updateFriendHead(Anna, QStringLiteral("/x.png"));
        QCOMPARE(tree.contact("anna").data(259).toString(), QStringLiteral("/x.png"));
    }

    void outsideContacts()
    {
        TreeFixture tree;
        FriendData outside = makeContact(QStringLiteral("out"), QStringLiteral("out"));
        outside.outside = 1;
        FakeHost::send(4115, QList<FriendData>{outside});
        QVERIFY(!tree.model->hasContact(outside.jid));
        tree.host.context.contacts[Bob].outside = 1;
        tree.widget->slot_updateOutsideFriendStatus(Bob);
        QVERIFY(!tree.model->hasContact(Bob));
        tree.widget->slot_updateOutsideFriendStatus(Anna);
        tree.widget->slot_updateOutsideFriendStatus(Stranger);
        QCOMPARE(tree.rows("g1"), QStringList({"me", "anna", "carl"}));
    }

    void groupsComeAndGo()
    {
        TreeFixture tree;
        FakeHost::send(4118, G9, QStringLiteral("Nine"), true, true);
        QVERIFY(tree.model->hasGroup(G9));
        FakeHost::send(4121, true, Anna, G1, G9, true);
        QCOMPARE(tree.rows("g9"), QStringList({"anna"}));
        FakeHost::send(4134, G9, QString::fromUtf8("常用联系人"), true, true);
        QCOMPARE(tree.model->frequentGroupId(), G9);
        // A rename to nothing changes nothing.
        FakeHost::send(4134, G9, QString(), true, true);
        QCOMPARE(tree.model->frequentGroupId(), G9);
        FakeHost::send(4120, true, G9, true);
        QCOMPARE(tree.rows(""), QStringList({"anna"}));
        FakeHost::send(4119, QList<GroupData>{{G1, QStringLiteral("Renamed")}}, true);
        QCOMPARE(tree.model->groupName(G1), QStringLiteral("Renamed"));
        QVERIFY(tree.model->hasGroup(G2));
    }

    void failedBatch()
    {
        TreeFixture tree;
        tree.add(QStringLiteral("u1"), QStringLiteral("<b>Bold</b>\nline"));
        QStringList uids{QStringLiteral("u1"), QStringLiteral("%1")};
        for (int i = 0; i < 5000; ++i)
            uids.append(QStringLiteral("more%1").arg(i));
        tree.host.context.profiles[jidOf(QStringLiteral("more0"))].nickName =
            QStringLiteral("Mora");
        const int boxes = TipBox::count();
        FakeHost::send(4166, QStringList()); // nobody
        QCOMPARE(TipBox::count(), boxes);
        FakeHost::send(4166, uids);
        QCOMPARE(TipBox::count(), boxes + 1);
        const QString text = TipBox::lastText();
        QVERIFY(text.contains(QStringLiteral("(5002): <b>Bold</b> line, %1, Mora, more1")));
        QVERIFY(text.contains(QStringLiteral("conatct")) &&
                text.contains(QStringLiteral("addfail")));
        QVERIFY(text.size() < 400);
    }

    void ownStatus()
    {
        TreeFixture tree;
        tree.host.context.presences.insert(jidOf(QStringLiteral("me")), makePresence(2));
        tree.widget->slot_myStatusChanged();
        QCOMPARE(tree.contact("me").data(260), QVariant(2));
        tree.host.context.profiles[jidOf(QStringLiteral("me"))].nickName = QStringLiteral("New Me");
        tree.widget->slot_updateMySelfInfo();
        QCOMPARE(tree.contact("me").data(257).toString(), QStringLiteral("New Me"));
        FakeHost::send(4355);
        QCOMPARE(tree.model->onlineCount(), 0);
    }

    void states()
    {
        TreeFixture tree(false);
        QCOMPARE(page(tree), QStringLiteral("friendsLoading"));
        FakeHost::send(4119, QList<GroupData>(), true);
        QCOMPARE(page(tree), QStringLiteral("friendsEmpty"));
        FakeHost::send(4119, QList<GroupData>{{G1, QStringLiteral("Alpha")}}, true);
        QCOMPARE(page(tree), QStringLiteral("FriendTreeView"));
        FakeHost::send(4120, true, G1, true);
        QCOMPARE(page(tree), QStringLiteral("friendsEmpty"));
        FakeHost::send(4114, Stranger);
        QCOMPARE(page(tree), QStringLiteral("FriendTreeView"));
    }

    void asksAtMostThreeTimes()
    {
        TreeFixture tree(false);
        // A host that fails at once, inside the request.
        tree.host.onRequest = [&tree](const FakeHost::Request &request) {
            if (request.code == Outbound::RefreshGroups && tree.host.requests.size() < 50)
                FakeHost::send(4500);
        };
        FakeHost::send(4500);
        QCOMPARE(tree.host.count(4356), 3);
        QCOMPARE(page(tree), QStringLiteral("friendsFailed"));
        QCOMPARE(std::get<0>(tree.host.arguments<bool>(4356)), true);

        tree.host.onRequest = nullptr;
        auto *retry = tree.widget->findChild<QAbstractButton *>(QStringLiteral("retry"));
        QVERIFY(retry);
        QTest::mouseClick(retry, Qt::LeftButton);
        QCOMPARE(tree.host.count(4356), 4);
        QCOMPARE(page(tree), QStringLiteral("friendsLoading"));
        FakeHost::send(4119, QList<GroupData>{{G1, QStringLiteral("Alpha")}}, true);
        QCOMPARE(page(tree), QStringLiteral("FriendTreeView"));
        FakeHost::send(4500);
        QCOMPARE(tree.host.count(4356), 5);
        // The tree stays while there is one.
        emit tree.view->signal_loadGroupTimeOut();
        QCOMPARE(page(tree), QStringLiteral("FriendTreeView"));
    }

    void offlineFromTheStart()
    {
        FakeHost host;
        host.context.user = QStringLiteral("me");
        host.context.addContact(makeContact(QStringLiteral("anna"), QStringLiteral("anna")));
        assemblePane();
        FriendUIMessageProcess *hub = FriendUIMessageProcess::instance();
        const std::unique_ptr<QWidget> pane(hub->getFriendWidget());
        auto *model = pane->findChild<FriendTreeModel *>();
        QVERIFY(model);
        FakeHost::send(4202, true);
        QVERIFY(model->hidesOffline());
        QVERIFY(!model->contactIndex(Anna).isValid());
        FakeHost::send(4202, false);
        QVERIFY(model->contactIndex(Anna).isValid());
    }

    void locatesHiddenContacts()
    {
        FakeHost host;
        host.context.user = QStringLiteral("me");
        host.context.innerGroups = {{G1, QStringLiteral("Alpha")}, {G2, QStringLiteral("Beta")}};
        host.context.addContact(makeContact(QStringLiteral("anna"), QStringLiteral("anna")));
        host.context.addContact(makeContact(QStringLiteral("bob"), QStringLiteral("bob"), G2));
        assemblePane();
        const std::unique_ptr<QWidget> owner(FriendUIMessageProcess::instance()->getFriendWidget());
        auto *pane = qobject_cast<FriendWidget *>(owner.get());
        QVERIFY(pane);
        pane->show();
        pane->raisePage(QStringLiteral("groupChat"));
        FakeHost::send(4202, true);
        FakeHost::send(4898, Bob);
        QCOMPARE(pane->currentPage(), QStringLiteral("friends"));
        auto *view = pane->findChild<FriendTreeView *>();
        QCOMPARE(view->currentIndex().data(FriendTreeRole::Id).toString(), Bob);
        QVERIFY(view->isExpanded(view->currentIndex().parent()));
        const LogCapture log(host.context);
        FakeHost::send(4898, Stranger);
        QCOMPARE(log.linesWith("there is no row of").size(), 1);
        QCOMPARE(view->currentIndex().data(FriendTreeRole::Id).toString(), Bob);
    }

    void firstGroupIsOpen()
    {
        TreeFixture tree(false);
        const auto add = [](const char *id, const char *name) {
            FakeHost::send(4118, QString::fromLatin1(id), QString::fromLatin1(name), true, true);
        };
        add("c", "Gamma");
        add("b", "Beta");
        add("a", "Alpha");
        TreeFixture::settle();
        QVERIFY(tree.view->isExpanded(tree.group("a")));
        QVERIFY(!tree.view->isExpanded(tree.group("b")));
        QVERIFY(!tree.view->isExpanded(tree.group("c")));
        // Later a new group opens nothing and closes nothing.
        FakeHost::send(4115, QList<FriendData>{makeContact(QStringLiteral("x"), QStringLiteral("x"),
                                                           QStringLiteral("a"))});
        add("0", "0");
        TreeFixture::settle();
        QVERIFY(tree.view->isExpanded(tree.group("a")));
        QVERIFY(!tree.view->isExpanded(tree.group("0")));
    }

    void keepsWhatIsOpen()
    {
        TreeFixture tree;
        tree.view->setExpanded(tree.group("g1"), false);
        tree.view->setExpanded(tree.group("g2"), true);
        FakeHost::send(4134, G2, QStringLiteral("<i>Delta</i>, %1"), true, true);
        tree.host.context.innerGroups[1].name = QStringLiteral("<i>Delta</i>, %1");
        const auto stored = [] {
            return SettingsFile(ClientPaths::userSettingsFile())
                .list(QStringLiteral("/friendTree/expandedGroups"));
        };
        QTRY_COMPARE(stored(), QStringList({QStringLiteral("<i>Delta</i>, %1")}));
        tree.make();
        QVERIFY(!tree.view->isExpanded(tree.group("g1")));
        QVERIFY(tree.view->isExpanded(tree.group("g2")));
        tree.widget->slot_setExpandContact(true);
        QTRY_COMPARE(stored().size(), 2);
        tree.make();
        QVERIFY(tree.view->isExpanded(tree.group("g1")));
        tree.widget->slot_setExpandContact(false);
        QTRY_COMPARE(stored().size(), 0);
        tree.make();
        QVERIFY(!tree.view->isExpanded(tree.group("g1")));
    }
};

FRIENDUI_TEST(TstFriendTreeWidget)
#include "tst_friendtreewidget.moc"
