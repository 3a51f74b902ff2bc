// The drag of people's rows inside one list. Who is dragged stays in the view; the
// drag's data is a mere marker.
#pragma once

#include <QDrag>
#include <QDropEvent>

class QWidget;

class MyDrag : public QDrag
{
    Q_OBJECT

public:
    // `source` is the view.
    explicit MyDrag(QWidget *source);

    // What goes along with the pointer: one of the people, and how many they are.
    void showPeople(const QString &name, int count);

    // Runs the drag until it ends and tells the outcome. Deletes itself later.
    void run();

    // Where the drop went: the target group's id. Called by the view that takes
    // the drop, before run() returns.
    void setTarget(const QString &groupId);

    // Whether an event belongs to a drag that began in the view of `viewport`.
    static bool isFrom(const QDropEvent *event, const QWidget *viewport);

signals:
    // candrag: the drop was taken; parameter: the target group's id.
    void signal_dropEnd(bool candrag, QString parameter);

private:
    bool m_taken = false;
    QString m_target;
};
