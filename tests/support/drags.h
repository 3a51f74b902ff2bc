// Real drags of rows, on the platform plug-in "minimal", where a drag has its own event
// loop; on "offscreen" it ends at once.
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QDrag>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWindow>

// Where a row is, in the window of the view.
inline QPoint placeInWindow(const QAbstractItemView *view, const QModelIndex &index)
{
    return view->viewport()->mapTo(view->window(), view->visualRect(index).center());
}

// Drags a row; `meanwhile` runs in the drag's event loop and must end it. False: no drag
// has begun.
template <class Function>
bool dragRow(QAbstractItemView *view, const QModelIndex &row, Function meanwhile)
{
    bool started = false;
    const QPointer<QAbstractItemView> dragged(view);
    QWindow *window = view->window()->windowHandle();
    const QPoint from = placeInWindow(view, row);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (started || !dragged || !dragged->findChild<QDrag *>())
            return;
        started = true;
        meanwhile();
    });
    poll.start(0);
    // A row that is selected already stays so, with the others, while the button is down.
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
    const int distance = QApplication::startDragDistance() + 1;
    for (int i = 1; i < 4 && !started; ++i)
        QTest::mouseMove(window, from + QPoint(i * distance, 0));
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    if (!started) // Nobody else lets go of the button.
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, from);
    return started;
}
