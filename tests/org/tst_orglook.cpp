// Properties of what the organisation looks like.
#include "org/orgstructuretreedelegate.h"
#include "tests/org/orgfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QLabel>

namespace {

QImage picture(QWidget *widget, qreal ratio, const QString &name)
{
    const QImage image = pictureOf(widget, ratio);
    keepPicture(image, name);
    return image;
}

OrgElement named(OrgElement element, const char *name, int status = 0, int device = 0,
                 const char *duty = "Tester")
{
    element.strDuty = QString::fromUtf8(duty);
    element.strName = QString::fromUtf8(name);
    element.nStatus = status;
    element.nDevice = device;
    return element;
}

} // namespace

class TstOrgLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void watermarkLiesBehindTheRows_data() { addLooks({1.0, 2.0}); }

    void watermarkLiesBehindTheRows()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        const Language installed(language);
        setSkin(skin);
        OrgFixture org;
        VcardInfo own;
        own.nickName = QString::fromUtf8("王小明");
        own.employeeCode = QStringLiteral("10086");
        org.host.context.profiles.insert(org.jid("me"), own);
        org.show();
        org.page->resize(320, 620);
        org.answer("C", {named(makeDepartment(org.id("D1"), org.id("C")), "研发中心"),
                         named(makeDepartment(org.id("D2"), org.id("C")),
                               "Sales, Marketing and a Name that Goes On for Ever & Ever")});
        org.open("D1",
                 {named(makeDepartment(org.id("D11"), org.id("D1")), "平台部"),
                  named(makeDepartment(org.id("D12"), org.id("D1")), "Quality"),
                  named(makeEmployee(org.id("anna"), org.id("D1")), "李明朗", 1, 0, "高级工程师"),
                  named(makeEmployee(org.id("bob"), org.id("D1")), "Bob Stone", 4, 0, ""),
                  named(makeEmployee(org.id("carl"), org.id("D1")),
                        "A very long name that does not fit into this row", 0, 1,
                        "Principal architect of everything that there is to be built")});
        org.tree->expandItem(org.row("D12"));
        org.fail("D12");
        org.open("D11", {named(makeEmployee(org.id("me"), org.id("D11")), "王小明", 2),
                         named(makeEmployee(org.id("eve"), org.id("D11")), "Eve", 0)});
        org.tree->expandItem(org.row("D2"));
        org.select("anna");
        const QString name =
            QStringLiteral("org-%1-%2-%3x").arg(skin, language, QString::number(ratio));
        const QImage image = picture(org.page.get(), ratio, name);

        // Below the last row there is nothing but ground and watermark.
        const QModelIndex last = org.tree->indexBelow(org.row("D2"));
        const int below = int((org.tree->visualRect(last).bottom() + 2) * ratio);
        const QColor ground = Skin::instance().colors().background;
        int inked = 0;
        double strongest = 1;
        for (int y = below; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor seen(image.pixel(x, y));
                inked += seen != ground;
                strongest = qMax(strongest, ::contrast(seen, ground));
            }
        }
        QVERIFY2(inked > 100, qPrintable(QString::number(inked)));
        QVERIFY2(strongest > 1.05 && strongest < 1.4, qPrintable(QString::number(strongest)));

        // Where a stroke of it passes below a text, that stays readable.
        const QColor mark = skin == QLatin1String("dark") ? QColor("#2a2d33") : QColor("#e8e9eb");
        QVERIFY(::contrast(Skin::instance().colors().text, mark) >= 4.5);
        QVERIFY(::contrast(Skin::instance().colors().secondary, mark) >= 4.5);
    }

    void pages_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("skin");
        for (const char *what : {"loading", "failed", "empty", "noEnterprise", "noPermission"}) {
            for (const char *skin : {"light", "dark"})
                QTest::addRow("%s %s", what, skin)
                    << QString::fromLatin1(what) << QString::fromLatin1(skin);
        }
    }

    void pages()
    {
        QFETCH(QString, what);
        QFETCH(QString, skin);
        const Language chinese(QStringLiteral("zh_CN"));
        setSkin(skin);
        OrgFixture org;
        if (what == QLatin1String("noEnterprise"))
            org.host.context.company.clear();
        if (what == QLatin1String("noPermission"))
            org.host.context.deniedRights.insert(ApplicationContext::Org);
        org.show();
        if (what == QLatin1String("failed"))
            org.fail("C");
        if (what == QLatin1String("empty"))
            org.answer("C", {});
        picture(org.page.get(), 2, QStringLiteral("org-page-") + what + QLatin1Char('-') + skin);
        // Every text has the room it needs.
        QWidget *page = org.page->findChild<QStackedWidget *>()->currentWidget();
        for (const QLabel *label : page->findChildren<QLabel *>()) {
            QVERIFY(page->rect().contains(label->geometry()));
            QVERIFY(label->height() >= label->heightForWidth(label->width()));
        }
    }

    void deepRowsStayInView()
    {
        const QRect row(0, 0, 200, 44);
        for (int depth : {0, 1, 8, 60}) {
            const QRect caret = OrgStructureTreeDelegate::caretArea(row, depth, Qt::LeftToRight);
            QVERIFY(row.contains(caret));
            const QRect mirrored = OrgStructureTreeDelegate::caretArea(row, depth, Qt::RightToLeft);
            QCOMPARE(row.right() - mirrored.right(), caret.left() - row.left());
        }
    }
};

FRIENDUI_TEST(TstOrgLook)
#include "tst_orglook.moc"
