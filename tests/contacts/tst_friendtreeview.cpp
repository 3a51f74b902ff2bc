// What a user does with the friend tree: boxes, keys, typing, drag and drop.
#include "tests/contacts/treefixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>

namespace {
const QString Anna = QStringLiteral("anna@corp.example");
const QString Bob = QStringLiteral("bob@corp.example");
const QString Me = QStringLiteral("me@corp.example");
const QString G1 = QStringLiteral("g1");
const QString G2 = QStringLiteral("g2");

// The application delivers drops only to who took the drag before.
struct ViewAccess : FriendTreeView
{
    using FriendTreeView::viewportEvent;
};

void typeInto(InputBox *box, const QString &text)
{
    QVERIFY(box);
    box->setTextValue(text);
    box->accept();
}
} // namespace

class TstFriendTreeView : public QObject
{
    Q_OBJECT

private slots:
    void ownRowIsSpared()
    {
        const TreeFixture tree;
        TipBox::setNextAnswers(TipBox::Sure);
        tree.select(tree.contact("me"));
        tree.rightClick(tree.view->visualRect(tree.contact("me")).center());
        for (const char *key : {"invitechat", "sendFile", "sendemail", "delFriend",
                                "changeRemarkName", "moveToGroup"})
            QVERIFY2(!tree.menu("commonSingleMenu")->action(key)->isEnabled(), key);
        tree.openMenu()->close();
        for (const int key : {Qt::Key_Delete, Qt::Key_F2, Qt::Key_Return})
            QTest::keyClick(tree.view, Qt::Key(key));
        FriendCommands *commands = tree.view->commands();
        commands->moveContacts({Me}, G2);
        commands->deleteContact(Me);
        commands->writeMail({Me});
        QCOMPARE(tree.host.requests.size(), 0);
        QVERIFY(!tree.inputBox());
    }

    void createsGroups()
    {
        const TreeFixture tree;
        const LogCapture log(const_cast<TreeFixture &>(tree).host.context);
        TreeFixture::choose(tree.menu("nullGroupMenu"), "newgroup");
        const QPointer<InputBox> box = tree.inputBox();
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("newgroup"));
        QCOMPARE(box->labelText(), QStringLiteral("groupNameColon"));
        // A refused name stays in the box.
        const QMap<QString, QString> refusals{{QString(), "teamnotempty"},
                                              {"Beta", "createexistedteam"}};
        for (const QString &name : refusals.keys()) {
            typeInto(box, name);
            QVERIFY(box && box->isVisible());
            QCOMPARE(TipBox::lastText(), refusals.value(name));
            QCOMPARE(box->textValue(), name);
        }
        QCOMPARE(tree.host.requests.size(), 0);
        QCOMPARE(log.linesWith(": newName.isEmpty()").size(), 1);
        typeInto(box, QStringLiteral(" <b>New</b> & "));
        QCOMPARE(tree.host.last(4360).payload,
                 FakeHost::encode(QStringLiteral("<b>New</b> &"), true));
        QCOMPARE(tree.host.last(4360).receiver,
                 QStringLiteral("{7123C2B9-E89C-0CC5-5B1E-9496BB7427C8}"));
        QCOMPARE(tree.model->rowCount(), 2);
        FakeHost::send(4118, QString(), QStringLiteral("<b>New</b> &"), false, true);
        QCOMPARE(TipBox::lastText(), QStringLiteral("teamcreatefailed"));

