#include "controls/avatarstore.h"

#include "common/externalpeople.h"
#include "common/postroutine.h"
#include "controls/pictures.h"
#include "controls/skin.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QRunnable>
#include <QTextBoundaryFinder>
#include <QtMath>

#include <algorithm>
#include <memory>

namespace {

constexpr int CacheKilobytes = 16 * 1024;

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

// Somebody outside the company is told from colleagues also by the look of a generated
// avatar: dark letters on a light ground with a rim, in a hue of its own.
constexpr QRgb OutsideGround = 0xffffecd6;
constexpr QRgb OutsideInk = 0xff824200;
constexpr qreal RimShare = 0.05; // of the side

void drawGround(QPainter *painter, const QRect &area, const QString &id, bool outside)
{
    painter->setRenderHint(QPainter::Antialiasing);
    if (!outside) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(colorOf(id));
        painter->drawEllipse(area);
        return;
    }
    const qreal rim = area.width() * RimShare;
    painter->setPen(QPen(QColor(OutsideInk), rim));
    painter->setBrush(QColor(OutsideGround));
    painter->drawEllipse(QRectF(area).adjusted(rim / 2, rim / 2, -rim / 2, -rim / 2));
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
    static const PostRoutine drain([] {
        instance().m_pool.clear();
        instance().m_pool.waitForDone();
    });
}

QPixmap AvatarStore::avatar(const QString &file, const QString &id, const QString &name, int size,
                            qreal pixelRatio)
{
    const QPixmap known = picture(file, size, pixelRatio);
    return known.isNull() ? generated(id, name, {size, pixelRatio}) : known;
}

QPixmap AvatarStore::picture(const QString &file, int size, qreal pixelRatio)
{
    return pictureIn({size, pixelRatio}, file);
}

QPixmap AvatarStore::pictureIn(const Form &form, const QString &file)
{
    if (file.isEmpty())
        return QPixmap();
    if (const Picture *known = find(file, form))
        return known->pixmap;
    if (!m_pending.value(file).contains(form))
        decode(file, form);
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

QPixmap AvatarStore::serviceIcon(const QString &file, int size, qreal pixelRatio)
{
    const QPixmap own = pictureIn({size, pixelRatio, true}, file);
    return own.isNull()
               ? loadSquarePicture(
                     QStringLiteral("Resources/images/FriendDetail/ic_portrait_server_90.png"),
                     size, pixelRatio)
               : own;
}

void AvatarStore::refresh(const QString &file)
{
    m_cache.remove(file);
    // What is being decoded may still be the old file; it is asked for again and
    // comes after that.
    m_pending.remove(file);
}

const AvatarStore::Picture *AvatarStore::find(const QString &what, const Form &form) const
{
    const Pictures *pictures = m_cache.object(what);
    if (!pictures)
        return nullptr;
    const auto known = std::find_if(pictures->begin(), pictures->end(),
                                    [&](const Picture &one) { return one.form == form; });
    return known == pictures->end() ? nullptr : &*known;
}

void AvatarStore::keep(const QString &what, const Picture &picture)
{
    auto pictures = std::unique_ptr<Pictures>(m_cache.take(what));
    if (!pictures)
        pictures = std::make_unique<Pictures>();
    const auto known = std::find_if(pictures->begin(), pictures->end(),
                                    [&](const Picture &one) { return one.form == picture.form; });
    if (known != pictures->end())
        *known = picture;
    else
        pictures->append(picture);
    int cost = 0;
    for (const Picture &one : qAsConst(*pictures))
        cost += costInKilobytes(one.pixmap);
    m_cache.insert(what, pictures.release(), cost);
}

void AvatarStore::decode(const QString &file, const Form &form)
{
    m_pending[file].append(form);
    const int pixels = qCeil(form.size * form.pixelRatio);
    m_pool.start(new DecodeTask(file, pixels, [=](const QImage &image) {
        QMetaObject::invokeMethod(
            this, [=] { store(file, form, image); }, Qt::QueuedConnection);
    }));
}

void AvatarStore::store(const QString &file, const Form &form, const QImage &image)
{
    const auto pending = m_pending.find(file);
    if (pending != m_pending.end()) {
        pending->removeOne(form);
        if (pending->isEmpty())
            m_pending.erase(pending);
    }
    Picture picture{form, QPixmap()};
    if (!image.isNull()) {
        const QPixmap square = QPixmap::fromImage(image);
        picture.pixmap = form.isSquare ? withRoundCorners(square) : rounded(square);
        picture.pixmap.setDevicePixelRatio(form.pixelRatio);
    }
    keep(file, picture);
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

QPixmap AvatarStore::generated(const QString &id, const QString &name, const Form &form)
{
    const QString letters = monogram(name);
    const bool outside = isExternal(id);
    const QString key = QLatin1Char(outside ? '\2' : '\1') + id + QLatin1Char('\1') + letters;
    if (const Picture *known = find(key, form))
        return known->pixmap;
    const int pixels = qCeil(form.size * form.pixelRatio);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawGround(&painter, pixmap.rect(), id, outside);
    painter.setPen(outside ? QColor(OutsideInk) : QColor(Qt::white));
    painter.setFont(skinFont(qMax(1, pixels * 2 / 5)));
    painter.drawText(pixmap.rect(), Qt::AlignCenter, letters);
    painter.end();
    pixmap.setDevicePixelRatio(form.pixelRatio);
    keep(key, {form, pixmap});
    return pixmap;
}
