// What stands in the place of the teams for who has none: what they are for, and the
// button that creates one.
#pragma once

#include <QWidget>

class QLabel;
class SkinButton;

class NoTeamPage : public QWidget
{
    Q_OBJECT

public:
    explicit NoTeamPage(QWidget *parent = nullptr);

signals:
    void createClicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    QLabel *addLine(int pixels);
    void retranslate();

    QLabel *m_title;
    QLabel *m_explanation;
    QLabel *m_hint;
    SkinButton *m_create;
};
