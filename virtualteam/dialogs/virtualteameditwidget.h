// Asks for one line: the name of a team or sub-group, a nick name, a post. It stays
// open, and cannot be confirmed twice, until finish() tells what became of it, so that
// nothing typed is lost by a failure.
#pragma once

#include "controls/basedialog.h"

class DialogBar;
class QLabel;
class TeamNameEdit;

class VirtualTeamEditWidget : public BaseDialog
{
    Q_OBJECT

public:
    enum Mode
    {
        AddGroup,    // "addTeamGroupName"
        RenameGroup, // "modifyTeamGroupName"
        NickName,    // "editNickName"
        Post,        // "virtemModPostName"
        TeamName     // "virtemModGrpName"
    };

    VirtualTeamEditWidget(Mode mode, const QString &preset, QWidget *parent);

    // Closes the dialog, or lets the user try again.
    void finish(bool ok);
    bool isWaiting() const;
    // Whether the text is another than the preset, as far as that could be shown.
    bool isChange(const QString &text) const { return text != m_preset; }

signals:
    // Trimmed; not empty except a post or nick name; 16 characters at most.
    void signal_sure(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void confirm();
    void setWaiting(bool waiting);
    void retranslate();
    void showLength();

    Mode m_mode;
    QString m_preset;
    TeamNameEdit *m_line;
    QLabel *m_length;
    DialogBar *m_bar;
};
