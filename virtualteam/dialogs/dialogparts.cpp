#include "virtualteam/dialogs/dialogparts.h"

#include "controls/searchbox.h"
#include "controls/skin.h"
#include "controls/statepage.h"

#include <QDialog>
#include <QLabel>
#include <QTextLayout>
#include <QVBoxLayout>
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

QLayout *DialogParts::searchLine(SearchBox *box, QDialog *dialog)
{
    constexpr int Gap = 8;
    auto *line = new QVBoxLayout;
    line->setContentsMargins(Edge, Gap, Edge, Gap);
    line->addWidget(box);
    QObject::connect(box, &SearchBox::escapePressed, dialog, [box, dialog] {
        if (box->text().isEmpty())
            dialog->reject();
        else
            box->clear();
    });
    return line;
}

StatePage *DialogParts::loadingPage(QWidget *parent)
{
    return new StatePage("loading",
                         QStringLiteral("Resources/images/SearchFriend/qora_Loading.gif"), nullptr,
                         parent);
}

StatePage *DialogParts::failedPage(const char *key, QWidget *parent)
{
    return new StatePage(key, QStringLiteral("Resources/images/icon/ic_lion_load_failure.png"),
                         "retry", parent);
}

StatePage *DialogParts::emptyPage(const char *key, QWidget *parent)
{
    return new StatePage(key, QStringLiteral("Resources/images/contacts/empty_list.png"), nullptr,
                         parent);
}
