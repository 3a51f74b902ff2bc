// The list of channels under mouse and keys.
#include "tests/servicenum/channelfixture.h"
#include "tests/support/testrunner.h"

namespace {
const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");
const QString C = QStringLiteral("c");

void tellOf(const char *what, const QString &id)
{
    auto *hub = FriendUISignalSender::instance();
    MessageData message;
    message.sessionJid = id;
    message.kind = MessageData::Channel;
    QString jid = id;
    QString content, time;
    if (qstrcmp(what, "received") == 0)
        emit hub->signal_latestFriend(true, message);
    else if (qstrcmp(what, "sent") == 0)
        emit hub->signal_latestFriend(false, message);
    else if (qstrcmp(what, "opened") == 0)
        emit hub->signal_paintDelegateMsgCount(id);
    else
        emit hub->signal_updateLatestContact(jid, content, time);
}
} // namespace

class TstChannelList : public QObject
{
    Q_OBJECT

private slots:
    void delivered()
    {
        ChannelFixture f;
        f.deliver(B);
        f.deliver(A);
        f.deliver(QString());
        f.deliver(f.channel(B, QStringLiteral("renamed")));
        QCOMPARE(f.rows(), QStringLiteral("b a"));
        QCOMPARE(f.row(B).data(ChannelRole::Name).toString(), QStringLiteral("renamed"));
        FakeHost::send(Inbound::ChannelRemoved, B);
        FakeHost::send(Inbound::ChannelRemoved, B);
        QCOMPARE(f.rows(), QStringLiteral("a"));
    }

    void pinned_data()
    {
        const Rows<QString, QString> row{"done", "rows"}; // +: pinned, -: unpinned
        row("nothing", "", "a b c");
        row("one", "+b", "B a c");
        row("the newest on top", "+b +c", "C B a");
        row("all", "+c +b +a", "A B C");
        row("back where it came from", "+c +b -c", "B a c");
        row("the newest of three gone", "+a +b +c -c", "B A c");
        row("the one between", "+a +b +c -b", "C A b");
        row("pinned again", "+a +b -a +a", "A B c");
        row("the last one", "+a -a", "a b c");
    }

