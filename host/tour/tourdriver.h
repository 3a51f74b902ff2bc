// Goes through the steps of a tour while the event loop runs, also through the
// nested loops of modal dialogs, and takes a picture after each; and then one in every
// other look, in a folder of its own, with the windows still open.
#pragma once

#include "host/tour/tourstep.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QTimer>

class TourStage;

class TourDriver : public QObject
{
    Q_OBJECT

public:
    // `only` empty: all steps. The stage is not owned.
    TourDriver(TourStage *stage, const QString &folder, const QStringList &only,
               QObject *parent = nullptr);

    void start();
    QStringList failures() const { return m_failures; }

    // The window with every menu and dialog over it.
    static QImage picture(QWidget *window);

signals:
    void finished();

private:
    struct Chosen
    {
        const TourStep *step;
        int number; // in the whole tour, so that pictures keep their names
    };

    void tick();
    void beginStep();
    void beginMove();
    void endStep();
    void act(const TourMove &move);
    void fail(const QString &why);
    void tellFailure(const QString &failure);
    void runOwnProcess();
    QString pictureFile(const QString &folder) const;
    void nextLook();
    void savePicture(const QString &file);
    void forgetEarlierPictures();

    TourStage *m_stage;
    QString m_folder;
    std::vector<Chosen> m_steps;
    size_t m_step = 0;
    size_t m_move = 0;
    bool m_acted = false;
    bool m_isTold = false; // that the move takes long
    bool m_childRunning = false;
    size_t m_look = 0;      // the one to come
    int m_settled = 0;      // ticks since the last change of the look
    bool m_turning = false; // the step has been made; its pictures are taken
    bool m_stepFailed = false;
    QElapsedTimer m_since;
    QElapsedTimer m_sinceAct;
    QTimer m_ticker;
    QStringList m_failures;
    QString m_skin, m_language; // the step's own
};
