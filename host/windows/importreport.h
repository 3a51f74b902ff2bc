// What became of an import, with every problem and its line.
#pragma once

#include <QDialog>
#include <QStringList>

class ImportReport : public QDialog
{
    Q_OBJECT

public:
    // Shown without blocking, deleted when closed.
    ImportReport(const QString &fileName, const QString &summary, const QStringList &problems,
                 QWidget *parent = nullptr);
};
