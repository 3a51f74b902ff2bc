#include "host/tour/tourstage.h"

#include "host/core/embeddedcore.h"
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/panearea.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QTreeView>

namespace {

constexpr int NameRole = 257;
constexpr int IdRole = 258;
constexpr int SortKeyRole = 262;

QAction *findAction(const QMenu *menu, const std::function<bool(const QAction *)> &fits)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (fits(action) && action->isEnabled())
            return action;
        if (const QMenu *below = action->menu()) {
            if (QAction *found = findAction(below, fits))
                return found;
        }
    }
    return nullptr;
}

void closeAndTrigger(QMenu *menu, QAction *action)
{
    if (!action)
        return;
    menu->close();
    action->trigger();
}

} // namespace

MainWindow &TourStage::window() const
{
    return *m_host.window();
}

QTreeView *TourStage::list(const char *className) const
{
    const QWidget *pane = window().paneArea()->pane();
    if (!pane)
        return nullptr;
    const auto trees = pane->findChildren<QTreeView *>();
    for (QTreeView *candidate : trees) {
        if (candidate->inherits(className) && candidate->isVisible())
            return candidate;
    }
    return nullptr;
}

QTreeView *TourStage::tree() const
{
    return list("FriendTreeView");
}

QTreeView *TourStage::orgTree() const
{
    return list("OrgStructureTreeView");
}

QModelIndex TourStage::row(const char *className, int role, const QVariant &value) const
{
    const QTreeView *view = list(className);
    for (int i = 0; view && i < view->model()->rowCount(); ++i) {
        const QModelIndex index = view->model()->index(i, 0);
        if (index.data(role) == value)
            return index;
    }
    return QModelIndex();
}

QLineEdit *TourStage::searchBox() const
{
    return qobject_cast<QLineEdit *>(shownWidget(QStringLiteral("searchBox")));
}

void TourStage::openPage(const QString &entryId) const
{
    const QWidget *pane = window().paneArea()->pane();
    auto *entries = pane ? pane->findChild<QListView *>(QStringLiteral("FriendListView")) : nullptr;
    if (!entries)
        return;
    const QModelIndexList found = entries->model()->match(entries->model()->index(0, 0), IdRole,
                                                          entryId, 1, Qt::MatchExactly);
    if (!found.isEmpty())
        entries->setCurrentIndex(found.first());
}

QString TourStage::nameOf(const QModelIndex &index)
{
    const QString name = index.data(NameRole).toString();
    return name.isEmpty() ? index.data(Qt::DisplayRole).toString() : name;
}

QString TourStage::jidOf(const QModelIndex &index)
{
    return index.data(IdRole).toString();
}

int TourStage::groupCount() const
{
    const QTreeView *view = tree();
    return view && view->model() ? view->model()->rowCount() : 0;
}

QModelIndex TourStage::group(const QString &wanted) const
{
    for (int row = 0; row < groupCount(); ++row) {
        const QModelIndex index = tree()->model()->index(row, 0);
        if (nameOf(index) == wanted)
            return index;
    }
    return QModelIndex();
}

QModelIndex TourStage::firstGroupWithContacts(int atLeast) const
{
    for (int row = 0; row < groupCount(); ++row) {
        const QModelIndex index = tree()->model()->index(row, 0);
        if (tree()->model()->rowCount(index) >= atLeast)
            return index;
    }
    return QModelIndex();
}

QModelIndex TourStage::contact(const QString &wanted) const
{
    for (int row = 0; row < groupCount(); ++row) {
        const QModelIndex parent = tree()->model()->index(row, 0);
        for (int i = 0; i < tree()->model()->rowCount(parent); ++i) {
            const QModelIndex index = tree()->model()->index(i, 0, parent);
            if (jidOf(index) == wanted)
                return index;
        }
    }
    return QModelIndex();
}

QModelIndex TourStage::otherContact(const QModelIndex &parent, int position) const
{
    if (!parent.isValid())
        return QModelIndex();
    for (int i = 0, seen = 0; i < parent.model()->rowCount(parent); ++i) {
        const QModelIndex index = parent.model()->index(i, 0, parent);
        const bool isOwn = index.data(SortKeyRole).toString().startsWith(QLatin1String("0|1"));
        if (!isOwn && seen++ == position)
            return index;
    }
    return QModelIndex();
}

int TourStage::shownContacts() const
{
    int count = 0;
    for (int row = 0; row < groupCount(); ++row) {
        const QModelIndex parent = tree()->model()->index(row, 0);
        for (int i = 0; i < tree()->model()->rowCount(parent); ++i)
            count += tree()->isRowHidden(i, parent) ? 0 : 1;
    }
    return count;
}

