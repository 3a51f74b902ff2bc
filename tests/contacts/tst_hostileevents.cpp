// The pane on screen under a flood of events, half of them well-formed and half
// spoiled, while a user goes on using it, page by page.
#include "common/localdatabase.h"
#include "contacts/latest/latestmodel.h"
#include "contacts/latest/latestroles.h"
#include "contacts/latest/mylatestfriendwidget.h"
#include "contacts/rooms/muclistview.h"
#include "controls/basedialog.h"
#include "controls/cardhover.h"
#include "controls/inputbox.h"
#include "controls/rowview.h"
#include "controls/searchbox.h"
#include "tests/contacts/panefixture.h"
#include "tests/plugin/samplepayload.h"
#include "tests/plugin/spoiledpayload.h"
#include "tests/support/testrunner.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

#include <limits>

namespace {

constexpr quint32 Seed = 20241031;
constexpr int EventsPerFrame = 100;
constexpr int FramesPerPane = 100; // then the host closes the window and opens it again

// Values that meet what the tree already shows often enough to change it.
class TreeValues : public SampleValues
{
public:
    explicit TreeValues(QRandomGenerator &random) : m_random(random) {}

    QString text() override
    {
        static const QStringList names = {
            QString(),
            QString::fromUtf8("张伟"),
            QString::fromUtf8("常用联系人"),
            QString::fromUtf8("我的好友"),
            QStringLiteral("<img src=/etc/passwd>&amp;\n%1"),
            QStringLiteral("../../'\";DROP"),
            QString(10000, QLatin1Char('x')),
            QString(200, QChar(0x0301)),
            QStringLiteral("a") + QChar(0xd800) + QChar(0) + QChar(0xdc00),
            QString::fromUtf8("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d\xe2\x80\xae x"),
            QStringLiteral("/dev/zero"),
            QStringLiteral("[{\"type\":\"audit\",\"vtId\":[[1]]}]"),
        };
        switch (m_random.bounded(8)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return jidOf(QStringLiteral("u%1").arg(m_random.bounded(24)));
        case 4:
        case 5:
            return QStringLiteral("g%1").arg(m_random.bounded(6));
        case 6:
            return QStringLiteral("me@corp.example");
        default:
            return names.at(m_random.bounded(names.size()));
        }
    }
    qint32 number() override
    {
        static const qint32 extremes[] = {-1, 262144, std::numeric_limits<qint32>::max(),
                                          std::numeric_limits<qint32>::min()};
        return m_random.bounded(20) ? m_random.bounded(4) : extremes[m_random.bounded(4)];
    }
    int size() override { return m_random.bounded(5); }

private:
    QRandomGenerator &m_random;
};

} // namespace

class TstHostileEvents : public QObject
{
    Q_OBJECT

private slots:
    void paneSurvivesTheFlood();

private:
    static void watchModels(PaneFixture &fixture);
    // What a user does between two frames, and closes again by the next.
    static void use(PaneFixture &fixture, TreeValues &values, QRandomGenerator &random);
    static void useList(RowView *list, QRandomGenerator &random);
    static void closeWhatIsOpen(const PaneFixture &fixture);
    static void stillWorks(PaneFixture &fixture);
};

void TstHostileEvents::closeWhatIsOpen(const PaneFixture &fixture)
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    const auto boxes = fixture.pane->findChildren<InputBox *>();
    for (InputBox *box : boxes)
        box->reject();
    // Cards and such, which the events open, too: each takes part in all that follows.
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (qobject_cast<BaseDialog *>(window))
            window->close();
    }
}

// With the tester's way of reporting that costs nothing as long as all is well.
void TstHostileEvents::watchModels(PaneFixture &fixture)
{
    fixture.tester.reset();
    const auto models = fixture.pane->findChildren<QAbstractItemModel *>();
    for (QAbstractItemModel *model : models)
        new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                     model);
}

void TstHostileEvents::useList(RowView *list, QRandomGenerator &random)
{
    static const int keys[] = {Qt::Key_Down, Qt::Key_Up,     Qt::Key_End,  Qt::Key_Return,
                               Qt::Key_F2,   Qt::Key_Delete, Qt::Key_Left, Qt::Key_Escape};
    const QPoint where(random.bounded(list->viewport()->width()),
                       random.bounded(list->viewport()->height()));
    switch (random.bounded(6)) {
    case 0: {
        QContextMenuEvent event(QContextMenuEvent::Mouse, where,
                                list->viewport()->mapToGlobal(where));
        QApplication::sendEvent(list->viewport(), &event);
        break;
    }
    case 1: // an action of the menu that another turn has opened
        if (const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            const QList<QAction *> actions = menu->actions();
            actions.at(random.bounded(actions.size()))->trigger();
        }
        break;
    case 2:
        QTest::mouseClick(list->viewport(), Qt::LeftButton,
                          random.bounded(2) ? Qt::ControlModifier : Qt::NoModifier, where);
        break;
    case 3:
        QTest::keyClicks(list, QStringLiteral("zh"));
        break;
    case 4: // a rest is due by the next frame
        QTest::mouseMove(list->viewport(), where);
        break;
    default:
        QTest::keyClick(list, Qt::Key(keys[random.bounded(8)]));
    }
}

