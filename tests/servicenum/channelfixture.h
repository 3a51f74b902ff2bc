// The page of the customer-service channels on screen, fed by a host of its own.
#pragma once

#include "common/localdatabase.h"
#include "controls/skinmenu.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/ccustomerserverlistview.h"
#include "servicenum/ccustomerserverpage.h"
#include "servicenum/channelmodel.h"
#include "servicenum/customerserverroles.h"
#include "tests/support/fakehost.h"
#include "tests/support/logcapture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class ChannelFixture
{
public:
    explicit ChannelFixture(const QStringList &ids = {})
    {
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        for (const QString &id : ids)
            deliver(id);
        make();
    }
    ~ChannelFixture()
    {
        tester.reset();
        delete page;
        emit FriendUISignalSender::instance()->signal_logout();
        LocalDatabase::instance().close();
    }
    ChannelFixture(const ChannelFixture &) = delete;
    ChannelFixture &operator=(const ChannelFixture &) = delete;

    // A new page; the one before must have gone.
    void make()
    {
        tester.reset();
        page = new CCustomerServerPage;
        list = page->list();
        model = list->model();
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        page->resize(284, 500);
        page->show();
        page->activateWindow();
        list->setFocus();
        settle();
    }
    // What the plug-in does when the client is closed and started again.
    void restart()
    {
        tester.reset();
        delete page;
        emit FriendUISignalSender::instance()->signal_logout();
        LocalDatabase::instance().close();
        make();
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    static CSChannelData channel(const QString &id, const QString &name = QString())
    {
        CSChannelData data;
        data.id = id;
        data.name = name.isEmpty() ? id : name;
        data.isOpen = true;
        return data;
    }
    static void deliver(const CSChannelData &data)
    {
        // Whoever is to keep what comes before the page.
        CustomerChannels::instance();
        FakeHost::send(Inbound::ChannelAdded, data);
    }
    static void deliver(const QString &id) { deliver(channel(id)); }

    QModelIndex row(const QString &id) const { return model->indexOf(id); }
    QString rows() const // ids as they are shown, pinned ones in capitals
    {
        QStringList ids;
        for (int i = 0; i < model->rowCount(); ++i) {
            const QModelIndex index = model->index(i);
            const QString id = index.data(ChannelRole::Id).toString();
            ids.append(index.data(ChannelRole::Pinned).toBool() ? id.toUpper() : id);
        }
        return ids.join(QLatin1Char(' '));
    }
    QPoint middle(const QString &id) const { return list->visualRect(row(id)).center(); }

    SkinMenu *openMenu(const QString &id) const
    {
        const QPoint pos = middle(id);
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos, list->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(list->viewport(), &event);
        return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
    }
    // With the mouse, as a user does it.
    static void choose(SkinMenu *menu, const char *key)
    {
        QAction *action = menu ? menu->action(key) : nullptr;
        QVERIFY2(action && action->isVisible(), key);
        const QPoint pos = menu->actionGeometry(action).center();
        const QPoint global = menu->mapToGlobal(pos);
        for (const QEvent::Type type :
             {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isDown = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, pos, global,
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                              isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(menu, &event);
        }
    }
    void setPinned(const QString &id, bool pinned) const
    {
        choose(openMenu(id), pinned ? "toTopCustomer" : "cancelGroupToppest");
        settle();
    }

    QTemporaryDir folder;
    FakeHost host;
    QPointer<CCustomerServerPage> page;
    CCustomerServerListView *list = nullptr; // of the page
    ChannelModel *model = nullptr;           // of the list
    std::unique_ptr<QAbstractItemModelTester> tester;
};
