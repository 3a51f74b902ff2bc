// A line that tells how something stands, with a sign for its tone, where a box would
// be too much. Its room stays when it has nothing to say, so that nothing moves.
#pragma once

#include <QTimer>
#include <QWidget>

class QGraphicsOpacityEffect;
class QLabel;
class QPropertyAnimation;

class TipLabel : public QWidget
{
    Q_OBJECT

public:
    enum Tone
    {
        Information,
        Success,
        Warning
    };

    explicit TipLabel(QWidget *parent = nullptr);

    // Anybody's text, shown as it stands; it fades away after `forMs`, or stays when
    // that is 0. An empty one takes away what is there. Who listens to a screen reader
    // hears it.
    void tell(const QString &text, Tone tone, int forMs = 0);
    void clear() { tell(QString(), Information); }

    QString text() const; // empty as soon as it begins to fade

protected:
    void changeEvent(QEvent *event) override;

private:
    void showSign();
    void fade();

    QLabel *m_sign;
    QLabel *m_text;
    Tone m_tone = Information;
    QTimer m_stay;
    QGraphicsOpacityEffect *m_opacity;
    QPropertyAnimation *m_fading;
};
