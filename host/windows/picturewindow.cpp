#include "host/windows/picturewindow.h"

#include <QImageReader>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

namespace {
constexpr int Side = 360; // device-independent pixels

QPixmap pictureIn(const QString &file, qreal pixelRatio)
{
    QImageReader reader(file);
    reader.setAutoTransform(true);
    // The size is looked at before anything is decoded.
    const QSize size = reader.size();
    const int largest = PictureWindow::LargestSide;
    if (!size.isValid() || size.width() > largest || size.height() > largest)
        return QPixmap();
    const QPixmap whole = QPixmap::fromImage(reader.read());
    if (whole.isNull())
        return whole;
    const int pixels = qRound(Side * pixelRatio);
    QPixmap scaled = whole.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(pixelRatio);
    return scaled;
}
} // namespace

PictureWindow::PictureWindow(QWidget *parent, const QString &name, const QString &file)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("pictureWindow"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(name);
    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("shownPicture"));
    picture->setTextFormat(Qt::PlainText);
    picture->setAlignment(Qt::AlignCenter);
    picture->setWordWrap(true);
    picture->setMinimumSize(Side, Side);
    picture->setAccessibleName(name);
    const QPixmap shown = pictureIn(file, devicePixelRatioF());
    if (shown.isNull())
        picture->setText(tr("There is no picture of %1 that can be shown.").arg(name));
    else
        picture->setPixmap(shown);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->addWidget(picture);
}

PictureWindow *PictureWindow::show(QWidget *parent, const QString &name, const QString &file)
{
    auto *window = new PictureWindow(parent, name, file);
    window->open();
    return window;
}
