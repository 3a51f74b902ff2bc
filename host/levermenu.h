// The levers of the embedded core in the window: which operations fail or stay
// without an answer, and whether people come, go and write by themselves.
#pragma once

#include <QMenu>
#include <QVector>

class EmbeddedCore;
class PresenceSimulator;

class LeverMenu : public QMenu
{
    Q_OBJECT

public:
    // Neither is owned; both outlive the menu.
    LeverMenu(EmbeddedCore *core, PresenceSimulator *simulator, QWidget *parent = nullptr);

    // The names that the command line takes: "CreateGroup"...
    static QStringList operationNames();

    // By these names, or "all". An unknown name changes nothing.
    void setFailing(const QString &operation, bool failing);
    void setSilent(const QString &operation, bool silent);
    void setSimulating(bool on);

protected:
    void changeEvent(QEvent *event) override;

private:
    enum Kind
    {
        Failing,
        Silent
    };
    struct Lever
    {
        int operation; // -1: all
        QAction *action;
    };
    void build(Kind kind, QMenu *menu);
    void pull(Kind kind, int operation, bool on);
    void set(Kind kind, const QString &operation, bool on);
    void retranslate();

    EmbeddedCore *m_core;
    PresenceSimulator *m_simulator;
    QMenu *m_failMenu;
    QMenu *m_silentMenu;
    QAction *m_refuse;
    QAction *m_simulate;
    QAction *m_somebodyWrites;
    QAction *m_somebodyAsks;
    QVector<Lever> m_failing, m_silent;
};
