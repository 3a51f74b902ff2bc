#include "controls/skinmenu.h"

#include "controls/skin.h"

#include <QEvent>

SkinMenu::SkinMenu(const QString &name, QWidget *parent) : QMenu(parent)
{
    setObjectName(name);
    followSkin(this);
}

QAction *SkinMenu::addKey(const char *key)
{
    QAction *action = addAction(QObject::tr(key));
    action->setObjectName(QLatin1String(key));
    return action;
}

QAction *SkinMenu::action(const char *key) const
{
    const QString name = QLatin1String(key);
    for (QAction *action : actions()) {
        if (action->objectName() == name)
            return action;
    }
    return nullptr;
}

SkinMenu *SkinMenu::addSubMenu(const char *key)
{
    auto *menu = new SkinMenu(QLatin1String(key), this);
    addMenu(menu);
    menu->menuAction()->setObjectName(QLatin1String(key));
    menu->setTitle(QObject::tr(key));
    return menu;
}

void SkinMenu::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}

void SkinMenu::retranslate()
{
    for (QAction *action : actions()) {
        const QByteArray key = action->objectName().toLatin1();
        if (!key.isEmpty())
            action->setText(QObject::tr(key.constData()));
    }
}
