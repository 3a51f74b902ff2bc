#include "host/tour/tourdriver.h"

#include "common/terminal.h"
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/tourstage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {
constexpr int TickMs = 10;
constexpr int TicksToSettle = 3;
// Far longer than anything takes: a slow machine is no fault.
constexpr int MoveDeadlineMs = 90000;
constexpr int ChildDeadlineMs = 300000;
constexpr int AgainMs = 3000;
constexpr int PatienceMs = 15000; // then it is told what is waited for

struct Look
{
    const char *folder, *skin, *language;
};
constexpr Look looks[] = {{"zh-light", "light", "zh_CN"},
                          {"zh-dark", "dark", "zh_CN"},
                          {"en-light", "light", "en"},
                          {"en-dark", "dark", "en"}};

int heightOf(const QWidget *window)
{
    int height = window->windowType() == Qt::Popup ? 1000 : window->isActiveWindow() ? 1 : 0;
    for (const QWidget *under = window->parentWidget(); under; under = under->parentWidget())
        height += under->isWindow() ? 2 : 0;
    return height;
}
} // namespace

TourDriver::TourDriver(TourStage *stage, const QString &folder, const QStringList &only,
                       QObject *parent)
    : QObject(parent), m_stage(stage), m_folder(folder)
{
    int number = 0;
    for (const TourStep &step : tourSteps()) {
        ++number;
        if (only.isEmpty() ? true : only.contains(QLatin1String(step.name)))
            m_steps.push_back({&step, number});
    }
    connect(&m_ticker, &QTimer::timeout, this, &TourDriver::tick);
}

void TourDriver::start()
{
    beginStep();
    m_ticker.start(TickMs);
}

QString TourDriver::pictureFile(const QString &folder) const
{
    const Chosen &chosen = m_steps[m_step];
    return QDir(folder).filePath(
        QStringLiteral("%1-%2%3.png")
            .arg(chosen.number, 2, 10, QLatin1Char('0'))
            .arg(QLatin1String(chosen.step->name), QLatin1String(m_stepFailed ? ".failed" : "")));
}

void TourDriver::beginStep()
{
    m_move = 0;
    m_childRunning = false;
    m_turning = false;
    m_stepFailed = false;
    beginMove();
}

void TourDriver::beginMove()
{
    m_acted = false;
    m_isTold = false;
    m_since.start();
}

void TourDriver::tick()
{
    if (m_step >= m_steps.size()) {
        m_ticker.stop();
        emit finished();
        return;
    }
    if (m_turning) {
        nextLook();
        return;
    }
    const TourStep &step = *m_steps[m_step].step;
    // A child process shows the step alone; there it is driven as any other.
    const bool isChild = qEnvironmentVariableIsSet("FRIENDUI_TOUR_CHILD");
    if (step.ownProcess() && !isChild) {
        if (!m_childRunning)
            runOwnProcess();
        return;
    }
    if (step.need == TourStep::Pane && !m_stage->host().hasPane()) {
        fail(QStringLiteral("there is no pane"));
        return;
    }
    if (m_move >= step.moves.size()) {
        endStep();
        return;
    }
    const TourMove &move = step.moves[m_move];
    if (!m_acted) {
        m_acted = true;
        m_since.start();
        act(move);
        return;
    }
    if (!move.until || move.until(*m_stage)) {
        ++m_move;
        beginMove();
    } else if (m_since.elapsed() > MoveDeadlineMs) {
        fail(QStringLiteral("%1: not within %2 s")
                 .arg(QLatin1String(move.what))
                 .arg(MoveDeadlineMs / 1000));
    } else if (m_since.elapsed() > PatienceMs && !m_isTold) {
        m_isTold = true;
        Terminal::complain(QStringLiteral("tour: %1 still waits: %2\n")
                               .arg(QLatin1String(step.name), QLatin1String(move.what)));
    } else if (move.again && m_sinceAct.elapsed() > AgainMs) {
        act(move);
    }
}

// Queued: an action that opens a modal dialog returns only when that closes, and the ticks
// must go on meanwhile.
void TourDriver::act(const TourMove &move)
{
    m_sinceAct.start();
    if (move.act)
        QMetaObject::invokeMethod(
            this, [this, &move] { move.act(*m_stage); }, Qt::QueuedConnection);
}

void TourDriver::fail(const QString &why)
{
    m_stepFailed = true;
    tellFailure(QStringLiteral("%1: %2").arg(QLatin1String(m_steps[m_step].step->name), why));
    endStep();
}

void TourDriver::tellFailure(const QString &failure)
{
    m_failures.append(failure);
    Terminal::complain(QStringLiteral("tour: FAILED %1\n").arg(failure));
}

