#include "host/tour/tourdriver.h"

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
#include <cstdio>
#include <iterator>

namespace {
constexpr int TickMs = 10;
constexpr int TicksToSettle = 3;
constexpr int MoveDeadlineMs = 15000;
constexpr int ChildDeadlineMs = 90000;

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
        // Queued: an action that opens a modal dialog returns only when that
        // closes, and the ticks must go on meanwhile.
        if (move.act)
            QMetaObject::invokeMethod(
                this, [this, &move] { move.act(*m_stage); }, Qt::QueuedConnection);
        return;
    }
    if (!move.until || move.until(*m_stage)) {
        ++m_move;
        beginMove();
    } else if (m_since.elapsed() > MoveDeadlineMs) {
        fail(QStringLiteral("%1: not within %2 s")
                 .arg(QLatin1String(move.what))
                 .arg(MoveDeadlineMs / 1000));
    }
}

void TourDriver::fail(const QString &why)
{
    const QString line =
        QStringLiteral("%1: %2").arg(QLatin1String(m_steps[m_step].step->name), why);
    m_stepFailed = true;
    m_failures.append(line);
    std::fprintf(stderr, "tour: FAILED %s\n", qPrintable(line));
    endStep();
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
        std::fprintf(stdout, "tour: %s\n", qPrintable(file));
        std::fflush(stdout);
    } else {
        m_failures.append(QStringLiteral("%1 cannot be written").arg(file));
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
    const auto end = [this, child](bool ok) {
        child->disconnect(this);
        child->kill();
        child->deleteLater();
        if (ok)
            endStep();
        else
            fail(QStringLiteral("its own process did not succeed"));
    };
    connect(child, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [end](int code, QProcess::ExitStatus status) {
                end(status == QProcess::NormalExit && code == 0);
            });
    connect(child, &QProcess::errorOccurred, this, [end] { end(false); });
    QTimer::singleShot(ChildDeadlineMs, child, [end] { end(false); });
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
