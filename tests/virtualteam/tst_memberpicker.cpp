// Whom the search for members finds, and the list of the chosen ones.
#include "controls/rowpainter.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/requestfixture.h"

namespace {
using F = CreationFixture;

QPoint crossOf(const F &f, int row)
{
    const QModelIndex index = f.list()->members()->index(row, 0);
    return MemberListDelegate::crossArea(f.list()->visualRect(index), Qt::LeftToRight).center();
}
} // namespace

class TstMemberPicker : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data()
    {
        const Rows<bool, QByteArray, int, QString> row{"invites", "data", "code", "told"};
        row("10001", false, "{}", 10001, "checkAccount");
        row("10002", false, "{}", 10002, "idNoExist");
        row("10003", false, "{}", 10003, "searchTooMuch");
        row("10004", false, "{}", 10004, "persionnalAcountConnotAdd");
        row("other", false, "{}", 7, "checkAccount");
        row("nobody", false, "{}", 0, "checkAccount");
        row("oneself", false, F::person("u1", "C1"), 0, "userHadAdded");
        row("picked already", false, F::person("u2"), 0, "userHadAdded");
        row("invites oneself", true, F::person("u1", "C1"), 0, "userHadAdded");
        row("invites the own company", true, F::person("u5", "C1"), 0, "checkAccount");
    }

    void refusals()
    {
        QFETCH(bool, invites);
        QFETCH(QByteArray, data);
        QFETCH(int, code);
        F f(invites);
        f.pick("u2");
        f.service.answer("searchMember", data, code);
        f.search(QStringLiteral(" 13800 "));
        QTRY_COMPARE(f.service.boxes(), 1);
        QTEST(TipBox::lastText(), "told");
        QCOMPARE(f.service.form(), QByteArray("key=13800"));
        QCOMPARE(f.chosen(), QStringList{QStringLiteral("u2")});
        QCOMPARE(f.field()->text(), QStringLiteral(" 13800 ")); // to be mended
        QVERIFY(f.dialog->isVisible());
        QCOMPARE(f.service.count("createVirtualTeam"), 0); // Enter was the search's
    }

    void theOwnCompanyMayBeInATeam()
    {
        F f;
        f.service.answer("searchMember", F::person("u5", "C1"));
        f.field()->setText(QStringLiteral("u5"));
        F::button(f.dialog, "memberAdd")->click();
        QTRY_COMPARE(f.chosen(), QStringList{QStringLiteral("u5")});
        QVERIFY(f.field()->text().isEmpty()); // for the next one
        QCOMPARE(f.dialog->focusWidget(), f.field());
    }

    // Every search counts, in whatever order the replies come.
    void twoSearchesAtOnce()
    {
        F f;
        f.service.server.reply(TeamService::path("searchMember"),
                               QVector<FakeReply>{TeamService::reply(F::person("u2")).onRelease(),
                                                  TeamService::reply(F::person("u3"))});
        f.search(QStringLiteral("first"));
        QVERIFY(!f.sure()->isEnabled()); // whoever is found belongs to the team
        f.search(QStringLiteral("first"));
        QTRY_COMPARE(f.service.count("searchMember"), 1);
        f.search(QStringLiteral("second"));
        QTRY_COMPARE(f.chosen(), QStringList{QStringLiteral("u3")});
        f.field()->setText(QStringLiteral("third"));
        f.service.server.release();
        QTRY_COMPARE(f.chosen().size(), 2);
        QCOMPARE(f.service.count("searchMember"), 2);
        QCOMPARE(f.field()->text(), QStringLiteral("third"));
        QVERIFY(f.sure()->isEnabled());
    }

    // Whose search it was is told when the field holds another text by then.
    void aLateRefusalNamesWhom()
    {
        F f;
        f.service.hold("searchMember", "{}", 10002);
        f.search(QStringLiteral("first"));
        f.field()->setText(QStringLiteral("sec"));
        QTRY_COMPARE(f.service.count("searchMember"), 1);
        f.service.server.release();
        QTRY_COMPARE(f.service.boxes(), 1);
        QCOMPARE(TipBox::lastText(), QStringLiteral("first\nidNoExist"));
        QCOMPARE(f.field()->text(), QStringLiteral("sec"));
    }

    void escapeClosesFromTheSearch()
    {
        F f;
        f.field()->setText(QStringLiteral("u2"));
        QTest::keyClick(f.field(), Qt::Key_Escape);
        F::settle();
        QVERIFY(!f.dialog);
    }

    void closedWhileItSearches()
    {
        F f;
        f.service.hold("searchMember", F::person("u2"));
        f.search(QStringLiteral("u2"));
        QTRY_COMPARE(f.service.count("searchMember"), 1);
        f.dialog->close();
        F::settle();
        QVERIFY(!f.dialog);
        f.service.server.release();
        QTRY_COMPARE(f.service.host.context.webRequests.size(), 1);
        QCOMPARE(f.service.boxes(), 0);
    }

    void membersAreTakenOut()
    {
        F f;
        f.fill();
        f.pick("u4");
        f.pick("u5");
        const QSignalSpy removals(f.list(), &ChosenMemberList::signal_deleteItem);
        // Two quick clicks take out two people: the second row moves up.
        QTest::mouseClick(f.list()->viewport(), Qt::LeftButton, {}, crossOf(f, 0));
        QTest::mouseDClick(f.list()->viewport(), Qt::LeftButton, {}, crossOf(f, 0));
        QTest::mouseRelease(f.list()->viewport(), Qt::LeftButton, {}, crossOf(f, 0));
        QCOMPARE(f.chosen(), (QStringList{QStringLiteral("u4"), QStringLiteral("u5")}));
        // Pressed on one and released on another: meant for none.
        QTest::mousePress(f.list()->viewport(), Qt::LeftButton, {}, crossOf(f, 0));
        QTest::mouseRelease(f.list()->viewport(), Qt::LeftButton, {}, crossOf(f, 1));
        QCOMPARE(f.chosen().size(), 2);
        f.list()->setFocus();
        f.list()->setCurrentIndex(f.list()->members()->index(1, 0));
        QTest::keyClick(f.list(), Qt::Key_Delete);
        QCOMPARE(f.chosen(), QStringList{QStringLiteral("u4")});
        QCOMPARE(removals.size(), 3);
        f.pick("u5"); // may come back
    }

    void rowsShowPictures()
    {
        F f;
        const QString file = f.service.folder.filePath(QStringLiteral("u2.png"));
        QImage red(64, 64, QImage::Format_RGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(file));
        f.service.host.context.headPaths.insert(QStringLiteral("u2@corp.example"), file);
        f.pick("u2");
        const auto redness = [&f] {
            const QModelIndex row = f.list()->members()->index(0, 0);
            const QPoint avatar = f.list()->visualRect(row).topLeft() +
                                  QPoint(RowPainter::Margin + 4, RowPainter::RowHeight / 2);
            const QColor pixel = f.list()->viewport()->grab().toImage().pixelColor(avatar);
            return pixel.red() - pixel.blue();
        };
        QTRY_VERIFY(redness() > 200);
    }

    // Other people's texts.
    void rowsShowPlainTexts()
    {
        F f;
        f.service.answer("searchMember",
                         R"({"userId":"u2","name":"<b>A\nB</b>","companyName":"C & D"})");
        f.search(QStringLiteral("x"));
        QTRY_COMPARE(f.chosen().size(), 1);
        const QModelIndex row = f.list()->members()->index(0, 0);
        QCOMPARE(row.data().toString(), QStringLiteral("<b>A B</b>"));
        QVERIFY(!row.data(Qt::ToolTipRole).toString().contains(QLatin1String("<b>")));
    }
};

FRIENDUI_TEST(TstMemberPicker)
#include "tst_memberpicker.moc"
