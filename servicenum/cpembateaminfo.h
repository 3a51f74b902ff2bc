// The window of the product team's official account: who it is, a welcome, the code
// of the mobile client, and the way into a chat. There is at most one.
#pragma once

#include "controls/basedialog.h"

class ElidedLabel;
class QAbstractButton;
class QLabel;
class SkinButton;

class CPembaTeamInfo : public BaseDialog
{
    Q_OBJECT

public:
    // Opens or raises the window for the account that the context names; null when it
    // names none.
    static CPembaTeamInfo *open(QWidget *parent);

    QString jid() const { return m_jid; }

protected:
    void changeEvent(QEvent *event) override;

private:
    CPembaTeamInfo(const QString &jid, QWidget *parent);
    QLayout *makeHeader();
    QLayout *makeCode();
    QLayout *makeButtons();
    void fill();
    void showCode();
    void invite();

    const QString m_jid;
    QLabel *m_avatar;
    ElidedLabel *m_name;
    QLabel *m_welcome;
    QAbstractButton *m_code;
    QLabel *m_caption;
    SkinButton *m_invite;
    SkinButton *m_close;
};
