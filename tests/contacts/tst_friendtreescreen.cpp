// What the friend tree looks like while things happen: nothing jumps, nothing is
// rich text, nothing grows without bounds.
#include "contacts/friendtreedelegate.h"
#include "tests/contacts/treefixture.h"
#include "tests/support/testrunner.h"

#include <QAccessible>
#include <QLabel>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTranslator>

namespace {

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *watched) { watched->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

// Marks every text that went through tr().
class Marker : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QLatin1String("T:") + QLatin1String(source);
    }
    bool isEmpty() const override { return false; }
};

struct ViewAccess : FriendTreeView
{
    using FriendTreeView::viewportEvent;
};

void pointerOver(FriendTreeView *view, bool over)
{
    QEvent leave(QEvent::Leave);
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    (view->*&ViewAccess::viewportEvent)(over ? &enter : &leave);
}

QMap<QString, PresenceData> presenceOf(int first, int last, int pcShow)
{
    QMap<QString, PresenceData> map;
    for (int i = first; i < last; ++i)
        map.insert(jidOf(QStringLiteral("u%1").arg(i, 4, 10, QLatin1Char('0'))),
                   makePresence(pcShow));
    return map;
}

QString topRow(const FriendTreeView *view)
{
    return view->indexAt(QPoint(5, 1)).data(FriendTreeRole::Id).toString();
}

} // namespace

class TstFriendTreeScreen : public QObject
{
    Q_OBJECT

private slots:
    void floodMovesNothing_data()
    {
        const Rows<bool> row{"single"};
        row("one event each", true);
        row("one event for all", false);
    }

    // The row at the top stays at the top, whoever moves above it; what is selected
    // and open stays so.
    void floodMovesNothing()
    {
        QFETCH(bool, single);
        const TreeFixture tree;
        tree.model->mergeContacts({makeContact(QStringLiteral("x"), QStringLiteral("n0500x"))});
        TreeFixture &filled = const_cast<TreeFixture &>(tree);
        filled.tester.reset(); // walks all rows at every signal
        filled.addMany(1000);
        tree.select(tree.contact("u0500"));
        tree.view->scrollTo(tree.contact("u0500"), QAbstractItemView::PositionAtTop);
        TreeFixture::settle();
        const QString top = topRow(tree.view);
        QCOMPARE(top, jidOf(QStringLiteral("u0500")));
        const int y = tree.view->visualRect(tree.contact("u0500")).top();
        // A third of those above come online and those below go on top of them.
        const auto above = presenceOf(600, 700, 1);
        if (single) {
            for (auto at = above.constBegin(); at != above.constEnd(); ++at) {
                FakeHost::send(4117, QMap<QString, PresenceData>{{at.key(), at.value()}});
                if (QRandomGenerator::global()->bounded(10) == 0)
                    TreeFixture::settle();
            }
        } else {
            FakeHost::send(4117, above);
        }
        FakeHost::send(4101, jidOf(QStringLiteral("u0100")), true);
        TreeFixture::settle();
        QCOMPARE(topRow(tree.view), top);
        QCOMPARE(tree.view->visualRect(tree.contact("u0500")).top(), y);
        QCOMPARE(tree.view->currentIndex(), tree.contact("u0500"));
        // A refresh with all the contacts, and the row at the top goes away itself.
        FakeHost::send(4119, QList<GroupData>{{QStringLiteral("g1"), QStringLiteral("Alpha")}},
                       true);
        filled.addMany(1000);
        QCOMPARE(topRow(tree.view), top);
        const int below = tree.view->visualRect(tree.contact("x")).top();
        FakeHost::send(4101, jidOf(QStringLiteral("u0500")), true);
        TreeFixture::settle();
        QCOMPARE(tree.view->visualRect(tree.contact("x")).top(), below);
        QVERIFY(tree.view->isExpanded(tree.group("g1")));
        QVERIFY(!tree.view->isExpanded(tree.group("g2")));
    }

