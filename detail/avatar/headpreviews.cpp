#include "detail/avatar/headpreviews.h"

#include "controls/pictures.h"
#include "controls/skin.h"
#include "detail/avatar/headfile.h"

#include <QLabel>
#include <QVBoxLayout>

#include <utility>

namespace {
QLabel *picture(const char *name, int side, const QString &caption, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setStyleSheet(
        QStringLiteral("QLabel#%1{border:0px;background:transparent;}").arg(QLatin1String(name)));
    label->setFixedSize(side, side);
    label->setAccessibleName(caption);
    return label;
}

QLabel *text(const QString &text, int size, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setFont(skinFont(size));
    return label;
}
} // namespace

HeadPreviews::HeadPreviews(QWidget *parent) : QWidget(parent)
{
    const QString large = QString::fromUtf8("大头像");
    const QString small = QString::fromUtf8("小头像");
    m_middle = picture("m_MiddleAvatarLabel", LargeSide, large, this);
    m_small = picture("m_SmallAvatarLabel", SmallSide, small, this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(text(QString::fromUtf8("预览："), 13, this));
    layout->addSpacing(10);
    for (const auto &[label, caption] : {std::pair(m_middle, large), std::pair(m_small, small)}) {
        QLabel *below = text(caption, 12, this);
        below->setForegroundRole(QPalette::PlaceholderText);
        layout->addWidget(label, 0, Qt::AlignHCenter);
        layout->addWidget(below, 0, Qt::AlignHCenter);
        layout->addSpacing(14);
    }
    layout->addStretch(1);
}

void HeadPreviews::setPicture(const QPixmap &px)
{
    for (QLabel *label : {m_middle, m_small})
        label->setPixmap(
            px.isNull() ? QPixmap()
                        : rounded(HeadFile::thumbnail(px, label->width(), devicePixelRatioF())));
}
