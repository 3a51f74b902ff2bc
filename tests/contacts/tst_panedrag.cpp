// Real drags in the friend tree. Runs on the platform plug-in "minimal", where a
// drag has its own event loop; on "offscreen" it ends at once.
#include "tests/contacts/panefixture.h"
#include "tests/support/drags.h"
#include "tests/support/testrunner.h"

#include <QGuiApplication>

namespace {

const QString Anna = QStringLiteral("anna@corp.example");
const QString G1 = QStringLiteral("g1");
const QString G2 = QStringLiteral("g2");

QPoint inWindow(const PaneFixture &fixture, const QModelIndex &index)
{
    return placeInWindow(fixture.view, index);
}

template <class Function> bool dragAnna(const PaneFixture &fixture, Function meanwhile)
{
    return dragRow(fixture.view, fixture.contact("anna"), meanwhile);
}

} // namespace

class TstPaneDrag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("minimal"))
            QSKIP("needs QT_QPA_PLATFORM=minimal");
    }

    void dropMovesTheContact_data()
    {
        const Rows<QString, int> row{"target", "requests"};
        row("a contact of another group", QStringLiteral("dora"), 1);
        row("the header of another group", G2, 1);
        row("a contact of the same group", QStringLiteral("bob"), 0);
        row("below all rows", QString(), 0);
    }

    void dropMovesTheContact()
    {
        QFETCH(QString, target);
        QFETCH(int, requests);
        const PaneFixture fixture;
        QWindow *window = fixture.pane->windowHandle();
        QModelIndex index = fixture.model->groupIndex(target);
        if (!index.isValid())
            index = fixture.contact(target.toLatin1().constData());
        const QPoint where =
            index.isValid() ? inWindow(fixture, index) : QPoint(200, fixture.pane->height() - 5);
        QVERIFY(dragAnna(fixture, [&] {
            QTest::mouseMove(window, where);
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, where);
        }));
        PaneFixture::settle();
        QCOMPARE(fixture.host.count(Outbound::MoveContact), requests);
        if (requests > 0)
            QCOMPARE(fixture.host.last(Outbound::MoveContact).payload,
                     FakeHost::encode(Anna, G1, G2, true));
        QCOMPARE(fixture.model->groupOf(Anna), G1);
    }

    void targetGoneBeforeTheDrop()
    {
        const PaneFixture fixture;
        QWindow *window = fixture.pane->windowHandle();
        const QPoint where = inWindow(fixture, fixture.contact("dora"));
        QVERIFY(dragAnna(fixture, [&] {
            QTest::mouseMove(window, where);
            FakeHost::send(Inbound::ContactRemoved, Anna, true);
            FakeHost::send(Inbound::GroupDeleted, true, G2, true);
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, where);
        }));
        PaneFixture::settle();
        QCOMPARE(fixture.host.count(Outbound::MoveContact), 0);
    }

    void paneDestroyedDuringTheDrag()
    {
        PaneFixture fixture;
        QWidget elsewhere;
        elsewhere.show();
        QVERIFY(dragAnna(fixture, [&] {
            QTest::mouseMove(fixture.pane->windowHandle(),
                             inWindow(fixture, fixture.contact("dora")));
            fixture.destroy();
            FakeHost::send(Inbound::ContactRemoved, Anna, true);
            QTest::mouseRelease(elsewhere.windowHandle(), Qt::LeftButton);
        }));
        QVERIFY(!fixture.pane);
        QCOMPARE(fixture.host.requests.size(), 0);
        fixture.make();
        QVERIFY(fixture.contact("dora").isValid());
    }
};

FRIENDUI_TEST(TstPaneDrag)
#include "tst_panedrag.moc"