    // A change in a closed group is not laid out; it must not scroll back later.
    void collapsedGroupsDoNotScroll()
    {
        TreeFixture tree;
        tree.tester.reset();
        tree.addMany(300);
        tree.view->verticalScrollBar()->setValue(4000);
        FakeHost::send(4115,
                       QList<FriendData>{makeContact(QStringLiteral("eve"), QStringLiteral("eve"),
                                                     QStringLiteral("g2"))});
        TreeFixture::settle();
        tree.view->verticalScrollBar()->setValue(900);
        const QString top = topRow(tree.view);
        FakeHost::send(4101, jidOf(QStringLiteral("u0299")), true);
        TreeFixture::settle();
        QCOMPARE(topRow(tree.view), top);
    }

    void keepsWhatMovesToAnotherGroup()
    {
        const TreeFixture tree;
        const auto move = [](const char *from, const char *to) {
            FakeHost::send(4121, true, jidOf(QStringLiteral("bob")), QString::fromLatin1(from),
                           QString::fromLatin1(to), true);
            TreeFixture::settle();
        };
        tree.view->expand(tree.group("g2"));
        tree.select(tree.contact("bob"));
        move("g1", "g2");
        QCOMPARE(tree.view->currentIndex(), tree.contact("bob"));
        QVERIFY(tree.view->selectionModel()->isSelected(tree.contact("bob")));
        QCOMPARE(tree.rows("g2"), (QStringList{QStringLiteral("bob"), QStringLiteral("dora")}));

        // Out of sight in a closed group, its header takes over.
        tree.view->collapse(tree.group("g1"));
        move("g2", "g1");
        QTRY_COMPARE(tree.view->currentIndex(), tree.group("g1"));
    }

    void waitsForThePointer()
    {
        const TreeFixture tree;
        const QStringList before = tree.rows("g1");
        pointerOver(tree.view, true);
        FakeHost::send(
            4117, QMap<QString, PresenceData>{{jidOf(QStringLiteral("carl")), makePresence(1)}});
        QCOMPARE(tree.rows("g1"), before);
        QCOMPARE(tree.contact("carl").data(260), QVariant(1));
        pointerOver(tree.view, false);
        QCOMPARE(tree.rows("g1"), QStringList({"me", "anna", "carl", "bob"}));
    }

    void waitsForTheMenu()
    {
        const TreeFixture tree;
        for (const QPoint &pos :
             {tree.view->visualRect(tree.contact("bob")).center(),
              tree.view->visualRect(tree.group("g1")).center(), QPoint(20, 590)}) {
            FakeHost::send(4355);
            const QStringList before = tree.rows("g1");
            tree.view->slot_contextMenu(pos);
            pointerOver(tree.view, false);
            FakeHost::send(4117, QMap<QString, PresenceData>{
                                     {jidOf(QStringLiteral("carl")), makePresence(1)}});
            QCOMPARE(tree.rows("g1"), before);
            tree.openMenu()->close();
            TreeFixture::settle();
            QCOMPARE(tree.rows("g1"), QStringList({"me", "carl", "anna", "bob"}));
        }
    }

    void oneRepaintForAFlood()
    {
        TreeFixture tree;
        tree.tester.reset();
        tree.addMany(500);
        TreeFixture::settle();
        const PaintCounter painted(tree.view->viewport());
        const auto all = presenceOf(0, 500, 4);
        for (auto at = all.constBegin(); at != all.constEnd(); ++at)
            FakeHost::send(4117, QMap<QString, PresenceData>{{at.key(), at.value()}});
        QCOMPARE(painted.count, 0);
        QTRY_VERIFY(painted.count > 0);
        TreeFixture::settle();
        QVERIFY2(painted.count <= 3, qPrintable(QString::number(painted.count)));
        QCOMPARE(tree.labels().first()->text(), QStringLiteral("Alpha [501/504]"));
    }

