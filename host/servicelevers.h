// Levers for what the web services and people outside the company do: service numbers that
// come, change and answer, the floating card, somebody who asks to become a contact.
#pragma once

#include <QMenu>
#include <QVector>

#include <functional>

class EmbeddedCore;
class HostBus;
struct CServiceNumData;
class WebServices;

class ServiceLevers : public QMenu
{
    Q_OBJECT

public:
    struct Parts
    {
        const WebServices *services;
        EmbeddedCore *core;
        HostBus *bus;
        QString pictureFolder; // icons are drawn there
    };

    // None of the parts is owned; all outlive the menu.
    explicit ServiceLevers(const Parts &parts, QWidget *parent = nullptr);

signals:
    // One line that tells what was done, or why not.
    void note(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private:
    void addLever(const char *name, const char *text, std::function<void()> pull);
    void addNumberLevers();
    void addPeopleLevers();
    CServiceNumData nextNumber(bool isSubscribed);
    QString nextOutsider() const; // uid of somebody who may ask; empty: nobody
    void outsiderAsks();
    void retranslate();

    Parts m_parts;
    struct Lever
    {
        QAction *action;
        const char *text;
    };
    QVector<Lever> m_levers;
    int m_turn = 0;
};
