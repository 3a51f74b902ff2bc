// The floating card: from the end of the rest to its first paint for a profile that the
// host knows, against a frame and against a bare widget with as many labels; and what a
// pointer that crosses the rows asks for.
#include "bench/support/ratio.h"
#include "common/context.h"
#include "contacts/assembly.h"
#include "controls/cardhover.h"
#include "controls/rowview.h"
#include "detail/csignex.h"
#include "detail/csignmanager.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "plugin/frienduimessageprocess.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QThread>
#include <QVBoxLayout>

#include <memory>

namespace {
constexpr int Cards = 50;
constexpr int Crossed = 200;
constexpr int CrossingMs = 2000;
constexpr double FrameMs = 16.7;

QString jidOf(int person)
{
    return QStringLiteral("u%1@corp.example").arg(person);
}

// Knows everybody's profile; its person is logged in.
class Host : public ApplicationContext
{
public:
    Host() : m_previous(hostContext()) { setHostContext(this); }
    ~Host() override { setHostContext(m_previous); }

    QString userId() const override { return QStringLiteral("me"); }
    QString serverDomain() const override { return QStringLiteral("corp.example"); }
    bool vcard(const QString &jid, VcardInfo *out) const override
    {
        out->jid = jid;
        out->userName = jid.section(QLatin1Char('@'), 0, 0);
        out->nickName = QString::fromUtf8("王晓明") + out->userName;
        out->sign = QString::fromUtf8("保持热爱，奔赴山海");
        out->orgName = QString::fromUtf8("产品研发部");
        out->duty = QString::fromUtf8("高级产品经理");
        out->mobile = QStringLiteral("13800000001");
        out->personalMobile = QStringLiteral("13900000002");
        out->otherPhone = QStringLiteral("8021");
        out->email = out->userName + QStringLiteral("@mail.example");
        out->locality = QString::fromUtf8("南京");
        out->leaderName = QString::fromUtf8("李明朗");
        return true;
    }

private:
    ApplicationContext *m_previous;
};

// Whether all of a window has been painted: its own ground and, after it, its parts.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget *window) : m_window(window) { qApp->installEventFilter(this); }

    // Lets what is waiting happen until then; false when nothing is ever painted.
    bool wait()
    {
        QElapsedTimer clock;
        clock.start();
        while (m_parts == 0 && clock.elapsed() < 1000)
            QApplication::processEvents();
        return m_parts > 0;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() && watched != m_window &&
            m_window->isAncestorOf(static_cast<QWidget *>(watched)))
            ++m_parts;
        return false;
    }

private:
    QWidget *m_window;
    int m_parts = 0;
};

// The wall clock of one show until the window has been painted, in ms; negative when it
// is not shown.
template <class Show> double untilPainted(Show &&show)
{
    QElapsedTimer clock;
    clock.start();
    QWidget *window = show();
    if (!window || !window->isVisible())
        return -1;
    PaintWatch watch(window);
    window->repaint();
    return watch.wait() ? double(clock.nsecsElapsed()) / 1e6 : -1;
}

// The mean of many. The first is not counted: it makes what is kept.
template <class Show, class Hide> double meanUntilPainted(Show &&show, Hide &&hide)
{
    double total = 0;
    for (int i = 0; i <= Cards; ++i) {
        const double time = untilPainted([&] { return show(i); });
        if (time < 0)
            return time;
        if (i > 0)
            total += time;
        hide();
        QApplication::processEvents();
    }
    return total / Cards;
}

double cards()
{
    const Host host;
    CSignManager *manager = CSignManager::instance();
    return meanUntilPainted(
        [manager](int i) -> QWidget * {
            manager->showCard(jidOf(i), 300, 100, 240, false);
            return manager->card();
        },
        [manager] { manager->hideCard(QString()); });
}

double firstCard()
{
    const Host host;
    CSignManager *manager = CSignManager::instance();
    delete manager->card();
    const double time = untilPainted([manager]() -> QWidget * {
        manager->showCard(jidOf(0), 300, 100, 240, false);
        return manager->card();
    });
    manager->hideCard(QString());
    return time;
}