    void labelsOfWhatIsSeen()
    {
        TreeFixture tree;
        tree.tester.reset();
        QList<GroupData> groups;
        for (int i = 0; i < 5000; ++i)
            groups.append({QString::number(i), QStringLiteral("group %1").arg(i, 4)});
        FakeHost::send(4119, groups, true);
        TreeFixture::settle();
        tree.view->scrollToBottom();
        TreeFixture::settle();
        QVERIFY(tree.view->viewport()->findChildren<GroupLabel *>().size() < 40);
        QVERIFY(tree.labels().size() > 5);
        for (const GroupLabel *label : tree.labels()) {
            QCOMPARE(label->geometry().top(), tree.view->visualRect(label->index()).top());
            QVERIFY(label->text().startsWith(label->index().data(FriendTreeRole::Name).toString()));
        }
    }

    void labelsFollowTheirRows()
    {
        const TreeFixture tree;
        for (const char *key : {"expandAll", "collapseAll", "expandAll"}) {
            TreeFixture::choose(tree.menu("nullGroupMenu"), key);
            TreeFixture::settle();
            QCOMPARE(tree.labels().size(), 2);
            for (const GroupLabel *label : tree.labels())
                QCOMPARE(label->geometry().top(), tree.view->visualRect(label->index()).top());
        }
    }

    // Opening groups must not lay the whole tree out for each of them.
    void opensManyGroups()
    {
        TreeFixture tree;
        tree.tester.reset();
        tree.widget->slot_setExpandContact(true);
        QList<GroupData> groups;
        QList<FriendData> contacts;
        for (int i = 0; i < 3000; ++i) {
            const QString id = QString::number(i);
            groups.append({id, QStringLiteral("group %1").arg(i, 4)});
            contacts.append(makeContact(QLatin1Char('v') + id, id, id));
            tree.widget->slot_setgroupexpandlist(true, groups.last().name);
        }
        struct LayoutCounter : QObject
        {
            int count = 0;
        } layouts;
        connect(tree.view->verticalScrollBar(), &QScrollBar::rangeChanged, &layouts,
                [&layouts] { ++layouts.count; });
        FakeHost::send(4119, groups, true);
        FakeHost::send(4115, contacts);
        TreeFixture::settle();
        QVERIFY(tree.view->isExpanded(tree.group("2999")));
        QVERIFY2(layouts.count < 50, qPrintable(QString::number(layouts.count)));
    }

    void languageIsLive()
    {
        TreeFixture tree;
        tree.host.context.innerGroups.clear();
        tree.host.context.contacts.clear();
        const FriendTreeWidget waiting; // knows nobody yet, and says that it is loading
        Marker marker;
        QCoreApplication::installTranslator(&marker);
        TreeFixture::settle();
        for (const char *name :
             {"commonGroupMenu", "commonSingleMenu", "nullGroupMenu", "selectMoreMenu"}) {
            for (const QAction *action : tree.menu(name)->actions()) {
                if (!action->isSeparator())
                    QCOMPARE(action->text(), QLatin1String("T:") + action->objectName());
            }
        }
        QVERIFY(tree.contact("bob")
                    .data(Qt::AccessibleTextRole)
                    .toString()
                    .contains(QStringLiteral("T:presenceOffline")));
        bool found = false;
        for (const QLabel *label : waiting.findChildren<QLabel *>())
            found = found || label->text() == QStringLiteral("T:friendsLoading");
        QVERIFY(found);
        QCoreApplication::removeTranslator(&marker);
    }

    void accessibleTexts()
    {
        const TreeFixture tree;
        QAccessibleInterface *list = QAccessible::queryAccessibleInterface(tree.view);
        QVERIFY(list);
        QStringList names;
        for (int i = 0; i < list->childCount(); ++i) {
            if (QAccessibleInterface *child = list->child(i))
                names.append(child->text(QAccessible::Name));
        }
        QVERIFY2(names.contains(QStringLiteral("anna, presenceOnline, Alpha")),
                 qPrintable(names.join(QLatin1Char('|'))));
        QVERIFY(names.contains(QStringLiteral("Alpha, 1/4")));
        QCOMPARE(tree.labels().first()->accessibleName(), QStringLiteral("Alpha, 1/4"));
    }

