// A context menu in the colours of the skin. Actions are known by their object
// name, which is the translation key; their texts follow the language.
#pragma once

#include <QMenu>

class SkinMenu : public QMenu
{
    Q_OBJECT

public:
    // `name` becomes the object name.
    SkinMenu(const QString &name, QWidget *parent);

    QAction *addKey(const char *key);
    QAction *action(const char *key) const; // null when there is none

    // A submenu titled tr(key).
    SkinMenu *addSubMenu(const char *key);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
};
