// The editor of the own picture with a photograph of 24 megapixels.
#include "bench/support/ratio.h"
#include "detail/avatar/editavatar.h"
#include "detail/avatar/imagecutlabel.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QImageReader>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize Photograph(6000, 4000);

// Fine structure over large areas, as a camera sees it: about a byte for two pixels.
const QString &photograph()
{
    static const QTemporaryDir folder;
    static const QString file = [] {
        QImage image(Photograph, QImage::Format_RGB32);
        QRandomGenerator random(7);
        for (int y = 0; y < image.height(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                const double wave = std::sin(x * 0.003) * std::cos(y * 0.004) * 70;
                const int grain = int(random.generate() & 15);
                const int light = 120 + int(wave) + grain;
                line[x] = qRgb(light, light - 20, 200 - light / 2);
            }
        }
        const QString path = folder.filePath(QStringLiteral("photograph.jpg"));
        image.save(path, "jpg", 90);
        return path;
    }();
    return file;
}

// The dialog with the photograph in it.
class Opened
{
public:
    Opened()
    {
        m_dialog.setAttribute(Qt::WA_DeleteOnClose, false);
        m_dialog.init();
        m_dialog.present();
        QApplication::processEvents();
        m_cut = m_dialog.findChild<ImageCutLabel *>();
    }

    void open()
    {
        QEventLoop untilShown;
        QObject::connect(m_cut, &ImageCutLabel::signal_CurrentPixmap, &untilShown,
                         &QEventLoop::quit);
        m_dialog.loadLocalImage(photograph());
        untilShown.exec();
        m_dialog.repaint();
    }
    ImageCutLabel *cut() const { return m_cut; }

    // As the pointer does it, with what is painted because of it.
    void press(const QPoint &at)
    {
        send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    }
    void drag(const QPoint &to)
    {
        send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
        QApplication::processEvents();
        QApplication::sendPostedEvents();
    }

private:
    void send(QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, at, button, buttons, Qt::NoModifier);
        QApplication::sendEvent(m_cut, &event);
    }

    EditAvatar m_dialog;
    ImageCutLabel *m_cut;
};

double openOurs()
{
    photograph();
    Opened opened;
    return Ratio::cpuPerUnit(1, [&] { opened.open(); });
}

double decode()
{
    photograph();
    return Ratio::cpuPerUnit(1, [] {
        QImageReader reader(photograph());
        reader.setAutoTransform(true);
        const QImage image = reader.read();
        benchmark::DoNotOptimize(image.constBits());
    });
}

// The frame as large as the picture allows: the most that there is to cut out.
double dragOurs()
{
    constexpr int Moves = 200;
    Opened opened;
    opened.open();
    const QRect area = opened.cut()->rect();
    opened.press(area.center() + QPoint(49, 49)); // the corner of the frame
    opened.drag(area.bottomRight());
    opened.press(area.center());
    double longest = 0;
    for (int i = 0; i < Moves; ++i) {
        const QPoint to = area.center() + QPoint(i % 2 ? 40 : -40 + i % 7, i % 5 - 2);
        const double cost = Ratio::cpuPerUnit(1, [&] { opened.drag(to); });
        longest = std::max(longest, cost);
    }
    return longest / 1e6;
}

// A line such as "VmHWM:   1234 kB", in megabytes.
double memory(const char *what)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(what))
            return line.mid(int(qstrlen(what)) + 1).simplified().split(' ').first().toDouble() /
                   1000;
    }
    return -1;
}

double peak()
{
    photograph();
    Opened opened;
    QFile peaks(QStringLiteral("/proc/self/clear_refs"));
    if (!peaks.open(QIODevice::WriteOnly) || peaks.write("5") != 1 || !peaks.flush())
        return -1;
    const double before = memory("VmRSS");
    opened.open();
    return memory("VmHWM") - before;
}

constexpr double Frame = 1000.0 / 60; // ms

const bool registered[] = {
    Ratio::add({"Opening a 24-megapixel JPEG in the picture editor, QImageReader alone", "picture",
                Ratio::atMostTimes(1.3)},
               [] {
                   return Ratio::Pair{openOurs, decode};
               }),
    Ratio::add({"Longest move of the frame in it, repainted with both previews", "move",
                Ratio::atMost(Frame), "ms"},
               [] {
                   return Ratio::Pair{dragOurs, {}};
               }),
    Ratio::add({"Memory at its peak while it is opened", "picture", Ratio::atMost(125), "MB", 3},
               [] {
                   return Ratio::Pair{peak, {}};
               }),
};

} // namespace
