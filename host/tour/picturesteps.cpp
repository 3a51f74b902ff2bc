// The dialog for the own picture.
#include "host/core/embeddedcore.h"
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <QTreeView>
#include <QUrl>
#include <QtEndian>

namespace {

using Stage = TourStage;

constexpr char Dialog[] = "EditAvatar";

// A landscape as a camera keeps it that was held upright: a quarter turn beside what it
// says of itself.
QImage landscape()
{
    QImage image(900, 600, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 400);
    sky.setColorAt(0, QColor(70, 130, 200));
    sky.setColorAt(1, QColor(230, 235, 245));
    painter.fillRect(image.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(250, 220, 120));
    painter.drawEllipse(QPoint(650, 150), 70, 70);
    painter.setBrush(QColor(80, 120, 80));
    painter.drawEllipse(QPoint(250, 620), 420, 260);
    painter.setBrush(QColor(60, 100, 70));
    painter.drawEllipse(QPoint(760, 660), 380, 260);
    painter.end();
    return image.transformed(QTransform().rotate(-90));
}

template <class Number> QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof number, 0);
    qToBigEndian(number, bytes.data());
    return bytes;
}

// "Turn it by 90 degrees to see it upright."
QByteArray withOrientation(QByteArray jpeg)
{
    constexpr quint16 Orientation = 0x0112, Short = 3, TurnRight = 6;
    const QByteArray exif = QByteArray("Exif\0\0MM\0\x2a", 10) + bigEndian(quint32(8)) +
                            bigEndian(quint16(1)) + bigEndian(Orientation) + bigEndian(Short) +
                            bigEndian(quint32(1)) + bigEndian(TurnRight) + bigEndian(quint16(0)) +
                            bigEndian(quint32(0));
    return jpeg.insert(2, "\xff\xe1" + bigEndian(quint16(exif.size() + 2)) + exif);
}

QByteArray photograph()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    landscape().save(&buffer, "JPEG", 90);
    return withOrientation(bytes);
}

TourMove profileOpened()
{
    return {"the own profile is open",
            [](Stage &s) {
                s.trigger(s.openMenu(QStringLiteral("commonSingleMenu")),
                          QStringLiteral("viewdetail"));
            },
            [](Stage &s) { return s.openDialog("OwnProfileWindow") != nullptr; }};
}

TourMove ownMenu()
{
    return {"the own row's menu opens",
            [](Stage &s) {
                s.openPage(QStringLiteral("friends"));
                s.jid = s.host().core()->ownJid();
                const QModelIndex row = s.contact(s.jid);
                if (!row.isValid())
                    return;
                s.tree()->expand(row.parent());
                s.tree()->setCurrentIndex(row);
                s.tree()->scrollTo(row);
                s.contextMenu(row);
            },
            [](Stage &s) { return s.openMenu(QStringLiteral("commonSingleMenu")) != nullptr; },
            TourMove::Again};
}

TourMove editPressed()
{
    return {"the dialog opens", [](Stage &s) { s.press("OwnProfileWindow", "btnEditPicture"); },
            [](Stage &s) { return s.openDialog(Dialog) != nullptr; }};
}

TourMove dropped(const QByteArray &bytes, const char *name)
{
    return {"a file is dropped on the dialog",
            [=](Stage &s) {
                const QString path =
                    QDir(s.host().options().dataFolder).filePath(QString::fromLatin1(name));
                QFile file(path);
                if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                    return;
                file.close();
                QMimeData data;
                data.setUrls({QUrl::fromLocalFile(path)});
                QDialog *dialog = s.openDialog(Dialog);
                if (!dialog)
                    return;
                const QPoint at(100, 100);
                QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(dialog, &enter);
                QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(dialog, &drop);
            },
            {}};
}

std::vector<TourMove> dialogAnd(std::vector<TourMove> moves)
{
    moves.insert(moves.begin(), {servicesReady(), ownMenu(), profileOpened(), editPressed()});
    return moves;
}

} // namespace

std::vector<TourStep> pictureSteps()
{
    const TourMove loaded{"the picture is there to be cut", {}, [](Stage &s) {
                              const auto *save = s.part<QPushButton>(Dialog, "btnSave");
                              return s.part(Dialog, "_labelCut") && save && save->isEnabled();
                          }};
    const TourMove chosen{"a picture is chosen",
                          [](Stage &s) {
                              auto *table = s.part<QTableView>(Dialog, "sysAvatarTable");
                              if (!table)
                                  return;
                              table->setCurrentIndex(table->model()->index(1, 2));
                              table->setFocus();
                              Stage::keyTo(table, Qt::Key_Return);
                          },
                          {}};
    return {
        {"own-profile", TourStep::Pane, {servicesReady(), ownMenu(), profileOpened()}},
        {"own-picture",
         TourStep::Pane,
         {servicesReady(), ownMenu(), profileOpened(), buttonPressed("OwnProfileWindow", "head"),
          windowShown("PictureWindow")}},
        {"picture-system", TourStep::Pane, dialogAnd({partShown(Dialog, "sysAvatarTable")})},
        {"picture-system-chosen", TourStep::Pane, dialogAnd({chosen})},
        {"picture-local", TourStep::Pane,
         dialogAnd({buttonPressed(Dialog, "btnLocalPage"), partShown(Dialog, "btnUpload")})},
        {"picture-local-loaded", TourStep::Pane,
         dialogAnd({dropped(photograph(), "landscape.jpg"), loaded})},
        {"picture-no-picture", TourStep::Pane,
         dialogAnd({dropped(QByteArray("no picture"), "landscape.png"), windowShown("TipBox")})},
        {"picture-upload-failed", TourStep::Pane,
         dialogAnd(
             {dropped(photograph(), "landscape.jpg"), loaded,
              leverPulled("rule", R"({"path":"/center/im/uploadFile.do","status":503,"times":1})"),
              buttonPressed(Dialog, "btnSave"), windowShown("TipBox")})},
    };
}