double bareLabels()
{
    const Host host;
    CSignManager *manager = CSignManager::instance();
    manager->showCard(jidOf(0), 300, 100, 240, false);
    const int count = manager->card()->findChildren<QLabel *>().size();
    const QSize size = manager->card()->size();
    manager->hideCard(QString());
    QWidget window(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.setFixedSize(size);
    auto *layout = new QVBoxLayout(&window);
    layout->setSpacing(0);
    QVector<QLabel *> labels;
    for (int i = 0; i < count; ++i) {
        labels.append(new QLabel(&window));
        layout->addWidget(labels.last());
    }
    return meanUntilPainted(
        [&](int i) -> QWidget * {
            for (QLabel *label : labels)
                label->setText(QString::fromUtf8("产品研发部 ") + QString::number(i));
            window.show();
            return &window;
        },
        [&window] { window.hide(); });
}

// --- Rows that the pointer crosses -------------------------------------------------

class PeopleList : public RowView
{
public:
    using RowView::RowView;

protected:
    QString cardJid(const QModelIndex &index) const override { return index.data().toString(); }
};

// The plug-in's requests for profiles.
class Requests : public QObject
{
public:
    Requests() { FriendUIMessageProcess::instance()->setHostReceiver(this); }
    ~Requests() override { FriendUIMessageProcess::instance()->setHostReceiver(nullptr); }

    int count = 0;

protected:
    void customEvent(QEvent *event) override
    {
        if (static_cast<BaseEvent *>(event)->code == Outbound::RequestProfile)
            ++count;
    }
};

// Cards and requests for a pointer that takes two seconds for 200 rows.
double askedWhileCrossing()
{
    const Host host;
    const Requests requests;
    assemblePane();
    QStandardItemModel people;
    for (int i = 0; i < Crossed; ++i)
        people.appendRow(new QStandardItem(jidOf(i)));
    PeopleList list(&people, Qt::DisplayRole);
    list.resize(240, 6000);
    list.show();
    QApplication::setActiveWindow(&list);
    QApplication::processEvents();
    CSignManager *manager = CSignManager::instance();
    double asked = 0;
    for (int i = 0; i < Crossed; ++i) {
        const QPoint at = list.visualRect(people.index(i, 0)).center();
        QMouseEvent move(QEvent::MouseMove, at, list.viewport()->mapToGlobal(at), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &move);
        QThread::msleep(CrossingMs / Crossed);
        QApplication::processEvents();
        asked += manager->jid().isEmpty() ? 0 : 1;
    }
    asked += requests.count;
    // It was no accident: the pointer stays on the last row, whose card then opens.
    QElapsedTimer clock;
    clock.start();
    while (manager->jid().isEmpty() && clock.elapsed() < 2 * HoverStates::RestTime)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const bool opened = manager->jid() == jidOf(Crossed - 1) && requests.count == 1;
    manager->hideCard(QString());
    return opened ? asked : -1;
}

const bool registered[] = {
    Ratio::add({"The card of a known person, from the rest's end to the first paint", "card",
                Ratio::atMost(FrameMs), "ms"},
               [] {
                   return Ratio::Pair{cards, {}};
               }),
    Ratio::add(
        {"The first card of a process, its widgets made", "card", Ratio::atMost(FrameMs), "ms", 3},
        [] {
            return Ratio::Pair{firstCard, {}};
        }),
    Ratio::add({"The card of a known person, a bare window with as many labels", "card",
                Ratio::atMostTimes(3), "ms"},
               [] {
                   return Ratio::Pair{cards, bareLabels};
               }),
    Ratio::add(
        {"Cards for 200 rows crossed in two seconds", "crossing", Ratio::atMost(0), "cards", 1},
        [] {
            return Ratio::Pair{askedWhileCrossing, {}};
        }),
};

} // namespace