QString TourStage::stranger(SampleCompany::Policy policy) const
{
    const EmbeddedCore *core = m_host.core();
    QString somebody;
    for (int i = 1; i < core->company().people(); ++i) {
        if (core->company().policy(i) != policy)
            continue;
        const QString candidate = SampleCompany::uid(i) + QLatin1Char('@') + core->serverDomain();
        FriendData known;
        if (!core->contact(candidate, &known))
            return candidate;
        somebody = candidate;
    }
    return somebody;
}

QMenu *TourStage::menu(const QString &objectName) const
{
    const QWidget *pane = window().paneArea()->pane();
    const auto menus = pane ? pane->findChildren<QMenu *>(objectName) : QList<QMenu *>();
    // Menus of different pages have the same name; the one that is open is meant.
    for (QMenu *found : menus) {
        if (found->isVisible())
            return found;
    }
    return menus.value(0);
}

QMenu *TourStage::openMenu(const QString &objectName) const
{
    QMenu *found = menu(objectName);
    return found && found->isVisible() ? found : nullptr;
}

QWidget *TourStage::openWindow(const char *className) const
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->isVisible() && widget->inherits(className))
            return widget;
    }
    return nullptr;
}

QDialog *TourStage::openDialog(const char *className) const
{
    return qobject_cast<QDialog *>(openWindow(className));
}

QWidget *TourStage::shownPart(const char *window, const char *object) const
{
    const QWidget *in = openWindow(window);
    const auto found = in ? in->findChildren<QWidget *>(QString::fromUtf8(object)) : QWidgetList();
    for (QWidget *widget : found) {
        if (widget->isVisible())
            return widget;
    }
    return nullptr;
}

QWidget *TourStage::shownWidget(const QString &objectName) const
{
    const auto widgets = window().findChildren<QWidget *>(objectName);
    for (QWidget *widget : widgets) {
        if (widget->isVisible())
            return widget;
    }
    return nullptr;
}

void TourStage::contextMenu(const QModelIndex &index) const
{
    QTreeView *view = nullptr;
    const auto lists = window().findChildren<QTreeView *>();
    for (QTreeView *candidate : lists) {
        if (index.isValid() && candidate->model() == index.model() && candidate->isVisible())
            view = candidate;
    }
    if (!view)
        return;
    view->scrollTo(index);
    const QPoint at = view->visualRect(index).center();
    // A header widget on the row takes the event before the tree does.
    QWidget *below = view->viewport()->childAt(at);
    if (!below)
        below = view->viewport();
    const QPoint inBelow = below->mapFrom(view->viewport(), at);
    QApplication::postEvent(below, new QContextMenuEvent(QContextMenuEvent::Mouse, inBelow,
                                                         below->mapToGlobal(inBelow)));
}

void TourStage::trigger(QMenu *menu, const QString &action) const
{
    if (menu)
        closeAndTrigger(menu, findAction(menu, [&](const QAction *candidate) {
                            return candidate->objectName() == action;
                        }));
}

void TourStage::triggerText(QMenu *menu, const QString &text) const
{
    if (menu)
        closeAndTrigger(menu, findAction(menu, [&](const QAction *candidate) {
                            // In an action's text a doubled "&" stands for one.
                            QString shown = candidate->text();
                            shown.replace(QLatin1String("&&"), QLatin1String("&"));
                            return shown == text;
                        }));
}

void TourStage::fill(const QString &text) const
{
    if (auto *dialog = qobject_cast<QInputDialog *>(openDialog("QInputDialog")))
        dialog->setTextValue(text);
}

void TourStage::answer(const QString &text) const
{
    fill(text);
    if (QDialog *dialog = openDialog("QInputDialog"))
        dialog->accept();
}

void TourStage::press(const char *dialogClass, const char *button) const
{
    const QDialog *dialog = openDialog(dialogClass);
    auto *found = dialog ? dialog->findChild<QAbstractButton *>(QLatin1String(button)) : nullptr;
    if (found)
        found->click();
}

void TourStage::key(int code, const QString &text) const
{
    if (!tree())
        return;
    tree()->setFocus();
    keyTo(tree(), code, text);
}

void TourStage::keyTo(QWidget *widget, int code, const QString &text,
                      Qt::KeyboardModifiers modifiers)
{
    if (!widget)
        return;
    QKeyEvent press(QEvent::KeyPress, code, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, code, modifiers, text);
    QApplication::sendEvent(widget, &release);
}

void TourStage::closeEverything() const
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget == &window() || !widget->isVisible())
            continue;
        if (auto *dialog = qobject_cast<QDialog *>(widget))
            dialog->reject();
        else
            widget->close();
    }
    if (QLineEdit *box = searchBox())
        box->clear();
    // What was typed into the tree to find somebody.
    key(Qt::Key_Escape);
}