        TreeFixture::choose(tree.menu("nullGroupMenu"), "newgroup");
        const auto boxes = tree.view->findChildren<InputBox *>();
        boxes.last()->setTextValue(QStringLiteral("cancelled"));
        boxes.last()->reject();
        QCOMPARE(tree.host.requests.size(), 1);
    }

    void renamesGroups()
    {
        const TreeFixture tree;
        tree.select(tree.group("g1"));
        QTest::keyClick(tree.view, Qt::Key_F2);
        const QPointer<InputBox> box = tree.inputBox();
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("renameMuc"));
        QCOMPARE(box->textValue(), QStringLiteral("Alpha"));
        typeInto(box, QStringLiteral("Beta"));
        QCOMPARE(TipBox::lastText(), QStringLiteral("createexistedteam"));
        QVERIFY(box && box->isVisible());
        typeInto(box, QStringLiteral(" Alpha "));
        QCOMPARE(tree.host.requests.size(), 0);
        tree.view->commands()->renameGroup(G1);
        typeInto(tree.view->findChildren<InputBox *>().last(), QStringLiteral("Omega"));
        QCOMPARE(tree.host.last(4362).payload, FakeHost::encode(G1, QStringLiteral("Omega"), true));
        QCOMPARE(tree.model->groupName(G1), QStringLiteral("Alpha"));
    }

    void changesRemarks()
    {
        const TreeFixture tree;
        tree.select(tree.contact("anna"));
        QTest::keyClick(tree.view, Qt::Key_F2);
        typeInto(tree.inputBox(), QStringLiteral(" Ann "));
        QCOMPARE(tree.host.last(4167).payload, FakeHost::encode(Anna, QStringLiteral("Ann")));
        tree.view->commands()->changeRemark(Anna);
        typeInto(tree.view->findChildren<InputBox *>().last(), QString());
        QCOMPARE(tree.host.requests.size(), 1);
    }

    void goneWhileAsked()
    {
        const TreeFixture tree;
        TipBox::setNextAnswers(TipBox::ShowBox);
        const auto sure = [&tree] {
            const auto boxes = tree.view->findChildren<TipBox *>();
            if (boxes.isEmpty())
                return false;
            const auto buttons = boxes.last()->buttons();
            for (QAbstractButton *button : buttons) {
                if (boxes.last()->buttonRole(button) == QMessageBox::AcceptRole)
                    button->click();
            }
            return true;
        };
        tree.view->commands()->deleteContact(Anna);
        FakeHost::send(4101, Anna, true);
        QVERIFY(sure());
        tree.view->commands()->deleteGroup(G2);
        FakeHost::send(4120, true, G2, true);
        QVERIFY(sure());
        tree.view->commands()->changeRemark(Bob);
        FakeHost::send(4101, Bob, true);
        typeInto(tree.inputBox(), QStringLiteral("x"));
        tree.view->commands()->renameGroup(G1);
        FakeHost::send(4120, true, G1, true);
        typeInto(tree.view->findChildren<InputBox *>().last(), QStringLiteral("x"));
        QCOMPARE(tree.host.requests.size(), 0);
        // The default is not to delete.
        tree.view->commands()->deleteContact(QStringLiteral("carl@corp.example"));
        auto *box = tree.view->findChildren<TipBox *>().last();
        QCOMPARE(box->buttonRole(box->defaultButton()), QMessageBox::RejectRole);
        QTest::keyClick(box, Qt::Key_Escape);
        QCOMPARE(tree.host.requests.size(), 0);
    }

    void keys()
    {
        const TreeFixture tree;
        FriendTreeView *view = tree.view;
        TipBox::setNextAnswers(TipBox::Sure);
        tree.select(tree.contact("anna"));
        QTest::keyClick(view, Qt::Key_Return);
        QCOMPARE(tree.host.last(4251).payload, FakeHost::encode(Anna, 0));
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(tree.host.last(4157).payload, FakeHost::encode(Anna, true));
        QTest::keyClick(view, Qt::Key_Left);
        QCOMPARE(view->currentIndex(), tree.group("g1"));
        QTest::keyClick(view, Qt::Key_Left);
        QVERIFY(!view->isExpanded(tree.group("g1")));
        QTest::keyClick(view, Qt::Key_Right);
        QVERIFY(view->isExpanded(tree.group("g1")));
        QTest::keyClick(view, Qt::Key_Right);
        QCOMPARE(view->currentIndex(), tree.contact("me"));
        QTest::keyClick(view, Qt::Key_End);
        QCOMPARE(view->currentIndex(), tree.group("g2"));
        QTest::keyClick(view, Qt::Key_Return);
        QVERIFY(view->isExpanded(tree.group("g2")));
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(tree.host.last(4361).payload, FakeHost::encode(G2, true));
        QTest::keyClick(view, Qt::Key_Home);
        QCOMPARE(view->currentIndex(), tree.group("g1"));
        QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(view->selectionModel()->selectedRows().size(), 3);
        QTest::keyClick(view, Qt::Key_Escape);
        QCOMPARE(view->selectionModel()->selectedRows(), QModelIndexList{tree.contact("anna")});
    }

    void typeToFind()
    {
        TreeFixture tree;
        tree.add(QStringLiteral("zhang"), QString::fromUtf8("张伟"), G2);
        tree.add(QStringLiteral("zhou"), QString::fromUtf8("周芳"), G2);
        FakeHost::send(4114, jidOf(QStringLiteral("zhang")));
        FakeHost::send(4114, jidOf(QStringLiteral("zhou")));
        tree.select(tree.contact("me"));
        finder(tree, "bo", "bob", QStringLiteral("bo"));
        QTest::keyClick(tree.view, Qt::Key_Escape);
        finder(tree, "", "bob", QString());
        // In a group that is closed.
        finder(tree, "zh", "zhang", QStringLiteral("zh"));
        QVERIFY(tree.view->isExpanded(tree.group("g2")));
        QTest::keyClick(tree.view, Qt::Key_Down);
        finder(tree, "", "zhou", QStringLiteral("zh"));
        QTest::keyClick(tree.view, Qt::Key_Down);
        finder(tree, "", "zhang", QStringLiteral("zh"));
        QTest::keyClick(tree.view, Qt::Key_Up);
        finder(tree, "", "zhou", QStringLiteral("zh"));
        finder(tree, "q", "zhou", QStringLiteral("zhq  noMatch"));
        QTest::keyClick(tree.view, Qt::Key_Backspace);
        finder(tree, "", "zhou", QStringLiteral("zh"));
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(tree.view, Qt::Key_Backspace);
        finder(tree, "", "zhou", QString());
        // A click ends it, and keys are keys again.
        finder(tree, "do", "dora", QStringLiteral("do"));
        QTest::mouseClick(tree.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree.view->visualRect(tree.contact("bob")).center());
        finder(tree, "", "bob", QString());
        QTest::keyClick(tree.view, Qt::Key_Up);
        finder(tree, "", "anna", QString());
    }

    void inputMethod()
    {
        TreeFixture tree;
        tree.add(QStringLiteral("zhang"), QString::fromUtf8("张伟"), G2);
        FakeHost::send(4114, jidOf(QStringLiteral("zhang")));
        // Without this the system offers no input method for the list.
        tree.select(tree.contact("anna"));
        QVERIFY(tree.view->testAttribute(Qt::WA_InputMethodEnabled));
        tree.view->clearFocus();
        tree.view->setFocus();
        QVERIFY(tree.view->testAttribute(Qt::WA_InputMethodEnabled));
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8("张"));
        QApplication::sendEvent(tree.view, &event);
        finder(tree, "", "zhang", QString::fromUtf8("张"));
    }

    void doubleClickAndHeaders()
    {
        const TreeFixture tree;
        QSignalSpy active(tree.view, &FriendTreeView::signal_stopactive);
        QTest::mouseDClick(tree.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                           tree.view->visualRect(tree.contact("bob")).center());
        QCOMPARE(tree.host.count(4251), 1);
        QCOMPARE(active.last(), QVariantList({Bob}));
        GroupLabel *header = tree.labels().first();
        QTest::mouseClick(header, Qt::LeftButton);
        QVERIFY(!tree.view->isExpanded(tree.group("g1")));
        QCOMPARE(tree.view->currentIndex(), tree.group("g1"));
        QTest::mouseClick(header, Qt::LeftButton);
        QVERIFY(tree.view->isExpanded(tree.group("g1")));
        // Pressed here and let go elsewhere is no click.
        QTest::mousePress(header, Qt::LeftButton);
        QTest::mouseRelease(header, Qt::LeftButton, Qt::NoModifier, QPoint(5, 300));
        QVERIFY(tree.view->isExpanded(tree.group("g1")));
    }

    void dropsFromElsewhere()
    {
        TreeFixture tree;
        const LogCapture log(tree.host.context);
        QMimeData data;
        data.setData(QStringLiteral("application/x-friendui-contacts"), "1");
        data.setText(QStringLiteral("anna@corp.example"));
        QWidget *viewport = tree.view->viewport();
        const QPoint onto = tree.view->visualRect(tree.group("g2")).center();
        QDragEnterEvent enter(onto, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &enter);
        QVERIFY(!enter.isAccepted());
        QDropEvent drop(onto, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        (tree.view->*&ViewAccess::viewportEvent)(&drop);
        QVERIFY(!drop.isAccepted());
        QCOMPARE(log.linesWith(": event->source() == 0").size(), 1);
        QDragEnterEvent overHeader(QPoint(5, 5), Qt::MoveAction, &data, Qt::LeftButton, {});
        overHeader.ignore();
        QApplication::sendEvent(tree.labels().first(), &overHeader);
        QVERIFY(!overHeader.isAccepted());
        tree.view->slot_dropEvent(onto);
        QCOMPARE(log.linesWith(": m_dragitem is null").size(), 1);
        QCOMPARE(tree.host.requests.size(), 0);
    }

    void drops_data()
    {
        const Rows<QStringList, bool, QString, int> row{"dragged", "taken", "target", "requests"};
        row("to another group", QStringList{"anna"}, true, "g2", 1);
        row("to its own group", QStringList{"anna"}, true, "g1", 0);
        row("to no group", QStringList{"anna"}, false, "", 0);
        row("to a group that is gone", QStringList{"anna"}, true, "g9", 0);
        row("several", QStringList{"anna", "bob", "dora"}, true, "g2", 2);
        row("with the own row", QStringList{"anna", "me"}, true, "g2", 1);
    }

    void drops()
    {
        QFETCH(QStringList, dragged);
        QFETCH(bool, taken);
        QFETCH(QString, target);
        QFETCH(int, requests);
        const TreeFixture tree;
        QStringList jids;
        for (const QString &user : qAsConst(dragged))
            jids.append(jidOf(user));
        // The end of a drag, as the view takes it.
        if (taken)
            tree.view->commands()->moveContacts(jids, target);
        else
            tree.view->slot_dropend(false, target);
        QCOMPARE(tree.host.count(4358), requests);
        QCOMPARE(tree.model->groupOf(Anna), G1);
        if (requests > 0) {
            QCOMPARE(tree.host.last(4358).payload,
                     FakeHost::encode(jids.at(requests - 1), G1, target, true));
        }
    }

private:
    static void finder(const TreeFixture &tree, const char *keys, const char *current,
                       const QString &shown)
    {
        QTest::keyClicks(tree.view, QString::fromLatin1(keys));
        const auto *label = tree.view->findChild<QLabel *>(QStringLiteral("typeFinderLabel"));
        QCOMPARE(label->isVisible(), !shown.isEmpty());
        QVERIFY2(shown.isEmpty() || label->text() == shown, qPrintable(label->text()));
        QCOMPARE(tree.view->currentIndex().data(FriendTreeRole::Id).toString(),
                 jidOf(QLatin1String(current)));
    }
};

FRIENDUI_TEST(TstFriendTreeView)
#include "tst_friendtreeview.moc"
