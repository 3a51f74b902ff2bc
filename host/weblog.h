// Every web request that the module or the host has finished, for whoever watches.
#pragma once

#include "hostapi/webrequestrecord.h"

#include <QObject>

Q_DECLARE_METATYPE(WebRequestRecord)

class WebLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    void recorded(const WebRequestRecord &record);
};
