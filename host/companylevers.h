// The levers of the own company in the web services: whether new virtual teams need
// approval, and whose.
#pragma once

#include <QMenu>

#include <functional>

class WebServices;
struct ServiceReply;

class CompanyLevers : public QMenu
{
    Q_OBJECT

public:
    using Pick = std::function<void(const std::function<void(QString)> &picked)>;

    // The services are not owned and outlive the menu. `pick` lets the user choose a
    // colleague's uid.
    CompanyLevers(const WebServices *services, const QString &ownUid, const Pick &pick,
                  QWidget *parent = nullptr);

signals:
    // One line that tells what failed.
    void note(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private:
    void ask(const char *field = nullptr, const QString &value = QString());
    void take(const ServiceReply &reply);
    void follow();
    void retranslate();

    const WebServices *m_services;
    const QString m_ownUid;
    QString m_approver; // name; empty: not known
    QString m_approverUid;
    QAction *m_needsApproval;
    QAction *m_who; // tells, does nothing
    QAction *m_me;
    QAction *m_other;
};
