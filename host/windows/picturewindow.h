// A picture that the plug-in wants to be seen large, such as somebody's portrait.
#pragma once

#include <QDialog>

class PictureWindow : public QDialog
{
    Q_OBJECT

public:
    static constexpr int LargestSide = 8192; // pixels of a file; a larger one is not shown

    // Shown without blocking, and deleted when closed. Of a file that cannot be read the
    // window says so.
    static PictureWindow *show(QWidget *parent, const QString &name, const QString &file);

private:
    PictureWindow(QWidget *parent, const QString &name, const QString &file);
};
