// Properties of what is painted of service numbers.
#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "servicenum/cservicenuminfo.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/cservicenumsearch.h"
#include "servicenum/servicenumlistview.h"
#include "tests/servicenum/servicepagefixture.h"
#include "tests/support/looks.h"

#include <QImage>
#include <QLineEdit>
#include <QTextEdit>

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QJsonArray numbers()
{
    using F = ServicePageFixture;
    QJsonObject rich =
        F::number(QStringLiteral("s2"), text("待办审批"),
                  text("需要您处理的申请会在这里出现。\n请在收到提醒后的两个工作日内处理；"
                       "超过期限的申请会自动转给您的上级。\n\nApprovals wait here for you. "
                       "Deal with them within two working days, please."),
                  true);
    rich.insert(QStringLiteral("subject"), text("行政服务"));
    rich.insert(QStringLiteral("contactWay"), text("oa@corp.example / 8001"));
    QJsonObject oneWay = F::number(QStringLiteral("s3"), QStringLiteral("Canteen"),
                                   QStringLiteral("Menu of the day"), true);
    oneWay.insert(QStringLiteral("isInteractive"), false);
    return {F::number(QStringLiteral("s1"), text("公司新闻"), text("每天一条公司新闻 News"), true),
            rich,
            oneWay,
            F::number(QStringLiteral("s4"), text("一个名字长得在任何列表里都放不下的服务号名称"),
                      text("A description that is by far too long for the width of any list, "
                           "whatever the language")),
            F::number(QStringLiteral("s5"), QStringLiteral("<b>Bold</b> & <img src=x>"),
                      QStringLiteral("<h1>huge</h1>\nsecond line")),
            F::number(QStringLiteral("s6"), text("\u202Egnp.live\u202C \u05D0\u05D1\u05D2"),
                      QString())};
}

QJsonArray subscribed()
{
    QJsonArray own;
    for (int i = 0; i < 3; ++i)
        own.append(numbers().at(i));
    return own;
}

} // namespace

using F = ServicePageFixture;

class TstServiceLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void looks_data() { addLooks({1.0, 2.0}); }
    void looks()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        const Language installed(language);
        setSkin(skin);
        const QString suffix = QStringLiteral("-%1-%2-%3").arg(skin, language).arg(ratio);
        const auto keep = [&](QWidget *widget, const char *name) {
            QCoreApplication::sendPostedEvents();
            QTRY_VERIFY(!AvatarStore::instance().isBusy());
            keepPicture(pictureOf(widget, ratio), QLatin1String(name) + suffix);
        };
        ServicePageFixture f;
        f.showPage();
        QVERIFY(f.isLoaded());
        keep(f.page.get(), "services-empty");
        f.setSubscriptions(subscribed());
        f.setFound(numbers());
        ServiceNumbers::instance().load();
        QTRY_COMPARE(f.model()->rowCount(), 3);
        f.table()->setCurrentIndex(f.model()->index(1));
        keep(f.page.get(), "services-list");
        for (const QLabel *label : f.page->findChildren<QLabel *>())
            QVERIFY2(!label->isVisible() || label->wordWrap() ||
                         label->sizeHint().width() <= label->width(),
                     qPrintable(label->text()));

        CServiceNumSearch *search = CServiceNumSearch::showSearch();
        QTRY_COMPARE(search->list()->model()->rowCount(), 6);
        search->list()->setCurrentIndex(search->list()->model()->index(4));
        const QPoint first = search->list()->buttonArea(search->list()->model()->index(0)).center();
        QMouseEvent move(QEvent::MouseMove, first, search->list()->viewport()->mapToGlobal(first),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(search->list()->viewport(), &move);
        f.server.reply(F::Subscribe, FakeReply::json("{\"code\":1}").onRelease());
        emit search->list()->signal_subscribeServiceNum(QStringLiteral("s6"));
        keep(search, "services-search");
        QTRY_COMPARE(f.server.unanswered(), 1);
        f.server.release();
        QTRY_VERIFY(!F::notice(search).isEmpty());
        auto *box = search->findChild<QLineEdit *>();
        box->setText(QStringLiteral("News"));
        QTRY_COMPARE(f.server.unanswered(), 0);
        keep(search, "services-search-marked");
        f.server.reply(F::Search, FakeReply::json("{\"code\":9}"));
        box->setText(QStringLiteral("x"));
        QTRY_COMPARE(F::state(search), QStringLiteral("searchServiceNumbersFailed"));
        keep(search, "services-search-failed");
        search->close();

        f.server.reply(F::Info, FakeReply::json("{\"code\":10001}"));
        CServiceNumInfoManager::instance()->showServiceNumInfo(QStringLiteral("none"));
        CServiceNumInfo *unknown =
            CServiceNumInfoManager::instance()->window(QStringLiteral("none"));
        keep(unknown, "services-info-loading");
        QTRY_COMPARE(F::state(unknown), QStringLiteral("loadErrorAndCrazyRetry"));
        keep(unknown, "services-info-failed");

        for (const char *code : {"s1", "s2", "s3", "s4", "s5", "s6"}) {
            CServiceNumInfoManager::instance()->showServiceNumInfo(QLatin1String(code));
            CServiceNumInfo *info = CServiceNumInfoManager::instance()->window(QLatin1String(code));
            QVERIFY(info);
            if (qstrcmp(code, "s6") == 0) {
                QTest::keyClick(info, Qt::Key_Tab);
                f.setOnline(false);
            }
            keep(info, qPrintable(QStringLiteral("services-info-") + QLatin1String(code)));
            for (const QPushButton *button : info->findChildren<QPushButton *>())
                QVERIFY2(!button->isVisible() ||
                             (button->sizeHint().width() <= button->width() &&
                              info->rect().contains(
                                  QRect(button->mapTo(info, QPoint()), button->size()))),
                         qPrintable(button->text()));
        }
        f.setOnline(true);
    }

    // Whatever somebody calls himself, his picture is round and has no mark.
    void notToBeTakenForAPerson()
    {
        F f;
        const QString file = f.folder.filePath(QStringLiteral("red.png"));
        QImage red(90, 90, QImage::Format_RGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(file));
        AvatarStore &store = AvatarStore::instance();
        constexpr int Size = 40;
        store.serviceIcon(file, Size, 1);
        store.picture(file, Size, 1);
        QTRY_VERIFY(!store.isBusy());
        const auto alphaNearCorner = [](const QPixmap &pixmap) {
            return pixmap.toImage().pixelColor(4, 4).alpha();
        };
        QCOMPARE(alphaNearCorner(store.serviceIcon(file, Size, 1)), 255);
        QCOMPARE(alphaNearCorner(store.picture(file, Size, 1)), 0);

        f.setSubscriptions(subscribed());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 3);
        f.table()->setCurrentIndex(QModelIndex());
        const QImage rows = f.table()->viewport()->grab().toImage();
        const QRect row = f.table()->visualRect(f.model()->index(0));
        const QRect mark(row.left() + 36, row.center().y() + 6, 12, 12);
        int marked = 0;
        for (int y = mark.top(); y <= mark.bottom(); ++y)
            for (int x = mark.left(); x <= mark.right(); ++x)
                marked += rows.pixelColor(x, y) == Skin::instance().colors().theme ? 1 : 0;
        QVERIFY2(marked > 20, qPrintable(QString::number(marked)));
    }
};

FRIENDUI_TEST(TstServiceLook)
#include "tst_servicelook.moc"
