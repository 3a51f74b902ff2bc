// Properties of what is painted.
#include "controls/avatarstore.h"
#include "controls/rowpainter.h"
#include "tests/contacts/treefixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QPainter>

namespace {

// Where a mark is painted, its colours left aside.
QVector<bool> shapeOf(const PresenceData &presence, const QString &name)
{
    QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(4, 4);
    RowPainter::drawPresence(&painter, QRectF(0, 0, 12, 12), presence);
    painter.end();
    keepPicture(image, name);
    QVector<bool> shape;
    for (int i = 0; i < 48 * 48; ++i)
        shape.append(qGray(image.pixel(i % 48, i / 48)) < 215);
    return shape;
}

} // namespace

class TstPainting : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin("light"); }

    void contrast()
    {
        for (const char *skin : {"light", "dark"}) {
            setSkin(QString::fromLatin1(skin));
            const Skin::Colors &colors = Skin::instance().colors();
            for (const QColor &text : {colors.text, colors.secondary}) {
                for (const QColor &ground :
                     {colors.background, colors.hover, colors.selected, colors.side})
                    QVERIFY2(::contrast(text, ground) >= 4.5,
                             qPrintable(text.name() + QStringLiteral(" on ") + ground.name()));
            }
            // The typed text of type-to-find stands on these.
            QVERIFY(::contrast(colors.background, colors.theme) >= 4.5);
            QVERIFY(::contrast(colors.background, colors.danger) >= 4.5);
        }
    }

    void marksDifferInShape()
    {
        setSkin("light"); // a white rim is no part of the shape
        const QVector<PresenceData> kinds{makePresence(0), makePresence(1), makePresence(2),
                                          makePresence(4), makePresence(5), makePresence(0, 1)};
        QVector<QVector<bool>> shapes;
        for (const PresenceData &kind : kinds)
            shapes.append(
                shapeOf(kind, QStringLiteral("presence-%1-%2").arg(kind.pcShow).arg(kind.mobile)));
        for (int a = 0; a < shapes.size(); ++a) {
            for (int b = 0; b < a; ++b) {
                int different = 0;
                for (int i = 0; i < shapes.at(a).size(); ++i)
                    different += shapes.at(a).at(i) != shapes.at(b).at(i) ? 1 : 0;
                QVERIFY2(different > 40, qPrintable(QStringLiteral("%1 and %2: %3 of 2304 pixels")
                                                        .arg(a)
                                                        .arg(b)
                                                        .arg(different)));
            }
        }
    }

    void cutsLongNames_data()
    {
        const Rows<QString, qint32> row{"name", "onJob"};
        row("Latin", QString(60, QLatin1Char('m')), 1);
        row("Chinese", QString(60, QChar(0x5f20)), 1);
        row("who has left", QString(60, QLatin1Char('m')), 0);
    }

    // At 200 pixels nothing of a name reaches the margin at the right.
    void cutsLongNames()
    {
        QFETCH(QString, name);
        QFETCH(qint32, onJob);
        for (const char *skin : {"light", "dark"}) {
            setSkin(skin);
            TreeFixture tree;
            tree.widget->resize(200, 400);
            FriendData contact = makeContact(QStringLiteral("long"), name);
            contact.sign = name;
            contact.onJob = onJob;
            FakeHost::send(4115, QList<FriendData>{contact});
            FakeHost::send(4134, QStringLiteral("g1"), name, true, true);
            tree.view->setExpanded(tree.group("g1"), true);
            TreeFixture::settle();
            const QImage image = tree.view->viewport()->grab().toImage();
            keepPicture(image,
                        QStringLiteral("cut-%1-%2").arg(QString::fromLatin1(skin)).arg(name.at(0)));
            for (const QModelIndex &index : {tree.contact("long"), tree.group("g1")}) {
                const QRect row = tree.view->visualRect(index);
                const int edge = row.right() - 4;
                bool painted = false;
                for (int y = row.top() + 2; y < row.bottom() - 2; ++y) {
                    QCOMPARE(image.pixelColor(edge, y), Skin::instance().colors().background);
                    for (int x = 60; x < 150; ++x)
                        painted = painted ||
                                  image.pixelColor(x, y) != Skin::instance().colors().background;
                }
                QVERIFY(painted);
            }
        }
    }

    void avatarPixels_data()
    {
        QTest::addColumn<qreal>("ratio");
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0, 3.0})
            QTest::addRow("%.2f", ratio) << ratio;
    }

    void avatarPixels()
    {
        QFETCH(qreal, ratio);
        const QPixmap avatar = AvatarStore::instance().avatar(QString(), QStringLiteral("u1"),
                                                              QString::fromUtf8("张伟"),
                                                              RowPainter::AvatarSize, ratio);
        keepPicture(avatar.toImage(), QStringLiteral("avatar-%1").arg(ratio));
        QCOMPARE(avatar.width(), int(std::ceil(RowPainter::AvatarSize * ratio)));
        QCOMPARE(avatar.height(), avatar.width());
        QCOMPARE(avatar.devicePixelRatio(), ratio);
        // Round: nothing in the corner, something at the middle of each side.
        const QImage image = avatar.toImage();
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        QVERIFY(qAlpha(image.pixel(image.width() / 2, 1)) > 128);
        QVERIFY(qAlpha(image.pixel(image.width() - 2, image.height() / 2)) > 128);
    }
};

FRIENDUI_TEST(TstPainting)
#include "tst_painting.moc"
