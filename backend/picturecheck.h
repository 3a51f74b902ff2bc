// Whether uploaded bytes are a picture that clients can show.
#pragma once

#include <QByteArray>
#include <QString>

// The usual file ending of the picture, judged by its content: "png", "jpg", "gif" or
// "bmp". Empty: anything else, a broken picture, or one with a side above 8192 or
// more than 32 million pixels.
QString pictureEnding(const QByteArray &content);
