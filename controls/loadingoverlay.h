// Tells that something is still being loaded: over a whole area that has nothing to
// show yet, or as a note in its corner that leaves what is known readable.
#pragma once

#include <QWidget>

class QLabel;
class QMovie;

class LoadingOverlay : public QWidget
{
    Q_OBJECT

public:
    explicit LoadingOverlay(QWidget *area); // hidden at first; follows the area's size

    void cover();
    void note();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void place();
    void present();
    void retranslate();
    void showFrame();

    QWidget *m_area;
    QLabel *m_picture; // "label_loading"
    QLabel *m_text;
    QMovie *m_movie;
    bool m_covers = true;
};
