// The organisation on screen: asks for a department when it is opened, finds a
// person's place, and turns what the user does into OrgCommands.
#pragma once

#include "controls/rowview.h"
#include "http/orgrecords.h"

#include <QPersistentModelIndex>
#include <QSet>
#include <QTimer>
#include <QVariantAnimation>

class OrgCommands;
class OrgTreeModel;
class SkinMenu;
struct PresenceData;

class OrgStructureTreeView : public RowView
{
    Q_OBJECT

public:
    // ms. Longer than all attempts of one request take together.
    static constexpr int LoadTimeout = 45000;

    explicit OrgStructureTreeView(QWidget *parent = nullptr);

    // The company's code, which is the id above the topmost departments. Another
    // one empties the tree; what is known of it already is shown.
    void setRootId(const QString &rootId);
    QString rootId() const;
    bool isEmpty() const;

    void loadRoot();
    // Asks again for the topmost departments and for those that are open.
    void refreshAll();
    // Opens or closes a department, and asks for what is not known of it; false
    // for `bIsExpand`: asks for it anew and leaves it as it is.
    void expandItem(const QModelIndex &index, bool bIsExpand = true);
    // A department could not be had. False when it was not asked for.
    bool departmentFailed(const QString &id);

    // Selects the row of a person or department and shows it, asking for its place
    // first if that is not known.
    void locate(const QString &id, bool isDepartment);
    void locateSelf();
    bool isLocating() const { return !m_locating.isEmpty(); }
    // Somebody is not in the organisation, or it cannot be told: gives up. An empty
    // id stands for whoever is being looked for. False when an older search is meant.
    bool locateEnded(const QString &id);

signals:
    void signal_upDataTreeViewEnd(const OrgElementMap &mapOrgElements);
    void signal_LoadFail(QString strId, int nStatus);
    void signal_orgClickItem();
    void signal_LocateFriendToOrg();
    void signal_locateFrdOrgStructureShow();
    void locatingChanged(bool locating);
    void locateFailed(const QString &id);

public slots:
    void slot_upDataTreeView(const OrgElementMap &mapOrgElements);
    // All people of a department have arrived who are to become contacts.
    void slot_addToFriendList(const OrgElementList &orgList);
    void slot_locateOrgElements(const OrgElementMap &mapOrgElements, QString strFrdJid);
    void locateOrgElements(QString strOrgId);
    void slot_orgMenuClicked(QAction *action);
    void slot_empMenuClicked(QAction *action);
    void slot_multipMenuClicked(QAction *action);
    void slot_loadOrgTimeOut();

protected:
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    QString cardJid(const QModelIndex &index) const override;

private:
    void connectSources();
    void buildMenus();
    void prepareEmployeeMenu(const QString &uid);
    void openMenu(SkinMenu *menu, const QModelIndex &index, QPoint pos);

    void activate(const QModelIndex &index);
    // What a click does beside selecting: the caret and the sign at the right.
    bool pressOnPart(const QModelIndex &index, QPoint pos);
    QStringList selectedEmployees() const; // user ids
    QString idOf(const QModelIndex &index) const;

    void request(const QString &id);
    void opened(const QModelIndex &index);
    void received(const OrgElementList &elements);
    void addWaiting();
    void addToModel(OrgElementList elements);
    void departmentDone(const QString &id);
    void addToContacts(const QString &departmentId);
    void finishAdding(const QString &departmentId);
    void setPresences(const QMap<QString, PresenceData> &presences);

    void addAll(const OrgElementMap &elements);
    void placeFromCache(const QString &id);
    bool revealPlace(const QString &id);
    void flash(const QModelIndex &index);

    OrgTreeModel *m_model;
    OrgCommands *m_commands;
    SkinMenu *m_orgMenu = nullptr;
    SkinMenu *m_empMenu = nullptr;
    SkinMenu *m_multipMenu = nullptr;
    QString m_menuId; // the element that the open menu is about

    QSet<QString> m_asked; // departments under way
    QTimer m_loadTimer;
    bool m_elementsAdded = false; // those of the update that is to come
    OrgElementList m_waiting;     // arrived, not yet in the model
    QTimer m_addTimer;
    // Departments whose people become contacts when they have all arrived.
    QSet<QString> m_adding;

    QString m_locating;        // who is being looked for
    QStringList m_oldSearches; // answers that nobody waits for any more
    bool m_pressTaken = false;
    QPersistentModelIndex m_flashed;
    QVariantAnimation m_flash;
};
