// The left side of the window: the plug-in's pane, or a page that tells why there
// is none and what to do about it.
#pragma once

#include <QStackedWidget>

class QLabel;
class QPushButton;

class PaneArea : public QStackedWidget
{
    Q_OBJECT

public:
    explicit PaneArea(QWidget *parent = nullptr);

    // Takes the widget over as Qt's parent of it.
    void setPane(QWidget *pane);
    QWidget *pane() const { return m_pane; }
    void setProblem(const QString &file, const QString &problem);

    QSize sizeHint() const override;

signals:
    void fileChosen(const QString &file); // another module to try
    void retryWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *buildErrorPage();
    void chooseFile();
    void paintPicture();
    void retranslate();

    QWidget *m_pane = nullptr;
    QLabel *m_picture;
    QLabel *m_title;
    QLabel *m_text;
    QLabel *m_file;
    QPushButton *m_retry;
    QPushButton *m_choose;
};
