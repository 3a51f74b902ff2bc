// The pointer over a list of people, up to what is asked of the card.
#include "controls/cardhover.h"
#include "controls/rowview.h"
#include "tests/support/recordingactions.h"
#include "tests/support/testrunner.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QWheelEvent>

namespace {

constexpr int People = 200;

// Each row is a person's, but the first.
class PeopleList : public RowView
{
public:
    explicit PeopleList(QStandardItemModel *people) : RowView(people, Qt::DisplayRole)
    {
        for (int i = 0; i < People; ++i)
            people->appendRow(new QStandardItem(i == 0 ? QString() : person(i)));
        resize(240, 300);
        show();
        QApplication::setActiveWindow(this);
    }

    static QString person(int row) { return QStringLiteral("p%1@corp.example").arg(row); }
    QPoint middle(int row) const { return visualRect(model()->index(row, 0)).center(); }
    void moveTo(int row, Qt::MouseButtons buttons = Qt::NoButton)
    {
        send(QEvent::MouseMove, middle(row), buttons);
    }
    void send(QEvent::Type type, QPoint at, Qt::MouseButtons buttons)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &event);
    }
    void press(int row) { send(QEvent::MouseButtonPress, middle(row), Qt::LeftButton); }
    void release(int row) { send(QEvent::MouseButtonRelease, middle(row), Qt::NoButton); }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(viewport(), &event);
    }
    void wheel(int row, int delta)
    {
        const QPoint at = middle(row);
        QWheelEvent event(at, viewport()->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport(), &event);
    }

protected:
    QString cardJid(const QModelIndex &index) const override { return index.data().toString(); }
};

struct Fixture
{
    RecordingActions actions;
    QStandardItemModel people;
    PeopleList list{&people};

    ~Fixture() { CardHover::instance().cardHidden(); }
    HoverStates::State state() const { return CardHover::instance().state(); }
    // What was asked for last, with the person it was asked for.
    QString last() const
    {
        return actions.calls.value(actions.calls.size() - 1).section(QLatin1Char(' '), 0, 1);
    }
    static QString shown(int row)
    {
        return QStringLiteral("showContactCard ") + PeopleList::person(row);
    }
    void open(int row)
    {
        list.moveTo(row);
        QTRY_COMPARE(last(), shown(row));
        QCOMPARE(state(), HoverStates::Open);
    }
};
const QString hidden = QStringLiteral("hideContactCard ");

} // namespace

