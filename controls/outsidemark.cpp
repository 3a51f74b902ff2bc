#include "controls/outsidemark.h"

#include "controls/pictures.h"

#include <QObject>

QPixmap outsideMark(int size, qreal pixelRatio)
{
    return loadPicture(QStringLiteral("Resources/images/icon/ic_outsideFrd.png"), size, pixelRatio);
}

QString outsideText()
{
    return QObject::tr("outsidefrd");
}
