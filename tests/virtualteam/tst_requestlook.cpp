// How the dialogs that create, invite and decide look: nothing overlaps, nothing is
// cut off without a sign.
#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/requestfixture.h"

#include <QAbstractButton>

#include <memory>

namespace {

const QString longName = QString::fromUtf8("很长的虚拟团队名称").repeated(12);

QByteArray detail(bool audited)
{
    QByteArray members;
    const char *const names[] = {"李四", "Alexandra Constantinopoulos-Featherstonehaugh",
                                 "<b>王五</b>", "赵六", "孙七"};
    for (const char *name : names) {
        members += members.isEmpty() ? "" : ",";
        members += QByteArray(R"({"userId":"m)") + QByteArray::number(members.size()) +
                   R"(","nickName":")" + name +
                   R"(","employeeCode":"E1007","companyName":"北方精密仪器有限公司"})";
    }
    return R"({"vtId":"7","vtName":"新产品联合开发项目组","userId":"u3","nickName":"张三",
        "creatorEmployeeCode":"E1001","companyCode":"C1","companyName":"东方软件股份有限公司",
        "orgName":"研发中心 / 平台部","mobile":"13800138000","reason":")" +
           QByteArray("为了按期完成新产品，需要各部门一起工作。\\n").repeated(8) +
           R"(","audited":)" + (audited ? "true" : "false") + R"(,"members":[)" + members + "]}";
}

// Every text fits, and no two widgets of one parent lie over each other.
void verifyLayout(const QWidget *window)
{
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->isVisibleTo(window) || widget->inherits("LoadingOverlay"))
            continue;
        if (!widget->parentWidget()->layout())
            continue;
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool isText = label && !label->text().isEmpty() && !label->wordWrap() &&
                            !qobject_cast<const ElidedLabel *>(widget);
        if (isText || qobject_cast<const QAbstractButton *>(widget))
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width() &&
                         widget->height() >= qMin(widget->sizeHint().height(), 16),
                     qPrintable(widget->objectName()));
        QVERIFY2(widget->parentWidget()->rect().contains(widget->geometry()),
                 qPrintable(widget->objectName()));
        const QList<QWidget *> siblings =
            widget->parentWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *other : siblings) {
            if (other == widget || !other->isVisibleTo(window) || other->inherits("LoadingOverlay"))
                continue;
            QVERIFY2(!other->geometry().intersects(widget->geometry()),
                     qPrintable(widget->objectName() + QLatin1Char(' ') + other->objectName()));
        }
    }
}

} // namespace

class TstRequestLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void dialogs_data() { rows({"empty", "filled", "sending", "invite"}); }
    void dialogs()
    {
        QFETCH(QByteArray, state);
        QFETCH(QString, language);
        QFETCH(QString, skin);
        setSkin(skin);
        const Language installed(language);
        CreationFixture f(state == "invite");
        if (state != "empty") {
            f.pick("u2");
            f.service.answer("searchMember", R"({"userId":"u9","name":")" + longName.toUtf8() +
                                                 R"(","companyName":")" + longName.toUtf8() +
                                                 R"("})");
            f.search(QStringLiteral("u9"));
            QTRY_COMPARE(f.chosen().size(), 2);
            for (const char *user : {"u3", "u4", "u5"})
                f.pick(user);
            f.reason()->setPlainText(longName);
            if (f.name())
                f.name()->setText(QString::fromUtf8("测试"));
        }
        if (state == "sending") {
            f.service.hold("createVirtualTeam");
            f.sure()->click();
            QTRY_COMPARE(f.service.count("createVirtualTeam"), 1);
        }
        keep(f.dialog, "create-" + state, language, skin);
        verifyLayout(f.dialog);
    }

    void windows_data()
    {
        rows({"loading", "failed", "open", "agreed", "refused", "decided", "join"});
    }
    void windows()
    {
        QFETCH(QByteArray, state);
        QFETCH(QString, language);
        QFETCH(QString, skin);
        setSkin(skin);
        const Language installed(language);
        RequestFixture f;
        const bool joins = state == "join";
        const char *service = joins ? "joinVirtualTeamStatus" : "auditVirtualTeamDetail";
        if (state == "loading")
            f.service.hold(service);
        else if (state == "failed")
            f.service.answer(service, "{}", 10001);
        else
            f.service.answer(service, detail(state == "decided"));
        const QString team = QStringLiteral("7");
        const QString member = QStringLiteral("u3");
        TeamDecisionWindow *window = nullptr;
        if (joins) {
            CVirtualTeamInfoManager::instance()->showVirtualTeamInfo(team, member);
            window = CVirtualTeamInfoManager::instance()->window(team, member);
        } else {
            CVirtualApplyMannger::instance()->showVirtualApply(team, member);
            window = CVirtualApplyMannger::instance()->window(team);
        }
        const auto *pages = window->findChild<QStackedWidget *>(QStringLiteral("decisionPages"));
        const QString page = state == "loading"  ? QStringLiteral("loadingPage")
                             : state == "failed" ? QStringLiteral("failedPage")
                                                 : QStringLiteral("decisionPage");
        QTRY_COMPARE(pages->currentWidget()->objectName(), page);
        if (state == "agreed" || state == "refused") {
            const char *name = state == "agreed" ? "agree" : "refuse";
            RequestFixture::button(window, name)->click();
            QTRY_VERIFY(!RequestFixture::button(window, name)->isVisibleTo(window));
        }
        keep(window, "decide-" + state, language, skin);
        verifyLayout(window);
    }

private:
    static void rows(const QList<QByteArray> &states)
    {
        QTest::addColumn<QByteArray>("state");
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("skin");
        for (const QByteArray &state : states) {
            QTest::addRow("%s, zh_CN, light", state.constData())
                << state << QStringLiteral("zh_CN") << QStringLiteral("light");
            QTest::addRow("%s, en, dark", state.constData())
                << state << QStringLiteral("en") << QStringLiteral("dark");
        }
    }

    static void keep(QWidget *window, const QByteArray &name, const QString &language,
                     const QString &skin)
    {
        RequestFixture::settle();
        window->grab(); // asks for the pictures
        QTRY_VERIFY(!AvatarStore::instance().isBusy());
        keepPicture(window->grab().toImage(), QStringLiteral("%1-%2-%3-%4x")
                                                  .arg(QString::fromLatin1(name), language, skin)
                                                  .arg(window->devicePixelRatioF()));
    }
};

FRIENDUI_TEST(TstRequestLook)
#include "tst_requestlook.moc"
