// The files under way, in the window's status bar, with a way to stop them.
#pragma once

#include <QWidget>

class FileTransfers;
class MessagingCore;
class QLabel;
class QProgressBar;
class QToolButton;

class TransferStatus : public QWidget
{
    Q_OBJECT

public:
    // Neither is owned. Hidden while nothing is under way.
    TransferStatus(const MessagingCore *core, FileTransfers *transfers, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showState();

    const MessagingCore *m_core;
    FileTransfers *m_transfers;
    QLabel *m_text;
    QProgressBar *m_progress;
    QToolButton *m_cancel;
};
