// Round avatars, ready to paint. A picture file is decoded on another thread;
// until it is there, and for who has none, an avatar is made of the name.
#pragma once

#include <QCache>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QThreadPool>
#include <QVector>

class AvatarStore : public QObject
{
    Q_OBJECT

public:
    // A picture beyond these is refused unseen: its header is read, its pixels are not.
    static constexpr int MaximumSide = 8192;
    static constexpr qint64 MaximumPixels = 16 * 1000 * 1000;
    static constexpr qint64 MaximumFileSize = 8 * 1024 * 1024;

    static AvatarStore &instance();

    // The avatar of `id`, `size` device-independent pixels square. `file` may be
    // empty, missing, or hostile; `name` is anybody's text.
    QPixmap avatar(const QString &file, const QString &id, const QString &name, int size,
                   qreal pixelRatio);

    // The picture alone; null until it is there, and when there is none.
    QPixmap picture(const QString &file, int size, qreal pixelRatio);

    // A group chat's picture, or the portrait of all that have none.
    QPixmap groupPortrait(const QString &file, int size, qreal pixelRatio);

    // A service number's icon: square, as no person's picture is. The portrait of all
    // that have none, until it is there.
    QPixmap serviceIcon(const QString &file, int size, qreal pixelRatio);

    // Forgets what is known of a file, because it was written anew.
    void refresh(const QString &file);

    // Whether any picture is being decoded.
    bool isBusy() const { return !m_pending.isEmpty(); }

    // One or two characters that stand for a name: the last two of a Chinese
    // name, the initials of a Latin one.
    static QString monogram(const QString &name);

    // Reads and scales a picture within the limits above; a null image when it
    // is none, too large, or of a format that is not PNG, JPEG, GIF or BMP.
    static QImage load(const QString &file, int pixels);

signals:
    // A picture arrived; whoever shows `file` repaints.
    void pictureReady(const QString &file);

private:
    struct Form
    {
        int size;
        qreal pixelRatio;
        bool isSquare = false; // else round
        bool operator==(const Form &other) const
        {
            return size == other.size && pixelRatio == other.pixelRatio &&
                   isSquare == other.isSquare;
        }
    };
    struct Picture
    {
        Form form;
        QPixmap pixmap; // null: the file has no usable picture
    };
    using Pictures = QVector<Picture>; // one file in all forms asked for

    AvatarStore();
    QPixmap pictureIn(const Form &form, const QString &file);
    QPixmap generated(const QString &id, const QString &name, const Form &form);
    const Picture *find(const QString &what, const Form &form) const;
    void keep(const QString &what, const Picture &picture);
    void decode(const QString &file, const Form &form);
    void store(const QString &file, const Form &form, const QImage &image);

    QCache<QString, Pictures> m_cache; // by file, or by what it was generated of
    QHash<QString, QVector<Form>> m_pending;
    QThreadPool m_pool;
};
