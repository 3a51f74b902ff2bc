#include "controls/skinmenu.h"

#include "controls/skin.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

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

// The style's own separators are shadows, which cannot be seen on a dark ground.
void SkinMenu::paintEvent(QPaintEvent *event)
{
    QMenu::paintEvent(event);
    constexpr int Frame = 3;
    constexpr int Margin = 5;
    constexpr int Opacity = 60; // of 255
    QColor line = Skin::instance().colors().text;
    line.setAlpha(Opacity);
    QPainter painter(this);
    for (QAction *action : actions()) {
        const QRect area = actionGeometry(action);
        if (!action->isSeparator() || !action->isVisible() || !event->region().intersects(area))
            continue;
        painter.fillRect(area.adjusted(Frame, 0, -Frame, 0), palette().base());
        painter.fillRect(area.left() + Margin, area.center().y(), area.width() - 2 * Margin, 1,
                         line);
    }
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