void TstHostileEvents::use(PaneFixture &fixture, TreeValues &values, QRandomGenerator &random)
{
    static const char *const pages[] = {"friends",     "latestContact",   "groupChat",
                                        "customer",    "outsidefrd",      "serviceNumbers",
                                        "virtureteam", "organizationTree"};
    switch (random.bounded(16)) {
    case 0:
        fixture.pane->findChild<SearchBox *>()->setText(values.text());
        return;
    case 1:
    case 2:
        fixture.pane->raisePage(QLatin1String(pages[random.bounded(8)]));
        return;
    case 3:
        fixture.host.context.user = random.bounded(2) ? QStringLiteral("me") : values.text();
        FakeHost::send(Inbound::LoginChanged, true);
        return;
    case 4: {
        QEvent event(QEvent::LanguageChange);
        QApplication::sendEvent(qApp, &event);
        return;
    }
    case 5:
        LocalDatabase::instance().close();
        return;
    default:
        break;
    }
    const auto lists = fixture.pane->findChildren<RowView *>();
    for (RowView *list : lists) {
        if (list->isVisible()) {
            useList(list, random);
            return;
        }
    }
}

void TstHostileEvents::stillWorks(PaneFixture &fixture)
{
    closeWhatIsOpen(fixture);
    fixture.host.context.user = QStringLiteral("me");
    FakeHost::send(Inbound::LoginChanged, true);
    FakeHost::send(Inbound::HideOfflineInitialised, false);
    FakeHost::send(Inbound::GroupCreated, QStringLiteral("late"), QStringLiteral("Late"), true,
                   true);
    const FriendData anna =
        makeContact(QStringLiteral("anna"), QStringLiteral("Anna again"), QStringLiteral("late"));
    FakeHost::send(Inbound::ContactList, QList<FriendData>{anna});
    FakeHost::send(Inbound::PresenceChanged,
                   QMap<QString, PresenceData>{{anna.jid, makePresence(1)}});
    FakeHost::send(Inbound::RemarkChanged, anna.jid, QString());
    FakeHost::send(Inbound::LocateContact, anna.jid);
    PaneFixture::settle();
    const QModelIndex index = fixture.contact("anna");
    QCOMPARE(fixture.model->groupOf(anna.jid), QStringLiteral("late"));
    QCOMPARE(index.data(FriendTreeRole::Name).toString(), QStringLiteral("Anna again"));
    QCOMPARE(fixture.view->currentIndex(), index);
    QVERIFY(fixture.view->viewport()->rect().intersects(fixture.view->visualRect(index)));

    MessageData message;
    message.sessionJid = anna.jid;
    message.fromJid = anna.jid;
    message.body = QStringLiteral("late");
    FakeHost::send(Inbound::MessageReceived, true, message);
    MucData room;
    room.roomJid = QStringLiteral("late");
    FakeHost::send(Inbound::RoomAdded, room, true);
    PaneFixture::settle();
    const auto *latest = fixture.pane->findChild<MyLatestFriendWidget *>()->model();
    QTRY_COMPARE(latest->indexOf(anna.jid).data(LatestRole::Content).toString(), message.body);
    QVERIFY(fixture.pane->findChild<MucListView *>()->rooms()->find(room.roomJid));
}

void TstHostileEvents::paneSurvivesTheFlood()
{
    const QVector<EventInfo> events = inboundEvents();
    QRandomGenerator random(Seed);
    TreeValues values(random);
    PaneFixture fixture;
    watchModels(fixture);
    CardHover::instance().setTimes(0, 0);
    TipBox::setNextAnswers(TipBox::Sure);
    const int count = hostileEventCount();
    for (int i = 0; i < count; ++i) {
        const EventInfo &info = events.at(random.bounded(events.size()));
        QByteArray payload = samplePayload(info, values);
        if (random.bounded(2))
            payload = spoiledPayload(payload, random);
        FakeHost::sendRaw(info.code, payload);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QStringLiteral("event %1").arg(i)));
        if (i % EventsPerFrame > 0)
            continue;
        PaneFixture::settle();
        if (random.bounded(3) == 0)
            closeWhatIsOpen(fixture);
        use(fixture, values, random);
        if (i % (EventsPerFrame * FramesPerPane) > 0)
            continue;
        fixture.destroy();
        FakeHost::sendRaw(info.code, payload);
        fixture.make();
        watchModels(fixture);
    }
    stillWorks(fixture);
}

FRIENDUI_TEST(TstHostileEvents)
#include "tst_hostileevents.moc"