    void hostileNames_data()
    {
        const Rows<QString> row{"name"};
        row("markup", "<img src=/etc/passwd><b>bold</b>");
        row("entities", "R&D &lt;b&gt; &amp;");
        row("quotes and sheets", "\"'a.png); qproperty-text:\"x\"; x:url(b");
        row("lines", "one\ntwo\r\nthree\ttabs\u2028four");
        row("place markers", "%1 %2 %n %L1");
        row("10,000 characters", QString(10000, QLatin1Char('w')));
        row("10,000 Chinese characters", QString(10000, QChar(0x5f20)));
        row("lone surrogate", QString(QChar(0xd83d)) + QStringLiteral("abc") + QChar(0xde00));
        row("right to left", QString::fromUtf8("שלום \u202eabc\u202c") + QChar(0x202e));
        row("marks", QLatin1Char('a') + QString(100000, QChar(0x0301)));
        row("invisible", QString(2000, QChar(0x200b)) + QChar(0xfeff));
        row("nul", QString(QChar(0)) + QStringLiteral("x") + QChar(0));
    }

    void hostileNames()
    {
        QFETCH(QString, name);
        TreeFixture tree;
        FakeHost::send(4118, QStringLiteral("bad"), name, true, true);
        FriendData contact = makeContact(QStringLiteral("evil"), name);
        contact.sign = name;
        FakeHost::send(4115, QList<FriendData>{contact});
        TreeFixture::settle();
        const QModelIndex index = tree.contact("evil");
        const QString shown = index.data().toString();
        QVERIFY(shown.size() < 700);
        for (const QChar c : shown)
            QVERIFY(c.unicode() >= 0x20 && c != QChar(0x2028) && c != QChar(0x202e));
        for (const QString &tip :
             {index.data(Qt::ToolTipRole).toString(), tree.labels().last()->toolTip()}) {
            QVERIFY(tip.size() < 5000);
            QVERIFY(!tip.contains(QStringLiteral("<img")) && !tip.contains(QStringLiteral("<b>")));
        }
        for (const QLabel *label : tree.widget->findChildren<QLabel *>()) {
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
            QVERIFY(label->sizeHint().width() < 6000 || qobject_cast<const GroupLabel *>(label));
        }
        // Rows and headers keep their size.
        QCOMPARE(tree.view->visualRect(index).height(),
                 tree.view->visualRect(tree.group("g1")).height());
        QVERIFY(tree.view->visualRect(index).width() <= tree.view->viewport()->width());
        QVERIFY(!tree.widget->grab().isNull());

        // The move menu names the group, a "&" being no key.
        tree.rightClick(tree.view->visualRect(index).center());
        const SkinMenu *moves =
            tree.menu("commonSingleMenu")->findChild<SkinMenu *>(QStringLiteral("moveToGroup"));
        for (const QAction *action : moves->actions()) {
            QVERIFY(action->text().size() < 1500);
            QVERIFY(!action->text().contains(QLatin1Char('\n')));
            QCOMPARE(action->text().count(QLatin1Char('&')) % 2, 0);
        }
        QVERIFY(moves->sizeHint().isValid());
        tree.openMenu()->close();

        // Boxes: plain text.
        TipBox::setNextAnswers(TipBox::ShowBox);
        FakeHost::send(4128, contact.jid, true);
        tree.view->commands()->deleteContact(contact.jid);
        if (tree.model->hasGroup(QStringLiteral("bad")))
            tree.view->commands()->deleteGroup(QStringLiteral("bad"));
        tree.view->commands()->changeRemark(contact.jid);
        TreeFixture::settle();
        int boxes = 0;
        for (const QMessageBox *box : tree.widget->findChildren<QMessageBox *>()) {
            ++boxes;
            QCOMPARE(box->textFormat(), Qt::PlainText);
            for (const QLabel *label : box->findChildren<QLabel *>())
                QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
            QVERIFY(box->text().size() < 1000);
            QVERIFY(box->width() < 2000 && box->height() < 1500);
        }
        QVERIFY(boxes >= 2);
        QVERIFY(tree.inputBox()->width() < 1000);
    }
};

FRIENDUI_TEST(TstFriendTreeScreen)
#include "tst_friendtreescreen.moc"
