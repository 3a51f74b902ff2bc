// The window of one service number: who it is, and what can be done with it.
#pragma once

#include "controls/basedialog.h"

class DescriptionView;
class ElidedLabel;
class NoticeLine;
class QLabel;
class SkinButton;
class StateStack;
class ValueLabel;
struct CServiceNumData;

class CServiceNumInfo : public BaseDialog
{
    Q_OBJECT

public:
    // Asks for the newest record at once; until there is any the window says so.
    explicit CServiceNumInfo(const QString &code, QWidget *parent = nullptr);

    QString code() const { return m_code; }

signals:
    void signal_subscribeServiceNum(const QString &code);
    void signal_unsubscribeServiceNum(const QString &code);

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeContent();
    QLayout *makeHeader();
    QLayout *makeButtons();
    ValueLabel *makeValue(const char *objectName, QLabel **caption);
    void connectNumbers();
    void refresh();
    void fill();
    void fillContent(const CServiceNumData &number);
    void fillButtons(const CServiceNumData &number);
    void fillNotice(const CServiceNumData &number);
    void showIcon();
    void retranslate();

    const QString m_code;
    bool m_failed = false;           // the record could not be had
    const char *m_refusal = nullptr; // why a change failed: a translation key
    bool m_focusDue = false;         // a button that is disabled for now had the focus

    StateStack *m_states;
    QWidget *m_content = nullptr;
    QLabel *m_icon = nullptr;
    ElidedLabel *m_name = nullptr;
    QLabel *m_kind = nullptr;
    DescriptionView *m_description = nullptr;
    QWidget *m_values = nullptr;
    QLabel *m_subjectCaption = nullptr;
    ValueLabel *m_subject = nullptr;
    QLabel *m_contactCaption = nullptr;
    ValueLabel *m_contact = nullptr;
    NoticeLine *m_notice = nullptr;
    SkinButton *m_chat = nullptr;
    SkinButton *m_subscribe = nullptr;
    SkinButton *m_cancel = nullptr;
    SkinButton *m_history = nullptr;
};
