// Renders SVG sources to PNG files of their own size and of twice that size.
//   renderpictures SOURCES TARGET        every SOURCES/a/b.svg to TARGET/a/b.png, b@2x.png
//   renderpictures --frames N FILE TARGET SIZE
//       N pictures of FILE, each turned a further Nth of a circle: TARGET/frame-00.png ...
#include <QDir>
#include <QDirIterator>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {
// System pictures are photographs to the code, scaled by it: one size is enough.
const auto PhotoFolder = QStringLiteral("SystemAvatar/");

QImage render(QSvgRenderer &renderer, const QSize &size, qreal degrees = 0)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(size.width() / 2.0, size.height() / 2.0);
    painter.rotate(degrees);
    painter.translate(-size.width() / 2.0, -size.height() / 2.0);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

bool save(const QImage &image, const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    if (image.save(path, "PNG", 0))
        return true;
    std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    return false;
}

bool renderTree(const QString &sources, const QString &target)
{
    bool ok = true;
    QDirIterator files(sources, {QStringLiteral("*.svg")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        QSvgRenderer renderer(file);
        if (!renderer.isValid()) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(file));
            ok = false;
            continue;
        }
        const QString relative = QDir(sources).relativeFilePath(file);
        const QString base = target + QLatin1Char('/') + relative.chopped(4);
        ok &= save(render(renderer, renderer.defaultSize()), base + QStringLiteral(".png"));
        if (!relative.startsWith(PhotoFolder))
            ok &= save(render(renderer, renderer.defaultSize() * 2),
                       base + QStringLiteral("@2x.png"));
    }
    return ok;
}

bool renderFrames(int count, const QString &file, const QString &target, int size)
{
    QSvgRenderer renderer(file);
    bool ok = renderer.isValid() && count > 0 && size > 0;
    for (int i = 0; ok && i < count; ++i) {
        const auto name = QStringLiteral("/frame-%1.png").arg(i, 2, 10, QLatin1Char('0'));
        ok = save(render(renderer, QSize(size, size), 360.0 * i / count), target + name);
    }
    return ok;
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() == 6 && arguments.at(1) == QLatin1String("--frames"))
        return renderFrames(arguments.at(2).toInt(), arguments.at(3), arguments.at(4),
                            arguments.at(5).toInt())
                   ? 0
                   : 1;
    if (arguments.size() == 3)
        return renderTree(QDir(arguments.at(1)).absolutePath(), arguments.at(2)) ? 0 : 1;
    std::fprintf(stderr, "usage: see the head of renderpictures.cpp\n");
    return 2;
}
