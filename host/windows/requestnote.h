// A small window for a request whose real answer lies outside this host, such as
// writing a mail: it shows what was asked for and says plainly that nothing more
// happens here.
#pragma once

#include <QDialog>

class RequestNote : public QDialog
{
    Q_OBJECT

public:
    // Shown without blocking, and deleted when closed. `lines` are shown as plain
    // text, one below the other.
    static RequestNote *show(QWidget *parent, const QString &title, const QString &explanation,
                             const QStringList &lines);

private:
    RequestNote(QWidget *parent, const QString &title, const QString &explanation,
                const QStringList &lines);
};
