// What the team tree looks like: pictures to look at, and properties that they must have.
#include "controls/rowpainter.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamtreefixture.h"
#include "virtualteam/cvirtualteamtreedelegate.h"

namespace {

const QString T = QStringLiteral("T");

QImage picture(QWidget *widget, qreal ratio, const QString &name)
{
    const QImage image = pictureOf(widget, ratio);
    keepPicture(image, name);
    return image;
}

int pixelsOf(const QImage &image, const QRect &area, QRgb color)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += image.pixel(x, y) == color;
    }
    return count;
}

CVirtualTeamMemberInfo person(const char *id, const char *name, int role, const char *duty,
                              const char *company = "", int show = 0, int mobile = 0)
{
    CVirtualTeamMemberInfo member = makeMember(QString::fromLatin1(id), role);
    member.nickName = QString::fromUtf8(name);
    member.duty = QString::fromUtf8(duty);
    member.companyName = QString::fromUtf8(company);
    if (*company)
        member.companyCode = QStringLiteral("C2");
    member.presence.pcShow = PresenceData::ePcShowType(show);
    member.presence.mobile = mobile;
    return member;
}

CVirtualTeamSimpleInfo named(const char *id, const char *name, int count = 0)
{
    CVirtualTeamSimpleInfo info = makeTeam(QString::fromLatin1(id), TeamRole::Owner, count);
    info.vtName = QString::fromUtf8(name);
    return info;
}

} // namespace

class TstTeamTreeLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void rows_data() { addLooks({1.0, 2.0}); }

    void rows()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        const Language installed(language);
        setSkin(skin);
        TeamTreeFixture tree;
        tree.view->resize(280, 700);
        tree.model->setTeams({named("T", "新产品发布项目组", 128), named("S", "Design review", 5),
                              named("R", "A team whose name goes on and on for ever", 1)});
        tree.view->setExpanded(tree.group("0"), true);
        tree.model->setLevel(T, rootGroupId(),
                             {named("G", "市场"), named("H", "Quality assurance")},
                             {person("u1", "王小明", TeamRole::Owner, "项目经理", "", 1),
                              person("u2", "李明朗", TeamRole::SubAdministrator, "", "远航科技", 4),
                              person("u3", "Bob Stone", 0, "Engineer", "", 2),
                              person("u4", "Eve", 0, "Principal architect of everything there is",
                                     "Outside and Partners of the World", 0, 1),
                              person("u5", "张三", 0, "")});
        tree.view->setExpanded(tree.group("G"), true);
        tree.model->setLevel(T, QStringLiteral("G"), {named("K", "华东区")},
                             {person("u6", "赵六", TeamRole::SubAdministrator, "区域经理")});
        tree.view->setExpanded(tree.group("K"), true);
        tree.model->setChildrenState(T, QStringLiteral("K"), TeamChildren::Failed);
        tree.view->setExpanded(tree.group("H"), true);
        tree.model->setLevel(T, QStringLiteral("H"), {}, {});
        tree.view->setExpanded(tree.model->teamIndex(QStringLiteral("S")), true);
        tree.select(tree.member("u2"));
        TeamTreeFixture::settle();
        const QString suffix = QStringLiteral("%1-%2-%3x").arg(skin, language).arg(ratio);
        const QImage image = picture(tree.view.get(), ratio, QStringLiteral("teams-") + suffix);

        const auto area = [&](const QModelIndex &index) {
            const QRect row = tree.view->visualRect(index);
            return QRect(row.topLeft() * ratio, row.size() * ratio).intersected(image.rect());
        };
        QVERIFY(pixelsOf(image, area(tree.member("u1")), 0xffffa354) > 100);
        QCOMPARE(pixelsOf(image, area(tree.member("u3")), 0xffffa354), 0);
        QVERIFY(pixelsOf(image, area(tree.member("u4")), 0xff8f8f8f) +
                    pixelsOf(image, area(tree.member("u4")), 0xff999999) >
                0);
        // The rest of a selected row is readable, too.
        QCOMPARE(pixelsOf(image, area(tree.member("u2")), 0xff8f8f8f), 0);
    }

    void tenLevelsFitInANarrowPane()
    {
        const Language installed(QStringLiteral("zh_CN"));
        TeamTreeFixture tree;
        tree.view->resize(280, 620);
        tree.view->setExpanded(tree.group("0"), true);
        QString above = rootGroupId();
        for (int level = 1; level <= TeamLimits::GroupLevels; ++level) {
            const QString id = QString::number(level);
            CVirtualTeamSimpleInfo group = makeTeam(id);
            group.vtName = QString::fromUtf8("第%1层分组").arg(level);
            tree.model->setLevel(T, above, {group}, {});
            above = id;
            tree.view->setExpanded(tree.model->groupIndex(T, id), true);
        }
        tree.model->setLevel(
            T, above, {},
            {person("u2", "欧阳小明", TeamRole::SubAdministrator, "项目经理", "远航科技", 1)});
        TeamTreeFixture::settle();
        picture(tree.view.get(), 2, QStringLiteral("teams-deep"));
        using Delegate = CVirtualTeamTreeDelegate;
        const int depth = Delegate::depth(tree.member("u2"));
        QCOMPARE(depth, TeamLimits::GroupLevels + 1);
        const int left =
            280 - 2 * RowPainter::Margin - Delegate::indentOf(depth) - RowPainter::AvatarSize - 10;
        QVERIFY(left >=
                QFontMetrics(skinFont(14)).horizontalAdvance(QString::fromUtf8("欧阳小明")));
        for (int i = 0; i < TeamLimits::GroupLevels; ++i)
            QVERIFY(Delegate::indentOf(i) < Delegate::indentOf(i + 1));
        // As deep as the model goes.
        const QRect row(0, 0, 200, RowPainter::RowHeight);
        QVERIFY(
            row.contains(Delegate::caretArea(row, TeamTreeModel::MaximumDepth, Qt::LeftToRight)));
        QCOMPARE(Delegate::settingArea(row, Qt::RightToLeft).left(), row.left());
    }
};

FRIENDUI_TEST(TstTeamTreeLook)
#include "tst_teamtreelook.moc"