    void pinned()
    {
        QFETCH(QString, done);
        QFETCH(QString, rows);
        ChannelFixture f({A, B, C});
        const QStringList steps = done.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &step : steps)
            f.setPinned(step.mid(1), step.startsWith(QLatin1Char('+')));
        QCOMPARE(f.rows(), rows);
    }

    void tellsOfPins()
    {
        ChannelFixture f({A, B});
        QVector<QList<QString>> told;
        connect(f.list, &CCustomerServerListView::signal_TopChannelIDListChanged, this,
                [&](const QList<QString> &ids) { told.append(ids); });
        f.setPinned(A, true);
        f.setPinned(B, true);
        f.setPinned(A, false);
        f.setPinned(B, false);
        QCOMPARE(told, (QVector<QList<QString>>{{A}, {B, A}, {B}, {}}));
    }

    void opens_data()
    {
        const Rows<QString, int> row{"how", "times"};
        row("click", "click", 1);
        row("double click", "double", 1);
        row("Enter", "enter", 1);
        row("menu", "menu", 1);
        row("right button", "right", 0);
        row("let go over another row", "slide", 0);
        row("beside the rows", "beside", 0);
    }

    void opens()
    {
        QFETCH(QString, how);
        QFETCH(int, times);
        ChannelFixture f({A, B});
        const LogCapture log(f.host.context);
        act(&f, how);
        QCOMPARE(f.host.count(Outbound::OpenChat), times);
        QCOMPARE(log.linesWith("selected is null").size(), how == QLatin1String("beside") ? 1 : 0);
        if (times > 0) {
            const auto [id, kind] = f.host.arguments<QString, qint32>(Outbound::OpenChat);
            QCOMPARE(id, B);
            QCOMPARE(kind, qint32(MessageData::Channel));
        }
    }

    // The host may take the pane away in answer to any request.
    void destroyedInARequest_data()
    {
        const Rows<QString> row{"how"};
        for (const char *how : {"click", "double", "enter", "menu"})
            row(how, QString::fromLatin1(how));
    }

    void destroyedInARequest()
    {
        QFETCH(QString, how);
        ChannelFixture f({A, B});
        f.host.onRequest = [&f](const FakeHost::Request &) {
            f.tester.reset();
            delete f.page;
        };
        act(&f, how);
        QVERIFY(!f.page);
        f.settle();
    }

    void menuOfARow_data()
    {
        const Rows<QString, bool, QString> row{"id", "isPinned", "keys"};
        row("not pinned", "x", false, "sendCustomerMessage toTopCustomer");
        row("pinned", "x", true, "sendCustomerMessage cancelGroupToppest");
        // It could not be told apart from two.
        row("an id with a comma", "x,y", false, "sendCustomerMessage");
    }

    void menuOfARow()
    {
        QFETCH(QString, id);
        QFETCH(bool, isPinned);
        QFETCH(QString, keys);
        ChannelFixture f({A, id});
        if (isPinned)
            f.setPinned(id, true);
        const SkinMenu *menu = f.openMenu(id);
        QVERIFY(menu);
        QStringList shown;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible())
                shown.append(action->objectName());
        }
        QCOMPARE(shown.join(QLatin1Char(' ')), keys);
    }

    void menuKey()
    {
        ChannelFixture f({A, B});
        QVERIFY(f.list->locate(B));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
        QApplication::sendEvent(f.list->viewport(), &event);
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(f.rows(), QStringLiteral("B a"));
    }

    void removedWhileItsMenuIsOpen()
    {
        ChannelFixture f({A, B});
        const QPointer<SkinMenu> menu = f.openMenu(A);
        QVERIFY(menu);
        FakeHost::send(Inbound::ChannelRemoved, B);
        QVERIFY(menu->isVisible());
        FakeHost::send(Inbound::ChannelRemoved, A);
        QVERIFY(!menu->isVisible());
        // A click that was under way when the menu closed.
        const LogCapture log(f.host.context);
        for (QAction *action : menu->actions())
            action->trigger();
        QVERIFY(f.host.requests.isEmpty());
        QCOMPARE(f.model->pins(), QStringList());
        QCOMPARE(log.linesWith("selected is null").size(), menu->actions().size());
    }

    // Rows that the user has not asked to move stay under the pointer.
    void orderUnderThePointer()
    {
        ChannelFixture f({A, B});
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(f.list->viewport(), &enter);
        f.model->setPins({B});
        QCOMPARE(f.rows(), QStringLiteral("a B"));
        f.setPinned(A, true);
        QCOMPARE(f.rows(), QStringLiteral("A B"));
        f.deliver(C);
        QCOMPARE(f.rows(), QStringLiteral("A B"));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(f.list->viewport(), &leave);
        QCOMPARE(f.rows(), QStringLiteral("A B c"));
    }

    void unread_data()
    {
        const Rows<QString, int> row{"events", "unread"};
        row("received", "received received", 2);
        row("answered", "received received sent", 0);
        row("opened", "received opened", 0);
        row("read", "received read", 0);
        row("after that", "received read received", 1);
    }

    void unread()
    {
        QFETCH(QString, events);
        QFETCH(int, unread);
        ChannelFixture f({A, B});
        const QStringList all = events.split(QLatin1Char(' '));
        for (const QString &event : all)
            tellOf(event.toLatin1().constData(), A);
        tellOf("received", QStringLiteral("unknown"));
        QCOMPARE(f.row(A).data(ChannelRole::Unread).toInt(), unread);
        QCOMPARE(f.row(B).data(ChannelRole::Unread).toInt(), 0);
        const QString spoken = f.row(A).data(Qt::AccessibleTextRole).toString();
        QCOMPARE(spoken.contains(QLatin1String("channelUnread")), unread > 0);
    }

    // As the list of latest contacts has counted them before.
    void unreadOfAnEarlierSession()
    {
        ChannelFixture f;
        QVERIFY(LocalDatabase::instance().run(
            QStringLiteral("INSERT INTO latestunread (jid, unread) VALUES (?, ?)"), {A, 3},
            "test"));
        f.deliver(A);
        f.deliver(B);
        tellOf("received", A);
        QCOMPARE(f.row(A).data(ChannelRole::Unread).toInt(), 4);
        QCOMPARE(f.row(B).data(ChannelRole::Unread).toInt(), 0);
    }

    void pictures()
    {
        ChannelFixture f;
        const auto pictureOf = [&f](const QString &id) {
            return f.row(id).data(ChannelRole::Picture).toString();
        };
        f.host.context.headPaths = {{A, QStringLiteral("/a.png")},
                                    {QStringLiteral("photo"), QStringLiteral("/p.png")}};
        CSChannelData withPhoto = f.channel(B);
        withPhoto.photoName = QStringLiteral("photo");
        f.deliver(A);
        f.deliver(withPhoto);
        QCOMPARE(pictureOf(A), QStringLiteral("/a.png"));
        QCOMPARE(pictureOf(B), QStringLiteral("/p.png"));
        FakeHost::send(Inbound::ChannelHeadChanged, B, QStringLiteral("/new.png"));
        FakeHost::send(Inbound::ChannelHeadChanged, C, QStringLiteral("/none.png"));
        QCOMPARE(pictureOf(B), QStringLiteral("/new.png"));
        QCOMPARE(f.rows(), QStringLiteral("a b"));
    }

    void hostileTexts()
    {
        ChannelFixture f;
        CSChannelData data = f.channel(A, QStringLiteral(u"<img src=x>\u202egnp\n&x"));
        data.workgroups.clear();
        for (int i = 0; i < 5000; ++i)
            data.workgroups.append(QStringLiteral("<b>\n") + QString(100, QLatin1Char('g')));
        f.deliver(data);
        f.deliver(f.channel(B, QString(10000, QLatin1Char('n'))));
        f.deliver(f.channel(C, QStringLiteral("\n\t ")));
        QCOMPARE(f.row(A).data(ChannelRole::Name).toString(), QStringLiteral("<img src=x>gnp &x"));
        QVERIFY(f.row(A).data(ChannelRole::Second).toString().size() < 2000);
        QVERIFY(f.row(A)
                    .data(Qt::ToolTipRole)
                    .toString()
                    .startsWith(QLatin1String("<qt>&lt;img src=x&gt;")));
        QCOMPARE(f.row(B).data(ChannelRole::Name).toString().size(), 64);
        QCOMPARE(f.row(C).data(ChannelRole::Name).toString(), C);
        f.list->viewport()->grab();
    }

private:
    // Does something to the row of B, or to where it says.
    static void act(ChannelFixture *f, const QString &how)
    {
        QWidget *viewport = f->list->viewport();
        const QPoint pos = f->middle(B);
        if (how == QLatin1String("click")) {
            QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
        } else if (how == QLatin1String("double")) {
            const QPointer<QWidget> alive(viewport);
            QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
            if (alive)
                QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
        } else if (how == QLatin1String("enter")) {
            QVERIFY(f->list->locate(B));
            QTest::keyClick(f->list, Qt::Key_Return);
        } else if (how == QLatin1String("menu")) {
            f->choose(f->openMenu(B), "sendCustomerMessage");
        } else if (how == QLatin1String("right")) {
            QTest::mouseClick(viewport, Qt::RightButton, Qt::NoModifier, pos);
        } else if (how == QLatin1String("slide")) {
            QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, f->middle(A));
            QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, pos);
        } else if (how == QLatin1String("beside")) {
            QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(20, 400));
        }
    }
};

FRIENDUI_TEST(TstChannelList)
#include "tst_channellist.moc"