void TourDriver::endStep()
{
    // A process of its own has left the pictures itself.
    if (!m_childRunning) {
        forgetEarlierPictures();
        savePicture(pictureFile(m_folder));
        if (!m_stepFailed && m_stage->host().hasPane()) {
            m_skin = m_stage->window().skin();
            m_language = m_stage->window().language();
            m_look = 0;
            m_turning = true;
            return;
        }
        m_stage->closeEverything();
    }
    ++m_step;
    if (m_step < m_steps.size())
        beginStep();
}

// Ticks lie between a change and its picture: in them everything is laid out anew.
void TourDriver::nextLook()
{
    if (m_look > 0 && ++m_settled < TicksToSettle)
        return;
    m_settled = 0;
    MainWindow &window = m_stage->window();
    if (m_look > 0)
        savePicture(
            pictureFile(m_folder + QLatin1Char('/') + QLatin1String(looks[m_look - 1].folder)));
    const bool isOver = m_look == std::size(looks);
    window.setSkin(isOver ? m_skin : QLatin1String(looks[m_look].skin));
    window.setLanguage(isOver ? m_language : QLatin1String(looks[m_look].language));
    ++m_look;
    if (!isOver)
        return;
    m_turning = false;
    m_stage->closeEverything();
    ++m_step;
    if (m_step < m_steps.size())
        beginStep();
}

// Of a tour before, which may have ended otherwise.
void TourDriver::forgetEarlierPictures()
{
    const QString stem = QString::fromLatin1(m_steps[m_step].step->name);
    QStringList folders{m_folder};
    for (const Look &look : looks)
        folders.append(m_folder + QLatin1Char('/') + QLatin1String(look.folder));
    const QRegularExpression ofStep(QStringLiteral("^[0-9]+-%1(\\.failed)?\\.png$").arg(stem));
    for (const QString &folder : folders) {
        const QStringList earlier = QDir(folder).entryList(QDir::Files).filter(ofStep);
        for (const QString &name : earlier)
            QFile::remove(QDir(folder).filePath(name));
    }
}

void TourDriver::savePicture(const QString &file)
{
    QDir().mkpath(QFileInfo(file).path());
    if (picture(&m_stage->window()).save(file)) {
        Terminal::say(QStringLiteral("tour: %1\n").arg(file));
    } else {
        tellFailure(QStringLiteral("%1 cannot be written").arg(file));
    }
}

void TourDriver::runOwnProcess()
{
    m_childRunning = true;
    const TourStep &step = *m_steps[m_step].step;
    auto *child = new QProcess(this);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("FRIENDUI_TOUR_CHILD"), QStringLiteral("1"));
    for (const QString &entry : step.environment)
        environment.insert(entry.section(QLatin1Char('='), 0, 0),
                           entry.section(QLatin1Char('='), 1));
    child->setProcessEnvironment(environment);
    child->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const auto end = [this, child](const QString &problem) {
        child->disconnect(this);
        child->kill();
        child->deleteLater();
        if (problem.isEmpty())
            endStep();
        else
            fail(QStringLiteral("its own process ") + problem);
    };
    connect(child, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [end](int code, QProcess::ExitStatus status) {
                if (status == QProcess::NormalExit)
                    end(code == 0 ? QString() : QStringLiteral("ended with %1").arg(code));
            });
    connect(child, &QProcess::errorOccurred, this,
            [end, child] { end(QStringLiteral("failed: ") + child->errorString()); });
    QTimer::singleShot(ChildDeadlineMs, child, [end] {
        end(QStringLiteral("did not end within %1 s").arg(ChildDeadlineMs / 1000));
    });
    child->start(QCoreApplication::applicationFilePath(),
                 QStringList{QStringLiteral("--tour"), m_folder, QStringLiteral("--tour-steps"),
                             QLatin1String(step.name)} +
                     m_stage->host().tourArguments() + step.arguments);
}

QImage TourDriver::picture(QWidget *window)
{
    QWidgetList shown{window};
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget != window && widget->isVisible() && widget->isWindow())
            shown.append(widget);
    }
    // A window is over the one that it was opened from, and a menu over all.
    std::stable_sort(shown.begin() + 1, shown.end(), [](const QWidget *one, const QWidget *other) {
        return heightOf(one) < heightOf(other);
    });
    QRect all;
    for (const QWidget *widget : shown)
        all |= QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());

    const qreal ratio = window->devicePixelRatioF();
    QImage image(all.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(128, 132, 138));
    QPainter painter(&image);
    for (QWidget *widget : shown) {
        const QRect place(widget->mapToGlobal(QPoint(0, 0)) - all.topLeft(), widget->size());
        painter.drawPixmap(place.topLeft(), widget->grab());
        // Without a window manager nothing else tells a dialog from what lies
        // below it.
        if (widget != window) {
            painter.setPen(QColor(128, 132, 138));
            painter.drawRect(place.adjusted(-1, -1, 0, 0));
        }
    }
    return image;
}
