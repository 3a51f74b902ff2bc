// How people outside the user's company are told from colleagues; who they are is
// isExternal()'s to say.
#pragma once

#include <QPixmap>
#include <QString>

// The mark, `size` device-independent pixels square.
QPixmap outsideMark(int size, qreal pixelRatio);

// The same in words, for tool tips and screen readers; translated.
QString outsideText();
