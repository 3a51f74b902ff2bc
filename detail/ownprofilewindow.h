// The profile of the user who is logged in, as the others see it.
#pragma once

#include "controls/basedialog.h"
#include "hostapi/rosterrecords.h"

class DetailRows;
class ValueLabel;
class HeadButton;
class NameEdit;
class QLabel;
class SkinButton;

// Object name "ownProfileWindow". It follows the profile, the picture and the presence
// as the hub tells of them.
class OwnProfileWindow : public BaseDialog
{
    Q_OBJECT

public:
    explicit OwnProfileWindow(QWidget *parent = nullptr);

    void setJid(const QString &jid);
    const QString &jid() const { return m_jid; }

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeBody();
    QLayout *makeTexts(QWidget *body);
    void fill();
    void retranslate();

    QString m_jid;
    HeadButton *m_head;
    NameEdit *m_name;
    ValueLabel *m_account;
    QLabel *m_presence;
    ValueLabel *m_signature;
    DetailRows *m_rows;
    SkinButton *m_editPicture;
};
