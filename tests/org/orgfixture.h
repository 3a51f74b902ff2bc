// The organisation's page on screen, with services that answer when a test says so.
#pragma once

#include "controls/skinmenu.h"
#include "controls/tipbox.h"
#include "http/httpmgr.h"
#include "org/orgstructuremgr.h"
#include "org/orgstructuretreeview.h"
#include "org/orgtreemodel.h"
#include "org/orgwidget.h"
#include "tests/org/fakeorgrequest.h"
#include "tests/org/orgmaker.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// The own jid is me@corp.example. The cache lives as long as the process, so each
// fixture has a company of its own: ids end in "." and its number, which id() adds.
//
// Company C: departments D1 and D2; below D1 the department D11 and anna and bob;
// below D11 carl and me; below D2 dora.
class OrgFixture
{
public:
    OrgFixture()
    {
        static int s_number = 0;
        m_number = ++s_number;
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = id("me");
        host.context.company = id("C");
        host.context.baseFolder = folder.path();
        host.context.settings.setConnected(true);
        OrgStructureMgr::instance(); // sets the real factory
        HttpMgr::instance()->setOrgRequestFactory([this](QObject *parent) -> OrgRequest * {
            requests.append(new FakeOrgRequest(&asks, parent));
            return requests.last();
        });
    }
    ~OrgFixture()
    {
        page.reset();
        HttpMgr::instance()->setOrgRequestFactory({});
        TipBox::setNextAnswers(TipBox::ShowBox);
        for (const QPointer<FakeOrgRequest> &request : qAsConst(requests))
            delete request;
    }

    QString id(const char *name) const { return numbered(QLatin1String(name)); }
    QString jid(const char *name) const { return id(name) + QStringLiteral("@corp.example"); }

    void show()
    {
        page = std::make_unique<OrgWidget>();
        page->resize(300, 500);
        page->show();
        page->activateWindow();
        tree = page->tree();
        model = tree->findChild<OrgTreeModel *>();
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        tree->setFocus();
        settle();
    }
    // With the topmost departments there.
    void showFilled()
    {
        show();
        answer("C", topmost());
    }
    // Opens a department that is answered with these.
    void open(const char *name, const OrgElementList &elements)
    {
        tree->expandItem(row(name));
        answer(name, elements);
    }
    // With the rows below D1, and these.
    void showOpen(const OrgElementList &more = {})
    {
        showFilled();
        open("D1", belowD1() + more);
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    OrgElementList topmost() const
    {
        return {makeDepartment(id("D1"), id("C"), QStringLiteral("Alpha")),
                makeDepartment(id("D2"), id("C"), QStringLiteral("Beta"))};
    }
    OrgElementList belowD1() const
    {
        return {makeDepartment(id("D11"), id("D1"), QStringLiteral("Gamma")),
                makeEmployee(id("anna"), id("D1")), makeEmployee(id("bob"), id("D1"))};
    }
    OrgElementList belowD11() const
    {
        return {makeEmployee(id("carl"), id("D11")), makeEmployee(id("me"), id("D11"))};
    }
    OrgElementList many(const char *department, int count) const
    {
        OrgElementList people;
        for (int i = 0; i < count; ++i)
            people.append(
                makeEmployee(id(qPrintable(QStringLiteral("p%1").arg(i, 4, 10, QLatin1Char('0')))),
                             id(department)));
        return people;
    }

    // The oldest request of a kind that has no answer yet; null when there is none.
    FakeOrgRequest *pending(const char *name, const char *kind = "children") const
    {
        for (const QPointer<FakeOrgRequest> &request : requests) {
            if (request && request->id == id(name) && request->kind == QLatin1String(kind))
                return request;
        }
        return nullptr;
    }
    int asked(const char *name, const char *kind = "children") const // how often so far
    {
        return asks.count(QLatin1String(kind) + QLatin1Char(' ') + id(name));
    }
    int open() const // requests without an answer
    {
        return int(std::count_if(requests.cbegin(), requests.cend(),
                                 [](const QPointer<FakeOrgRequest> &r) { return !r.isNull(); }));
    }

    void answer(const char *name, const OrgElementList &elements)
    {
        FakeOrgRequest *request = pending(name);
        QVERIFY2(request, name);
        if (!elements.isEmpty())
            emit request->signal_searchOrgElements(elements, id("C"));
        emit request->signal_searchOrgDone(id(name));
        delete request;
        settle();
    }
    void fail(const char *name, int status = 500)
    {
        FakeOrgRequest *request = pending(name);
        QVERIFY2(request, name);
        emit request->searchOrgFail(id(name), status);
        delete request;
        settle();
    }
    void answerPlace(const char *name, const OrgElementList &elements, const char *kind = "person")
    {
        FakeOrgRequest *request = pending(name, kind);
        QVERIFY2(request, name);
        emit request->signal_locateOrgElements(elements, id(name));
        delete request;
        settle();
    }

    QString shownPage() const
    {
        return page->findChild<QStackedWidget *>()->currentWidget()->objectName();
    }
    QModelIndex row(const char *name) const { return model->indexOf(id(name)); }
    // Ids as they are on screen, without the number; "~" for a row that stands in.
    QStringList rows() const
    {
        QStringList ids;
        for (QModelIndex at = model->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
            const OrgRowKind kind = model->kind(at);
            ids.append(kind == OrgRowKind::Loading ? QStringLiteral("~")
                       : kind == OrgRowKind::Failed
                           ? QStringLiteral("!")
                           : at.data(OrgRole::Id).toString().section(QLatin1Char('.'), 0, 0));
        }
        return ids;
    }
    QString rowText() const { return rows().join(QLatin1Char(' ')); }
    QString current() const
    {
        return tree->currentIndex().data(OrgRole::Id).toString().section(QLatin1Char('.'), 0, 0);
    }
    void select(const QModelIndex &index) const
    {
        tree->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    void select(const char *name) const { select(row(name)); }
    QPoint middle(const QModelIndex &index) const { return tree->visualRect(index).center(); }
    void click(QPoint pos) const
    {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        settle();
    }
    void doubleClick(QPoint pos) const
    {
        // As the window system sends it: press, release, double click, release.
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        settle();
    }
    void key(Qt::Key key) const
    {
        QTest::keyClick(tree, key);
        settle();
    }
    void moveTo(QPoint pos) const
    {
        QMouseEvent event(QEvent::MouseMove, pos, tree->viewport()->mapToGlobal(pos), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(tree->viewport(), &event);
    }
    SkinMenu *menuAt(const char *name) const { return menuAt(middle(row(name))); }
    SkinMenu *menuAt(QPoint pos) const
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos, tree->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(tree->viewport(), &event);
        return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
    }
    // Opens a row's menu and chooses an action.
    void choose(const char *name, const char *key) const
    {
        SkinMenu *menu = menuAt(name);
        QVERIFY2(menu, name);
        QAction *action = menu->action(key);
        QVERIFY2(action, key);
        menu->close();
        action->trigger();
        settle();
    }

    QTemporaryDir folder;
    FakeHost host;
    RecordingActions actions;
    QVector<QPointer<FakeOrgRequest>> requests;
    QStringList asks; // every request so far
    std::unique_ptr<OrgWidget> page;
    OrgStructureTreeView *tree = nullptr;
    OrgTreeModel *model = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;

private:
    QString numbered(const QString &name) const
    {
        return name + QLatin1Char('.') + QString::number(m_number);
    }
    int m_number = 0;
};