class TstHoverList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { CardHover::instance().setTimes(60, 60); }
    void cleanupTestCase()
    {
        CardHover::instance().setTimes(HoverStates::RestTime, HoverStates::GraceTime);
    }

    void opensBesideTheRow()
    {
        Fixture f;
        f.list.moveTo(2);
        QCOMPARE(f.state(), HoverStates::Resting);
        QVERIFY(f.actions.calls.isEmpty());
        QTRY_COMPARE(f.actions.calls.size(), 1);
        const QRect row = f.list.visualRect(f.people.index(2, 0));
        const QPoint edge = f.list.viewport()->mapToGlobal(row.topRight() + QPoint(1, 0));
        QCOMPARE(f.actions.calls.first(), QStringLiteral("showContactCard %1 %2 %3 %4 false")
                                              .arg(PeopleList::person(2))
                                              .arg(edge.x())
                                              .arg(edge.y())
                                              .arg(row.width()));
    }

    void leavesAndReplaces()
    {
        Fixture f;
        f.open(1);
        f.list.moveTo(3);
        QCOMPARE(f.state(), HoverStates::Closing);
        QTRY_COMPARE(f.last(), f.shown(3));
        QCOMPARE(f.actions.calls.at(1), hidden);
        f.list.leave();
        QTRY_COMPARE(f.last(), hidden);
        QCOMPARE(f.state(), HoverStates::Closed);
        QCOMPARE(f.actions.calls.size(), 4);
    }

    void crossedRowsAskForNothing()
    {
        Fixture f;
        for (int row = 1; row < People; ++row) {
            f.list.scrollTo(f.people.index(row, 0));
            f.list.moveTo(row);
            QCoreApplication::processEvents();
        }
        QCOMPARE(f.state(), HoverStates::Resting);
        f.list.moveTo(People - 1); // the one it stays on
        QTRY_COMPARE(f.actions.calls.size(), 1);
        QCOMPARE(f.last(), f.shown(People - 1));
    }

    // What happens between the pointer's coming to a row and the end of the rest.
    void noCard_data()
    {
        const Rows<QString> row{"what"};
        for (const char *what : {"nobody", "left", "pressed", "button down", "menu", "modal",
                                 "inactive", "hidden", "row gone", "reset", "scrolled"})
            row(what, QString::fromLatin1(what));
    }

    void noCard()
    {
        QFETCH(QString, what);
        Fixture f;
        QMenu menu;
        menu.addAction(QStringLiteral("entry"));
        QDialog modal;
        modal.setModal(true);
        QWidget other;
        f.list.moveTo(what == QLatin1String("nobody") ? 0 : 2,
                      what == QLatin1String("button down") ? Qt::LeftButton : Qt::NoButton);
        if (what == QLatin1String("left"))
            f.list.leave();
        else if (what == QLatin1String("pressed"))
            f.list.press(2);
        else if (what == QLatin1String("menu"))
            menu.popup(QPoint(0, 0));
        else if (what == QLatin1String("modal"))
            modal.show();
        else if (what == QLatin1String("inactive")) {
            other.show();
            QApplication::setActiveWindow(&other);
        } else if (what == QLatin1String("hidden"))
            f.list.hide();
        else if (what == QLatin1String("row gone"))
            f.people.removeRow(2);
        else if (what == QLatin1String("reset"))
            f.people.clear();
        else if (what == QLatin1String("scrolled"))
            f.list.verticalScrollBar()->setValue(60);
        QCOMPARE(f.state(), HoverStates::Closed);
        // Another list's rest takes its whole time after that.
        menu.close();
        modal.hide();
        other.hide();
        QStandardItemModel others;
        PeopleList second(&others);
        second.moveTo(5);
        QTRY_COMPARE(f.actions.calls.size(), 1);
        QCOMPARE(f.last(), f.shown(5));
    }

    // As the pane does when the keyboard leads to another page.
    void closesWithItsPage()
    {
        Fixture f;
        QWidget window;
        QStandardItemModel others;
        auto *list = new PeopleList(&others);
        list->setParent(&window);
        window.resize(list->size());
        window.show();
        list->show();
        QApplication::setActiveWindow(&window);
        list->moveTo(3);
        QTRY_COMPARE(f.last(), f.shown(3));
        list->hide();
        QCOMPARE(f.state(), HoverStates::Closed);
    }

    // The same while the card is open.
    void closes_data()
    {
        const Rows<QString> row{"what"};
        for (const char *what :
             {"pressed", "menu", "modal", "inactive", "hidden", "row gone", "reset", "scrolled",
              "escape", "moved", "minimised", "closed", "destroyed", "collapsed"})
            row(what, QString::fromLatin1(what));
    }

    void closes()
    {
        QFETCH(QString, what);
        Fixture f;
        QMenu menu;
        menu.addAction(QStringLiteral("entry"));
        QDialog modal;
        modal.setModal(true);
        QWidget other;
        QStandardItemModel others;
        auto list = std::make_unique<PeopleList>(&others);
        others.item(2)->appendRow(new QStandardItem(QStringLiteral("below@corp.example")));
        const QModelIndex below = others.item(2)->child(0)->index();
        list->expand(others.index(2, 0));
        list->send(QEvent::MouseMove, list->visualRect(below).center(), Qt::NoButton);
        QTRY_COMPARE(f.last(), QStringLiteral("showContactCard below@corp.example"));
        if (what == QLatin1String("pressed"))
            list->press(2);
        else if (what == QLatin1String("menu"))
            menu.popup(QPoint(0, 0));
        else if (what == QLatin1String("modal"))
            modal.show();
        else if (what == QLatin1String("inactive")) {
            other.show();
            QApplication::setActiveWindow(&other);
        } else if (what == QLatin1String("hidden"))
            list->hide();
        else if (what == QLatin1String("row gone"))
            others.item(2)->removeRow(0);
        else if (what == QLatin1String("reset"))
            others.clear();
        else if (what == QLatin1String("scrolled"))
            list->verticalScrollBar()->setValue(60);
        else if (what == QLatin1String("escape"))
            QTest::keyClick(list.get(), Qt::Key_Escape);
        else if (what == QLatin1String("moved"))
            list->move(list->pos() + QPoint(20, 0));
        else if (what == QLatin1String("minimised"))
            list->showMinimized();
        else if (what == QLatin1String("closed"))
            list->close();
        else if (what == QLatin1String("destroyed"))
            list.reset();
        else if (what == QLatin1String("collapsed"))
            list->collapse(others.index(2, 0));
        QCOMPARE(f.state(), HoverStates::Closed);
        QCOMPARE(f.actions.calls.size(), 2);
        QCOMPARE(f.last(), hidden);
    }

    void escapeIsTheCardsOnlyOnce()
    {
        Fixture f;
        f.list.selectAll();
        f.list.setSelectionMode(QAbstractItemView::ExtendedSelection);
        f.list.selectAll();
        f.open(2);
        QTest::keyClick(&f.list, Qt::Key_Escape);
        QCOMPARE(f.list.selectionModel()->selectedRows().size(), People);
        QTest::keyClick(&f.list, Qt::Key_Escape);
        QVERIFY(f.list.selectionModel()->selectedRows().size() <= 1);
    }

    void clickedRowStaysQuietUntilItIsLeft()
    {
        Fixture f;
        f.open(2);
        f.list.press(2);
        f.list.release(2);
        f.list.moveTo(2);
        QCOMPARE(f.state(), HoverStates::Closed);
        f.list.moveTo(3);
        f.list.moveTo(2);
        QCOMPARE(f.state(), HoverStates::Resting);
    }

    void wheelBeginsANewRest()
    {
        Fixture f;
        f.open(2);
        const QPoint at = f.list.middle(2);
        f.list.wheel(2, -240);
        QCOMPARE(f.last(), hidden);
        QCOMPARE(f.state(), HoverStates::Resting);
        const int under = f.list.indexAt(at).row();
        QVERIFY(under > 2);
        QTRY_COMPARE(f.last(), f.shown(under));
    }

    // What is over the rows may keep the pointer's moves from the list.
    void pointerOnAWidgetOverTheRows()
    {
        Fixture f;
        QWidget over(f.list.viewport());
        over.setGeometry(0, 100, 100, 20);
        over.show();
        f.open(2);
        QTest::mouseMove(&over, QPoint(5, 5));
        QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), over.mapToGlobal(QPoint(5, 5)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&over, &move);
        QCOMPARE(f.state(), HoverStates::Closing);
    }

    void rowStaysWhileItsCardIsOpen()
    {
        Fixture f;
        QVector<bool> held;
        connect(&f.list, &RowView::orderHeld, this, [&held](bool hold) { held.append(hold); });
        f.open(2);
        CardHover::instance().setPointerOnCard(true);
        f.list.leave();
        QCOMPARE(held, QVector<bool>{true});
        CardHover::instance().setPointerOnCard(false);
        QTRY_COMPARE(held, (QVector<bool>{true, false}));
    }

    void detailsByKey()
    {
        Fixture f;
        f.list.setCurrentIndex(f.people.index(0, 0));
        QTest::keyClick(&f.list, Qt::Key_I, Qt::ControlModifier);
        QVERIFY(f.actions.calls.isEmpty());
        f.list.setCurrentIndex(f.people.index(4, 0));
        QTest::keyClick(&f.list, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(f.actions.calls,
                 QStringList{QStringLiteral("openContactDetail ") + PeopleList::person(4)});
        f.actions.detailOpens = false;
        QTest::keyClick(&f.list, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(f.actions.calls.size(), 1);
    }
};

FRIENDUI_TEST(TstHoverList)
#include "tst_hoverlist.moc"
