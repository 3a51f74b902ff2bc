// What every list does with pointer, keys and menus.
#include "controls/rowview.h"
#include "controls/skinmenu.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QScrollBar>
#include <QStringListModel>

namespace {

class List : public RowView
{
public:
    explicit List(QAbstractItemModel *model) : RowView(model, Qt::DisplayRole)
    {
        resize(240, 200);
        show();
        setFocus();
        QApplication::processEvents();
    }

    QPoint middle(int row) const { return visualRect(model()->index(row, 0)).center(); }
    QString current() const { return currentIndex().data().toString(); }
    // The pointer of the test platform moves for nobody.
    void pointer(QEvent::Type type)
    {
        QEvent event(type);
        QApplication::sendEvent(viewport(), &event);
    }
    // Where the menu of this event would be popped up.
    QPoint askMenu(QContextMenuEvent::Reason reason, const QPoint &pos)
    {
        QContextMenuEvent event(reason, pos, viewport()->mapToGlobal(pos));
        QApplication::sendEvent(viewport(), &event);
        return m_asked;
    }

    using RowView::popUp;
    using RowView::updateHold;
    bool dragged = false;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override { m_asked = menuPosition(*event); }
    bool isHolding() const override { return dragged; }

private:
    QPoint m_asked;
};

QStringList names(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(QStringLiteral("name %1").arg(i, 3, 10, QLatin1Char('0')));
    return list;
}

} // namespace

class TstRowView : public QObject
{
    Q_OBJECT

private slots:
    void orderIsHeld()
    {
        QStringListModel model(names(5));
        List list(&model);
        SkinMenu menu(QStringLiteral("menu"), nullptr);
        menu.addKey("viewdetail");
        QVector<bool> held;
        connect(&list, &RowView::orderHeld, this, [&held](bool hold) { held.append(hold); });

        list.pointer(QEvent::Enter);
        QTest::mouseMove(list.viewport(), list.middle(1));
        QCOMPARE(held, (QVector<bool>{true}));
        // The menu takes the pointer away from the list and goes on holding.
        list.popUp(&menu, list.middle(1));
        list.pointer(QEvent::Leave);
        QCOMPARE(held, (QVector<bool>{true}));
        bool heldForTheAction = false;
        connect(&menu, &QMenu::triggered, this, [&] { heldForTheAction = held.last(); });
        QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                          menu.actionGeometry(menu.action("viewdetail")).center());
        QVERIFY(heldForTheAction);
        QTRY_COMPARE(held, (QVector<bool>{true, false}));

