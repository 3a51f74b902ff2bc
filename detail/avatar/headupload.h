// A cut picture on its way to the back end: made small, stored, uploaded. Ends in one
// finished(); deleting the object ends it without.
#pragma once

#include "common/httpresponsedata.h"

#include <QObject>
#include <QPixmap>

class HeadUpload : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Once. `folder`: where the picture is stored on this computer.
    void start(const QPixmap &cut, const QString &folder);

signals:
    void progress(qint64 done, qint64 total); // bytes of the upload
    // The picture could not be stored, and nothing was uploaded; the end, too.
    void notStored();
    void finished(const HttpResponseData &result);

private:
    void upload(const QString &file);
};
