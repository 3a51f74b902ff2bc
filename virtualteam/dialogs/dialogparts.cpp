#include "virtualteam/dialogs/dialogparts.h"

#include "controls/skin.h"

#include <QLabel>
#include <QTextLayout>
#include <QtMath>

QLabel *DialogParts::label(QWidget *parent)
{
    auto *made = new QLabel(parent);
    made->setTextFormat(Qt::PlainText);
    made->setFont(skinFont(13));
    return made;
}

QLabel *DialogParts::quietLabel(QWidget *parent)
{
    QLabel *made = label(parent);
    made->setFont(skinFont(12));
    made->setForegroundRole(QPalette::PlaceholderText);
    return made;
}

int DialogParts::textHeight(const QFont &font, int lines)
{
    QTextLayout layout(QString::fromUtf8("高 Ag"), font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return lines * qCeil(line.height());
}
