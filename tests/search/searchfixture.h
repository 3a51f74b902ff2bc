// What tests of the search share: people services that answer when a test says so, and
// a page with its box.
#pragma once

#include "contacts/search/searchpage.h"
#include "contacts/search/searchresultmodel.h"
#include "contacts/search/searchresultview.h"
#include "contacts/search/searchsources.h"
#include "controls/searchbox.h"
#include "http/httpmgr.h"
#include "tests/org/fakeorgrequest.h"
#include "tests/support/fakehost.h"

#include <QAbstractItemModelTester>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QVBoxLayout>

// Takes the place of the organisation service. What is asked is noted as
// "page 1 anna".
class PeopleService
{
public:
    PeopleService()
    {
        HttpMgr::instance()->setOrgRequestFactory([this](QObject *parent) -> OrgRequest * {
            requests.append(new FakeOrgRequest(&asks, parent));
            return requests.last();
        });
    }
    ~PeopleService()
    {
        HttpMgr::instance()->setOrgRequestFactory({});
        for (const auto &request : requests)
            delete request;
    }
    PeopleService(const PeopleService &) = delete;
    PeopleService &operator=(const PeopleService &) = delete;

    static SearchUserData user(const QString &uid, const QString &name = QString())
    {
        SearchUserData data;
        data.userId = uid;
        data.nickName = name.isEmpty() ? uid : name;
        return data;
    }
    // So many users: prefix0, prefix1...
    static QList<SearchUserData> users(const QString &prefix, int count)
    {
        QList<SearchUserData> all;
        for (int i = 0; i < count; ++i)
            all.append(user(prefix + QString::number(i)));
        return all;
    }

    void answer(int request, const QList<SearchUserData> &users,
                const OrgElementList &departments = {})
    {
        emit requests.at(request)->signal_searchFinished({users}, departments.size(), departments,
                                                         requests.at(request)->id);
    }
    void fail(int request)
    {
        emit requests.at(request)->signal_fuzzySearchFail(requests.at(request)->id);
    }

    QStringList asks;
    QVector<QPointer<FakeOrgRequest>> requests; // in the order in which they were made
};

inline FriendData contactNamed(const QString &user, const QString &name)
{
    FriendData contact;
    contact.jid = user + QStringLiteral("@corp.example");
    contact.nickName = name;
    return contact;
}

// The own user is me@corp.example of the company P1; contacts are anna, anton and
// Bea (bea), in no order.
class SearchFixture
{
public:
    SearchFixture()
    {
        host.context.user = QStringLiteral("me");
        host.context.company = QStringLiteral("P1");
        for (const char *name : {"anna", "anton", "Bea"}) {
            const QString text = QString::fromLatin1(name);
            host.context.addContact(contactNamed(text.toLower(), text));
        }
    }

    // Makes what is searched with, after the context has been filled.
    void make()
    {
        sources = std::make_unique<SearchSources>(&organisation);
        sources->start();
        QTRY_VERIFY(!sources->isBusy());
        window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(window.get());
        box = new SearchBox(window.get());
        page = new SearchPage(box, sources.get(), window.get());
        layout->addWidget(box);
        layout->addWidget(page);
        QObject::connect(box, &QLineEdit::textChanged, page, &SearchPage::search);
        tester = std::make_unique<QAbstractItemModelTester>(
            page->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        window->resize(300, 500);
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        box->setFocus();
    }

    QStringList names() const
    {
        QStringList all;
        for (int row = 0; row < page->model()->rowCount(); ++row)
            all.append(page->model()->index(row).data(SearchRole::Name).toString());
        return all;
    }
    QString second(int row) const
    {
        return page->model()->index(row).data(SearchRole::Second).toString();
    }
    QString currentName() const
    {
        return page->view()->currentIndex().data(SearchRole::Name).toString();
    }

    FakeHost host;
    OrgElementMap organisation;
    std::unique_ptr<SearchSources> sources;
    std::unique_ptr<QWidget> window;
    SearchBox *box = nullptr;
    SearchPage *page = nullptr;
    std::unique_ptr<QAbstractItemModelTester> tester;
};
