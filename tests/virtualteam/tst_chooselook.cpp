// How the dialogs look in which members and groups are chosen.
#include "tests/support/looks.h"
#include "tests/virtualteam/choosefixture.h"
#include "virtualteam/dialogs/csetadministrator.h"
#include "virtualteam/dialogs/virtualteamtransauth.h"

#include <QImage>
#include <QTreeView>

namespace {

int pixelsOf(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == color.rgb();
    }
    return count;
}

} // namespace

class TstChooseLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void dialogs_data()
    {
        const Rows<QString, QString, int> row{"skin", "language", "ratio"};
        row("light zh", QStringLiteral("light"), QStringLiteral("zh_CN"), 1);
        row("light en 2x", QStringLiteral("light"), QStringLiteral("en"), 2);
        row("dark zh 2x", QStringLiteral("dark"), QStringLiteral("zh_CN"), 2);
        row("dark en", QStringLiteral("dark"), QStringLiteral("en"), 1);
    }

    // Buttons have room for their words and the mark of what is chosen stands out.
    void dialogs()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(int, ratio);
        setSkin(skin);
        ChooseFixture fixture(language);
        fixture.service.answer("getMembers", R"({"members":[
            {"userId":"u1","nickName":"张一","role":2},{"userId":"u2","nickName":"李二","role":1},
            {"userId":"u3","nickName":"王三"},{"userId":"u4","nickName":"Anna Lindqvist"}]})");
        const CVirtualTeamSimpleInfo &team = fixture.team;
        const QStringList two{QStringLiteral("u2"), QStringLiteral("u3")};
        const QList<QPair<QString, BaseDialog *>> dialogs{
            {QStringLiteral("grant"), new VirtualTeamTransAuth(team, nullptr)},
            {QStringLiteral("move"), new VirtualTeamTransAuth(team, two, nullptr)},
            {QStringLiteral("administrators"), new CSetAdministrator(team, nullptr)}};
        for (const auto &[name, dialog] : dialogs) {
            dialog->present();
            auto *view = dialog->findChild<QTreeView *>();
            const char *chosen = name == QLatin1String("move") ? "7" : "u2";
            QTRY_VERIFY(ChooseFixture::row(view, chosen).isValid());
            if (name != QLatin1String("administrators"))
                ChooseFixture::click(view, ChooseFixture::row(view, chosen));
            const QImage picture = pictureOf(dialog, ratio);
            keepPicture(picture, QStringLiteral("choose-%1-%2-%3-%4x")
                                     .arg(name, skin, language, QString::number(ratio)));
            QVERIFY(ChooseFixture::sure(dialog)->isEnabled());
            QVERIFY(pixelsOf(picture, Skin::instance().colors().theme) > 100 * ratio * ratio);
            for (const char *button : {"btnSure", "btnCancel"}) {
                const auto *made = dialog->findChild<QPushButton *>(QLatin1String(button));
                QVERIFY(made->width() >= made->sizeHint().width());
            }
        }
    }
};

FRIENDUI_TEST(TstChooseLook)
#include "tst_chooselook.moc"
