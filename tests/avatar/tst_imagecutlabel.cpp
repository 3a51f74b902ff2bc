// The frame under the pointer and the keys.
#include "detail/avatar/imagecutlabel.h"
#include "tests/avatar/picturemaker.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QWheelEvent>

#include <memory>

namespace {
const QSize Bound(300, 300);

QPixmap picture(const QSize &size)
{
    return QPixmap::fromImage(PictureMaker::quarters(size));
}
} // namespace

class TstImageCutLabel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_label = std::make_unique<ImageCutLabel>();
        m_label->setPixmap(picture(QSize(900, 600)), Bound);
        m_label->show();
        m_changes =
            std::make_unique<QSignalSpy>(m_label.get(), &ImageCutLabel::signal_CurrentPixmap);
    }

    void startsInTheMiddle()
    {
        QCOMPARE(m_label->size(), QSize(300, 200));
        QCOMPARE(frame(), QRect(100, 50, 100, 100));
        QCOMPARE(m_label->getCutPixmap().size(), QSize(300, 300));
        m_label->setPixmap(picture(QSize(119, 290)), Bound);
        QCOMPARE(m_label->findChildren<QLabel *>(QStringLiteral("_labelCut")).size(), 1);
        QCOMPARE(m_label->size(), QSize(119, 290));
        QCOMPARE(frame(), QRect(0, 85, 119, 119));
        QCOMPARE(m_changes->size(), 1);
        QCOMPARE(m_changes->last().first().value<QPixmap>().size(), QSize(119, 119));
    }

    void cutsWhatIsInTheFrame()
    {
        drag(QPoint(150, 100), QPoint(100, 20)); // out at the top
        QCOMPARE(frame(), QRect(50, 0, 100, 100));
        const QImage whole = PictureMaker::quarters(QSize(900, 600));
        const QPixmap cut = m_changes->last().first().value<QPixmap>();
        QCOMPARE(cut.toImage(), whole.copy(150, 0, 300, 300));
        // It outlives the picture that it was cut out of.
        m_label->setPixmap(picture(QSize(50, 50)), Bound);
        m_label.reset();
        QCOMPARE(cut.toImage(), whole.copy(150, 0, 300, 300));
    }

    void drags_data()
    {
        const Rows<QPoint, QPoint, QRect> row{"from", "to", "wanted"};
        row("moves, out to the right", QPoint(150, 100), QPoint(900, 100),
            QRect(200, 50, 100, 100));
        row("right edge, taken beside it", QPoint(201, 100), QPoint(211, 100),
            QRect(100, 50, 110, 110));
        row("corner, out of the picture", QPoint(199, 149), QPoint(290, 500),
            QRect(100, 50, 150, 150));
        row("top left corner, too small", QPoint(100, 50), QPoint(199, 149),
            QRect(175, 125, 25, 25));
        row("beside the frame", QPoint(20, 20), QPoint(60, 60), QRect(100, 50, 100, 100));
    }
    void drags()
    {
        QFETCH(QPoint, from);
        QFETCH(QPoint, to);
        QFETCH(QRect, wanted);
        drag(from, to);
        QCOMPARE(frame(), wanted);
        QCOMPARE(m_changes->isEmpty(), wanted == QRect(100, 50, 100, 100));
        // Afterwards the pointer only shows what it could do.
        QTest::mouseMove(m_label.get(), QPoint(5, 5));
        QCOMPARE(frame(), wanted);
    }

    void onlyTheLeftButtonDrags()
    {
        drag(QPoint(150, 100), QPoint(60, 60), Qt::RightButton);
        QVERIFY(m_changes->isEmpty());
    }

    void keys_data()
    {
        const Rows<int, int, QRect> row{"key", "modifiers", "wanted"};
        row("left", int(Qt::Key_Left), 0, QRect(99, 50, 100, 100));
        row("down, far", int(Qt::Key_Down), int(Qt::ShiftModifier), QRect(100, 60, 100, 100));
        row("larger", int(Qt::Key_Right), int(Qt::ControlModifier | Qt::ShiftModifier),
            QRect(95, 45, 110, 110));
        row("smaller", int(Qt::Key_Up), int(Qt::ControlModifier | Qt::ShiftModifier),
            QRect(105, 55, 90, 90));
    }
    void keys()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QTest::keyClick(m_label.get(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QTEST(frame(), "wanted");
        QCOMPARE(m_changes->size(), 1);
    }

    void wheelOnTheFrame()
    {
        const auto turn = [this](const QPoint &at, int angle) {
            QWheelEvent event(at, m_label->mapToGlobal(at), QPoint(), QPoint(0, angle),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(m_label.get(), &event);
        };
        turn(QPoint(150, 100), 120);
        QCOMPARE(frame(), QRect(96, 46, 108, 108));
        turn(QPoint(10, 10), 120);
        for (int i = 0; i < 4; ++i)
            turn(QPoint(150, 100), -30); // a fine wheel
        QCOMPARE(frame(), QRect(100, 50, 100, 100));
    }

    void withoutAPicture()
    {
        FakeContext host;
        const HostContextScope scope(&host);
        const LogCapture log(host);
        m_label->setPixmap(QPixmap(), Bound);
        QVERIFY(m_label->getCutPixmap().isNull());
        drag(QPoint(150, 100), QPoint(50, 50));
        QTest::keyClick(m_label.get(), Qt::Key_Left);
        m_label->grab();
        QVERIFY(m_changes->isEmpty());
        ImageCutLabel fresh;
        QTest::mouseClick(&fresh, Qt::LeftButton);
        QVERIFY(fresh.getCutPixmap().isNull());
        QCOMPARE(log.linesWith("_px1.isNull() is true").size() -
                     log.linesWith("_labelCut == NULL || _px1.isNull() is true").size(),
                 2);
        QCOMPARE(log.linesWith("_labelCut == NULL || _px1.isNull() is true").size(), 2);
        QCOMPARE(log.linesWith("_labelCut is null").size(), 1);
    }

private:
    QRect frame() const
    {
        return m_label->findChild<QLabel *>(QStringLiteral("_labelCut"))->geometry();
    }
    void drag(const QPoint &from, const QPoint &to, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(m_label.get(), button, Qt::NoModifier, from);
        const QPoint half = (from + to) / 2;
        for (const QPoint &at : {half, to}) {
            QMouseEvent move(QEvent::MouseMove, at, Qt::NoButton, button, Qt::NoModifier);
            QCoreApplication::sendEvent(m_label.get(), &move);
        }
        QTest::mouseRelease(m_label.get(), button, Qt::NoModifier, to);
    }

    std::unique_ptr<ImageCutLabel> m_label;
    std::unique_ptr<QSignalSpy> m_changes;
};

FRIENDUI_TEST(TstImageCutLabel)
#include "tst_imagecutlabel.moc"
