#include "servicenum/servicemenu.h"

#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/servicecommands.h"
#include "servicenum/servicenumbers.h"

ServiceMenu::ServiceMenu(QWidget *parent) : SkinMenu(QStringLiteral("serviceMenu"), parent)
{
    for (const char *key : {"serviceNoChat", "serviceDetail", "showhistory"})
        addKey(key);
    addSeparator();
    addKey("subscribe");
    addKey("cancelSubscribe");
    connect(this, &QMenu::triggered, this, &ServiceMenu::select);
    // What the menu offers may have been done elsewhere meanwhile.
    connect(&ServiceNumbers::instance(), &ServiceNumbers::changed, this,
            [this](const QString &code) {
                if (code == m_code)
                    setNumber(code);
            });
}

void ServiceMenu::setNumber(const QString &code)
{
    m_code = code;
    const ServiceNumbers &numbers = ServiceNumbers::instance();
    const bool isSubscribed = numbers.isSubscribed(code);
    action("serviceNoChat")->setVisible(isSubscribed);
    action("subscribe")->setVisible(!isSubscribed);
    action("cancelSubscribe")->setVisible(isSubscribed);
    for (const char *key : {"subscribe", "cancelSubscribe"})
        action(key)->setEnabled(!numbers.isBusy(code));
}

void ServiceMenu::select(QAction *chosen)
{
    QWidget *over = parentWidget()->window();
    if (chosen == action("serviceNoChat"))
        ServiceCommands::openChat(m_code);
    else if (chosen == action("serviceDetail"))
        CServiceNumInfoManager::instance()->showServiceNumInfo(m_code);
    else if (chosen == action("showhistory"))
        ServiceCommands::showHistory(m_code, over);
    else if (chosen == action("subscribe"))
        ServiceCommands::subscribe(m_code, over);
    else if (chosen == action("cancelSubscribe"))
        ServiceCommands::unsubscribe(m_code, over);
}
