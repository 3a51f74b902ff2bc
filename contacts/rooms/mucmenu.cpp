#include "contacts/rooms/mucmenu.h"

#include "common/context.h"
#include "contacts/rooms/mucmodel.h"

MucMenu::MucMenu(QWidget *parent) : SkinMenu(QStringLiteral("mucMenu"), parent)
{
    addKey("sendGroupMessage");
    addKey("sendFile");
    addKey("sendemail");
    addSeparator();
    addKey("msgrecord");
    addSeparator();
    addKey("modifyGroupName");
    m_settings = addSubMenu("messageSetting");
    m_settings->addKey("reciveremind")->setCheckable(true);
    m_settings->addKey("recivenoremind")->setCheckable(true);
    addKey("setGroupToppest");
    addKey("cancelGroupToppest");
    m_addressBook = addKey("saveToAddresslist");
    addSeparator();
    addKey("quitmuc");
    addKey("dismissmuc");
    addKey("changemanage");
}

void MucMenu::offer(const char *key, bool may)
{
    action(key)->setVisible(may);
}

void MucMenu::prepare(const MucRow &room, bool settable)
{
    const ApplicationContext &host = ctx();
    offer("sendGroupMessage", host.hasRight(ApplicationContext::Chat));
    offer("sendFile", host.hasRight(ApplicationContext::SendFile));
    offer("sendemail", host.hasRight(ApplicationContext::Mail));
    offer("msgrecord", host.hasRight(ApplicationContext::History));

    const bool pinned = host.isSessionTop(room.jid);
    offer("setGroupToppest", !pinned);
    offer("cancelGroupToppest", pinned);
    const bool inAddressBook = MucModel::pageOf(room) == MucModel::AddressBookPage;
    m_addressBook->setObjectName(inAddressBook ? QStringLiteral("deleteFromContact")
                                               : QStringLiteral("saveToAddresslist"));
    m_addressBook->setText(inAddressBook ? QObject::tr("deleteFromContact")
                                         : QObject::tr("saveToAddresslist"));

    const MucRules::Rights rights = MucRules::rightsOf(host.mucRole(room.jid));
    offer("modifyGroupName", rights.rename);
    offer("quitmuc", rights.quit);
    offer("dismissmuc", rights.dismiss);
    offer("changemanage", rights.manage);

    setSilent(host.sessionNotify(room.jid) != 0);
    const QList<QAction *> settings = m_settings->actions();
    for (QAction *setting : settings)
        setting->setEnabled(settable);
}

void MucMenu::setSilent(bool silent)
{
    m_silent = silent;
    showSetting();
}

void MucMenu::showSetting()
{
    m_settings->action("reciveremind")->setChecked(!m_silent);
    m_settings->action("recivenoremind")->setChecked(m_silent);
}
