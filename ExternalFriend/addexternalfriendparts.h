// What the window about an external contact shows: the person, what the person has
// asked or what is to be asked, and the buttons. What happens is AddExternalFriend's.
#pragma once

#include <QWidget>

class ElidedLabel;
class QLabel;
class QPushButton;
class SkinButton;
class ValidationEdit;
struct SysUIData;

// The colours and font that the window's name labels have: its title and "lblName".
void dressNameLabel(QWidget *label, const SysUIData &skin);

// Picture, name and company.
class ExternalPersonHeader : public QWidget
{
    Q_OBJECT

public:
    explicit ExternalPersonHeader(QWidget *parent = nullptr);

    // Display texts; without a company its part is not there.
    void setPerson(const QString &jid, const QString &name, const QString &company);
    // A local file; the default picture when it is empty or no picture.
    void setPicture(const QString &file);
    void dress(const SysUIData &skin);
    void retranslate();

private:
    void showPicture();

    QString m_jid, m_file;
    QLabel *m_picture;      // "lblPicture"
    ElidedLabel *m_name;    // "lblName"
    QLabel *m_mark;         // that it is somebody outside
    QWidget *m_companyPart; // "companyInfoWidget"
    ElidedLabel *m_company; // "lblCompany"
};

// The text that goes with the request: to be typed, or as the person has sent it.
class ExternalValidation : public QWidget
{
    Q_OBJECT

public:
    explicit ExternalValidation(QWidget *parent = nullptr);

    enum Shown
    {
        Nothing,
        ToType,
        ToRead
    };
    void show(Shown shown, const QString &request);
    void setEditable(bool editable);
    void showLength(int used, int limit);
    void dress(const SysUIData &skin);

    ValidationEdit *edit() const { return m_edit; }

private:
    QLabel *m_length;
    ValidationEdit *m_edit;
    QLabel *m_request; // "lblRequest"
};

class ExternalButtons : public QWidget
{
    Q_OBJECT

public:
    explicit ExternalButtons(QWidget *parent = nullptr);

    enum Button
    {
        Mail = 1,
        Chat = 2,
        Blacklist = 4,
        Send = 8,
        Accept = 16,
        Close = 32
    };
    Q_DECLARE_FLAGS(Buttons, Button)
    void show(Buttons buttons);
    // Of those that ask something of the host; chat and mail can always be had.
    void setRequestsEnabled(bool enabled);
    void retranslate();
    void takeFocus(); // on the first that leads on

signals:
    void clicked(Button button);

private:
    SkinButton *make(Button button, const char *name, int kind, const char *glyph = nullptr);

    SkinButton *m_mail;
    SkinButton *m_chat;
    SkinButton *m_blacklist;
    SkinButton *m_send;
    SkinButton *m_accept;
    SkinButton *m_close;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ExternalButtons::Buttons)