        list.dragged = true;
        list.updateHold();
        list.pointer(QEvent::Enter);
        list.pointer(QEvent::Leave);
        list.dragged = false;
        list.updateHold();
        QCOMPARE(held, (QVector<bool>{true, false, true, false}));
    }

    // A menu that never comes, or goes without a word, holds nothing for ever.
    void menusThatVanish()
    {
        QStringListModel model(names(5));
        List list(&model);
        QSignalSpy held(&list, &RowView::orderHeld);
        auto *menu = new SkinMenu(QStringLiteral("menu"), &list);
        menu->addKey("viewdetail");
        list.popUp(menu, list.middle(1));
        QCOMPARE(held.count(), 1);
        delete menu;
        QTRY_COMPARE(held.count(), 2);
        QCOMPARE(held.last(), QVariantList{false});
    }

    void listGoesWhileItsMenuTells()
    {
        QStringListModel model(names(5));
        auto *list = new List(&model);
        QPointer<SkinMenu> menu = new SkinMenu(QStringLiteral("menu"), list);
        QAction *action = menu->addKey("viewdetail");
        connect(action, &QAction::triggered, this, [list] { delete list; });
        list->popUp(menu, list->middle(1));
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QTRY_VERIFY(!menu);
    }

    void menuByKey()
    {
        QStringListModel model(names(100));
        List list(&model);
        list.selectionModel()->clearCurrentIndex();
        const QPoint beside = list.askMenu(QContextMenuEvent::Keyboard, list.middle(0));
        QVERIFY(!list.indexAt(beside).isValid());
        list.setCurrentIndex(model.index(3, 0));
        list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
        const QPoint at = list.askMenu(QContextMenuEvent::Keyboard, QPoint(5, 5));
        QVERIFY(list.viewport()->rect().contains(at));
        QCOMPARE(list.indexAt(at).row(), 3);
    }

    void menuUnderThePointer()
    {
        QStringListModel model(names(5));
        List list(&model);
        list.setSelectionMode(QAbstractItemView::ExtendedSelection);
        const auto ask = [&list](int row) {
            list.askMenu(QContextMenuEvent::Mouse, list.middle(row));
            return list.selectionModel()->selectedRows().size();
        };
        list.setCurrentIndex(model.index(0, 0));
        QCOMPARE(ask(2), 1);
        QCOMPARE(list.currentIndex().row(), 2);
        // The menu of several is about all of them.
        list.selectionModel()->select(model.index(3, 0), QItemSelectionModel::Select);
        QCOMPARE(ask(3), 2);
        QTest::keyClick(&list, Qt::Key_Escape);
        QCOMPARE(list.selectionModel()->selectedRows(), QModelIndexList{model.index(2, 0)});
    }

    void activates()
    {
        QStringListModel model(names(5));
        List list(&model);
        QStringList activated;
        connect(&list, &RowView::activatedRow, this, [&activated](const QModelIndex &index) {
            activated.append(index.data().toString());
        });
        list.selectionModel()->clearCurrentIndex();
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(activated, QStringList());
        list.setCurrentIndex(model.index(4, 0));
        QTest::keyClick(&list, Qt::Key_Enter);
        const auto click = [&list](int row) {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.middle(row));
        };
        const auto secondClick = [&list](int row) {
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.middle(row));
        };
        click(1);
        secondClick(1);
        QCOMPARE(activated, QStringList({"name 004", "name 001"}));
        // Between the clicks the row was removed, and another stands there now.
        click(1);
        model.removeRow(1);
        QApplication::processEvents();
        secondClick(1);
        QCOMPARE(activated.size(), 2);
        QCOMPARE(list.current(), QStringLiteral("name 002"));
        // What it made current is a row like others.
        secondClick(1);
        QCOMPARE(activated.last(), QStringLiteral("name 002"));
        click(1);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 195));
        QCOMPARE(activated.size(), 3);
    }

    void typeToFind()
    {
        QStringList people = names(100);
        people[80] = QString::fromUtf8("张伟");
        QStringListModel model(people);
        List list(&model);
        QTest::keyClicks(&list, QStringLiteral("zw"));
        QCOMPARE(list.current(), people.at(80));
        const auto *label = list.findChild<QLabel *>(QStringLiteral("typeFinderLabel"));
        QVERIFY(label->isVisible());
        QVERIFY(!list.visualRect(list.currentIndex()).intersects(label->geometry()));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                          list.visualRect(list.currentIndex()).center());
        QVERIFY(!label->isVisible());
    }

    // Rows that come in above leave what one looks at where it is.
    void rowsStayInPlace()
    {
        QStringListModel model(names(100));
        List list(&model);
        list.scrollTo(model.index(50, 0), QAbstractItemView::PositionAtTop);
        QApplication::processEvents();
        const QPersistentModelIndex row = list.indexAt(QPoint(5, 60));
        const QRect before = list.visualRect(row);
        model.insertRows(3, 7);
        model.removeRows(20, 2);
        QApplication::processEvents();
        QCOMPARE(list.visualRect(row), before);
    }

    void look()
    {
        setSkin(QStringLiteral("default"));
        QStringListModel model(names(100));
        List list(&model);
        list.setCurrentIndex(model.index(2, 0));
        QTest::keyClicks(&list, QStringLiteral("name 00"));
        const QImage image = list.grab().toImage();
        keepPicture(image, QStringLiteral("rowview"));
        // Rows begin at the edge, without a column for carets, a header or a frame.
        QCOMPARE(list.visualRect(model.index(0, 0)).topLeft(), QPoint(0, 0));
        QCOMPARE(list.viewport()->rect().topLeft(), QPoint(0, 0));
        QVERIFY(!list.horizontalScrollBar()->isVisible());
        const QRgb around = image.pixel(120, list.visualRect(model.index(1, 0)).center().y());
        const QRgb chosen = image.pixel(120, list.visualRect(model.index(2, 0)).center().y());
        QVERIFY(around != chosen);
    }
};

FRIENDUI_TEST(TstRowView)
#include "tst_rowview.moc"
