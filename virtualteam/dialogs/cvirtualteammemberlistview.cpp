#include "virtualteam/dialogs/cvirtualteammemberlistview.h"

#include "common/displaytext.h"
#include "controls/skin.h"
#include "http/fileservices.h"
#include "plugin/paneactions.h"
#include "virtualteam/dialogs/memberlistmodel.h"
#include "virtualteam/teamroles.h"

#include <QPainter>

CVirtualTeamMemberListView::CVirtualTeamMemberListView(QWidget *parent)
    : CVirtualTeamMemberListView(MemberListDelegate::Plain, parent)
{
}

CVirtualTeamMemberListView::CVirtualTeamMemberListView(MemberListDelegate::Kind kind,
                                                       QWidget *parent)
    : CVirtualTeamMemberListView(new MemberListModel, kind, parent)
{
}

CVirtualTeamMemberListView::CVirtualTeamMemberListView(MemberListModel *model,
                                                       MemberListDelegate::Kind kind,
                                                       QWidget *parent)
    : RowView(model, TeamRowRole::Name, parent), m_model(model)
{
    setObjectName(QStringLiteral("CVirtualTeamMemberListView"));
    model->setParent(this);
    setItemDelegate(new MemberListDelegate(kind, this));
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    connect(this, &RowView::activatedRow, this, [](const QModelIndex &row) {
        PaneActions *actions = paneActions();
        if (actions && actions->canOpenContactDetail())
            actions->openContactDetail(makeJid(row.data(TeamRowRole::Id).toString()));
    });
    connect(&PictureFiles::instance(), &PictureFiles::ready, viewport(),
            QOverload<>::of(&QWidget::update));
}

QString CVirtualTeamMemberListView::cardJid(const QModelIndex &index) const
{
    return makeJid(index.data(TeamRowRole::Id).toString());
}

void CVirtualTeamMemberListView::setTextWhenEmpty(const QString &text)
{
    m_textWhenEmpty = text;
    viewport()->update();
}

void CVirtualTeamMemberListView::paintEvent(QPaintEvent *event)
{
    RowView::paintEvent(event);
    if (m_model->rowCount() > 0 || m_textWhenEmpty.isEmpty())
        return;
    constexpr int Edge = 16; // device-independent pixels
    QPainter painter(viewport());
    painter.setFont(skinFont(12));
    painter.setPen(Skin::instance().colors().secondary);
    painter.drawText(viewport()->rect().adjusted(Edge, 0, -Edge, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, m_textWhenEmpty);
}
