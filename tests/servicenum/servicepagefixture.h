// The views of service numbers over a scripted server, with a host of their own.
//
//     ServicePageFixture f;
//     f.setSubscriptions({f.number("s1", "News")});
//     f.showPage();
#pragma once

#include "controls/basedialog.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/cservicenotable.h"
#include "servicenum/cservicenowidget.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicenummodel.h"
#include "servicenum/servicenumroles.h"
#include "tests/support/fakehost.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

class ServicePageFixture
{
public:
    static constexpr char Mine[] = "/center/isrv/myIsrv.do";
    static constexpr char Search[] = "/center/isrv/listIsrv.do";
    static constexpr char Info[] = "/center/isrv/getIsrvInfo.do";
    static constexpr char Subscribe[] = "/center/isrv/subIsrv.do";
    static constexpr char Cancel[] = "/center/isrv/unsubIsrv.do";

    ServicePageFixture()
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        host.context.programFolder = folder.path();
        const QByteArray center = server.url().toEncoded();
        writeFile(folder.filePath(QStringLiteral("allurl.ini")),
                  "[Hosts]\ncenter=" + center + "\nids=" + center +
                      "\n[servicenum]\nsubServiceNumUrl=" + center +
                      "center/isrv/subIsrv.do\ncancelServiceNumUrl=" + center +
                      "center/isrv/unsubIsrv.do\n");
        server.reply(Subscribe, FakeReply::json("{\"code\":0}"));
        server.reply(Cancel, FakeReply::json("{\"code\":0}"));
        server.reply(Info, FakeReply::json("{\"code\":10001}"));
        setSubscriptions({});
        setFound({});
        ServiceNumbers::instance();
        emit FriendUISignalSender::instance()->signal_logout();
    }
    ~ServicePageFixture()
    {
        tester.reset();
        page.reset();
        emit FriendUISignalSender::instance()->signal_logout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        TipBox::setNextAnswers(TipBox::ShowBox);
    }
    ServicePageFixture(const ServicePageFixture &) = delete;
    ServicePageFixture &operator=(const ServicePageFixture &) = delete;

    static QJsonObject number(const QString &code, const QString &name,
                              const QString &description = QString(), bool isSub = false)
    {
        return {{QStringLiteral("iServiceCode"), code},
                {QStringLiteral("name"), name},
                {QStringLiteral("description"), description},
                {QStringLiteral("isSub"), isSub},
                {QStringLiteral("isInteractive"), true},
                {QStringLiteral("version"), QStringLiteral("1")}};
    }
    static QJsonObject number(const char *code, const char *name)
    {
        return number(QString::fromLatin1(code), QString::fromUtf8(name));
    }
    static FakeReply list(const QJsonArray &numbers, const QString &version = QStringLiteral("1"))
    {
        return reply({{QStringLiteral("version"), version}, {QStringLiteral("data"), numbers}});
    }
    static FakeReply detail(const QJsonObject &number)
    {
        return reply({{QStringLiteral("data"), number}});
    }

    void setSubscriptions(const QJsonArray &numbers) { server.reply(Mine, list(numbers)); }
    void setFound(const QJsonArray &numbers) { server.reply(Search, list(numbers)); }
    void setOnline(bool online)
    {
        host.context.settings.setConnected(online);
        emit FriendUISignalSender::instance()->signal_isConnected(online);
    }

    void showPage()
    {
        page = std::make_unique<CServiceNoWidget>();
        tester = std::make_unique<QAbstractItemModelTester>(
            model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        page->resize(300, 480);
        page->show();
        page->activateWindow();
    }
    bool isLoaded() const
    {
        return QTest::qWaitFor(
            [] { return ServiceNumbers::instance().state() == ServiceNumbers::Ready; },
            TestPatience);
    }
    CServiceNoTable *table() const { return page->list(); }
    ServiceNumModel *model() const { return page->list()->model(); }

    // The codes of the rows as they are shown.
    static QString rows(const QAbstractItemModel *model)
    {
        QStringList codes;
        for (int row = 0; row < model->rowCount(); ++row)
            codes.append(model->index(row, 0).data(ServiceRole::Id).toString());
        return codes.join(QLatin1Char(' '));
    }
    // Which of the pages that stand in the place of a list is seen; empty: the list.
    static QString state(const QWidget *widget)
    {
        for (const char *key : {"loading", "noapp", "loadErrorAndCrazyRetry", "yourImIsOffline",
                                "searchSearching", "searchNothing", "searchServiceNumbersFailed"}) {
            const auto *found = widget->findChild<QWidget *>(QLatin1String(key));
            if (found && found->isVisible())
                return QLatin1String(key);
        }
        return QString();
    }
    // What the line at the bottom says; empty when it is not seen.
    static QString notice(const QWidget *widget)
    {
        const auto *label = widget->findChild<QLabel *>(QStringLiteral("noticeText"));
        return label && label->isVisible() ? label->text() : QString();
    }
    template <class Button = QPushButton>
    static Button *button(const QWidget *widget, const char *name)
    {
        return widget->findChild<Button *>(QLatin1String(name));
    }
    static void click(QAbstractItemView *view, const QModelIndex &row)
    {
        view->scrollTo(row);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(row).center() - QPoint(40, 0));
    }

    QTemporaryDir folder;
    FakeServer server;
    FakeHost host;
    std::unique_ptr<CServiceNoWidget> page;
    std::unique_ptr<QAbstractItemModelTester> tester;

private:
    static FakeReply reply(QJsonObject members)
    {
        members.insert(QStringLiteral("code"), 0);
        return FakeReply::json(QJsonDocument(members).toJson(QJsonDocument::Compact));
    }
};
