#include "controls/avatarstore.h"

#include "controls/pictures.h"
#include "controls/skin.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QRunnable>
#include <QTextBoundaryFinder>
#include <QtMath>

namespace {

constexpr int CacheKilobytes = 16 * 1024;

QString cacheKey(const QString &what, int size, qreal pixelRatio)
{
    return what + QLatin1Char('|') + QString::number(size) + QLatin1Char('|') +
           QString::number(pixelRatio);
}

int costInKilobytes(const QPixmap &pixmap)
{
    return 1 + pixmap.width() * pixmap.height() * 4 / 1024;
}

// By id, not by name: the colour stays when a contact is renamed.
QColor colorOf(const QString &id)
{
    static const QColor colors[] = {QColor(58, 110, 226), QColor(14, 131, 136), QColor(176, 88, 20),
                                    QColor(136, 80, 200), QColor(40, 130, 70),  QColor(196, 60, 96),
                                    QColor(84, 98, 122),  QColor(150, 108, 0)};
    const QByteArray hash = QCryptographicHash::hash(id.toUtf8(), QCryptographicHash::Md5);
    return colors[quint8(hash.at(0)) % std::size(colors)];
}

bool isChinese(QChar c)
{
    return c.script() == QChar::Script_Han;
}

class DecodeTask : public QRunnable
{
public:
    DecodeTask(const QString &file, int pixels, std::function<void(const QImage &)> done)
        : m_file(file), m_pixels(pixels), m_done(std::move(done))
    {
    }
    void run() override { m_done(AvatarStore::load(m_file, m_pixels)); }

private:
    QString m_file;
    int m_pixels;
    std::function<void(const QImage &)> m_done;
};

} // namespace

AvatarStore &AvatarStore::instance()
{
    static auto *avatars = new AvatarStore;
    return *avatars;
}

AvatarStore::AvatarStore() : m_cache(CacheKilobytes)
{
    m_pool.setMaxThreadCount(1);
    // A picture that is decoded while the process takes itself apart would find its
    // reader gone.
    qAddPostRoutine([] {
        instance().m_pool.clear();
        instance().m_pool.waitForDone();
    });
}

QPixmap AvatarStore::avatar(const QString &file, const QString &id, const QString &name, int size,
                            qreal pixelRatio)
{
    const QPixmap known = picture(file, size, pixelRatio);
    return known.isNull() ? generated(id, name, size, pixelRatio) : known;
}

QPixmap AvatarStore::picture(const QString &file, int size, qreal pixelRatio)
{
    if (file.isEmpty())
        return QPixmap();
    const QString key = cacheKey(file, size, pixelRatio);
    if (const QPixmap *known = m_cache.object(key))
        return *known;
    if (!m_pending.contains(key))
        decode(file, key, size, pixelRatio);
    return QPixmap();
}

QPixmap AvatarStore::groupPortrait(const QString &file, int size, qreal pixelRatio)
{
    const QPixmap own = picture(file, size, pixelRatio);
    return own.isNull() ? loadRoundPicture(
                              QStringLiteral("Resources/images/SysTrayIcon/ic_portrait_group.png"),
                              size, pixelRatio)
                        : own;
}

void AvatarStore::refresh(const QString &file)
{
    const QString prefix = file + QLatin1Char('|');
    const QList<QString> keys = m_cache.keys();
    for (const QString &key : keys) {
        if (key.startsWith(prefix))
            m_cache.remove(key);
    }
    // What is being decoded may still be the old file; it is asked for again and
    // comes after that.
    const QSet<QString> pending = m_pending;
    for (const QString &key : pending) {
        if (key.startsWith(prefix))
            m_pending.remove(key);
    }
}

void AvatarStore::decode(const QString &file, const QString &key, int size, qreal pixelRatio)
{
    m_pending.insert(key);
    const int pixels = qCeil(size * pixelRatio);
    m_pool.start(new DecodeTask(file, pixels, [=](const QImage &image) {
        QMetaObject::invokeMethod(
            this, [=] { store(file, key, image, pixelRatio); }, Qt::QueuedConnection);
    }));
}

void AvatarStore::store(const QString &file, const QString &key, const QImage &image,
                        qreal pixelRatio)
{
    m_pending.remove(key);
    auto *pixmap = new QPixmap;
    if (!image.isNull()) {
        *pixmap = rounded(QPixmap::fromImage(image));
        pixmap->setDevicePixelRatio(pixelRatio);
    }
    m_cache.insert(key, pixmap, costInKilobytes(*pixmap));
    emit pictureReady(file);
}

QImage AvatarStore::load(const QString &file, int pixels)
{
    if (QFileInfo(file).size() > MaximumFileSize)
        return QImage();
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    static const QList<QByteArray> formats{"png", "jpeg", "jpg", "gif", "bmp"};
    if (!reader.canRead() || !formats.contains(reader.format()))
        return QImage();
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > MaximumSide || size.height() > MaximumSide ||
        qint64(size.width()) * size.height() > MaximumPixels)
        return QImage();
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull())
        return image;
    // Cut before it is scaled: a picture of one line would grow to a huge one.
    const int side = qMin(image.width(), image.height());
    return image.copy((image.width() - side) / 2, (image.height() - side) / 2, side, side)
        .scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QString AvatarStore::monogram(const QString &name)
{
    // A display text may be isolated from what is read in the other direction.
    const QString text = name.left(64).remove(QChar(0x2068)).remove(QChar(0x2069)).simplified();
    if (text.isEmpty())
        return QStringLiteral("?");
    if (isChinese(text.at(text.size() - 1)))
        return text.size() > 1 && isChinese(text.at(text.size() - 2)) ? text.right(2)
                                                                      : text.right(1);
    QString letters;
    const QStringList words = text.split(QLatin1Char(' '));
    for (const QString &word : words) {
        QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, word);
        const int end = graphemes.toNextBoundary();
        const QString first = word.left(qMin(end, 4));
        if (!first.isEmpty() && first.at(0).isLetterOrNumber())
            letters += first.toUpper();
        if (letters.size() >= 2)
            break;
    }
    return letters.isEmpty() ? text.left(1) : letters;
}

QPixmap AvatarStore::generated(const QString &id, const QString &name, int size, qreal pixelRatio)
{
    const QString letters = monogram(name);
    const QString key =
        cacheKey(QLatin1Char('\1') + id + QLatin1Char('\1') + letters, size, pixelRatio);
    if (const QPixmap *known = m_cache.object(key))
        return *known;
    const int pixels = qCeil(size * pixelRatio);
    auto *pixmap = new QPixmap(pixels, pixels);
    pixmap->fill(Qt::transparent);
    QPainter painter(pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorOf(id));
    painter.drawEllipse(pixmap->rect());
    painter.setPen(Qt::white);
    painter.setFont(skinFont(qMax(1, pixels * 2 / 5)));
    painter.drawText(pixmap->rect(), Qt::AlignCenter, letters);
    painter.end();
    pixmap->setDevicePixelRatio(pixelRatio);
    const QPixmap result = *pixmap;
    m_cache.insert(key, pixmap, costInKilobytes(result));
    return result;
}
