// The watermark behind pages that show the company's data: the product's name and
// the user's, tiled and tilted, as a picture file in the user's folder.
#pragma once

#include <QString>

// The file for the user who is logged in and the skin of now; drawn if it does not
// exist yet. Empty when it cannot be stored.
QString watermarkFile();

// The style sheet that lays the watermark behind the widget of this object name, or
// takes it away.
QString watermarkSheet(const QString &objectName, bool show);
