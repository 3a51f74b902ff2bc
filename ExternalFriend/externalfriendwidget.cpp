#include "ExternalFriend/externalfriendwidget.h"

#include "ExternalFriend/addexternalfrdmanager.h"
#include "ExternalFriend/linkbutton.h"
#include "ExternalFriend/searchexternalfriend.h"
#include "common/context.h"
#include "common/logging.h"
#include "contacts/friendcommands.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/groupnames.h"
#include "controls/elidedlabel.h"
#include "controls/loadingoverlay.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/statepage.h"
#include "controls/statestack.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int Margin = 12; // device-independent pixels, as all below
constexpr int Gap = 8;
constexpr int TitlePixels = 15;
constexpr int HintPixels = 12;

constexpr ContactTreeKind externalContacts{
    "ExternalFriendWidget",
    ExternalContactRow,
    "/externalFriends/expandedGroups",
    "entry fun ExternalFriendWidget::slot_addAllFriend()--listAddFriendData.size() == 0",
    QT_TRANSLATE_NOOP("QObject", "getfriendsfailed"),
    true,
    QT_TRANSLATE_NOOP("QObject", "deleteOutsideFriendFailed"),
    QT_TRANSLATE_NOOP("QObject", "addgroupfailed"),
    true,
    "分组删除失败，请重试！",
    "重命名失败，请重试！",
    true,
    "确定",
};
} // namespace

ExternalFriendWidget::ExternalFriendWidget(QWidget *parent)
    : ContactTreePage(externalContacts, parent),
      m_title(new ElidedLabel(this)),
      m_add(new SkinButton(SkinButton::Outline,
                           QStringLiteral("Resources/images/icon/glyph_add.png"), this)),
      m_refresh(new SkinButton(SkinButton::Outline,
                               QStringLiteral("Resources/images/icon/glyph_refresh.png"), this)),
      m_body(new QWidget(this)),
      m_overlay(new LoadingOverlay(m_body)),
      m_hint(new QWidget(this)),
      m_hintText(new QLabel(m_hint))
{
    layOut();
    retranslate();
    connect(m_add, &QPushButton::clicked, this, &ExternalFriendWidget::findPeople);
    connect(m_refresh, &QPushButton::clicked, this, &ExternalFriendWidget::refresh);
    connect(view(), &FriendTreeView::waitingForGroups, this, &ExternalFriendWidget::showWaiting);
    connect(view()->commands(), &FriendCommands::blacklisting, this,
            [](const QString &jid) { AddExternalFrdManager::instance()->awaitAnswer(jid); });
    start();
    // Nothing else makes the host deliver them when the user has not needed them yet. Not
    // at once: the host may take the pane away inside the request.
    QMetaObject::invokeMethod(this, &ExternalFriendWidget::loadAtFirst, Qt::QueuedConnection);
}

// --- Look ------------------------------------------------------------------------

void ExternalFriendWidget::layOut()
{
    m_title->setText(QString::fromUtf8("个人好友"));
    m_title->setFont(skinFont(TitlePixels, QFont::DemiBold));
    m_add->setText(QString::fromUtf8("新增"));
    m_add->setObjectName(QStringLiteral("btnAdd"));
    m_refresh->setText(QString::fromUtf8("刷新"));
    m_refresh->setObjectName(QStringLiteral("btnRefresh"));

    auto *header = new QHBoxLayout;
    header->setContentsMargins(Margin, 0, Margin, Gap);
    header->setSpacing(Gap);
    header->addWidget(m_title, 1);
    header->addStretch();
    header->addWidget(m_add);
    header->addWidget(m_refresh);

    m_hintText->setTextFormat(Qt::PlainText);
    m_hintText->setWordWrap(true);
    m_hintText->setFont(skinFont(HintPixels));
    m_hintText->setForegroundRole(QPalette::PlaceholderText);
    auto *hint = new QHBoxLayout(m_hint);
    hint->setContentsMargins(Margin, 0, Margin, Gap);
    hint->setSpacing(Gap);
    hint->addWidget(m_hintText, 1);
    hint->addWidget(link(m_hint));

    m_body->setLayout(states());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(header);
    layout->addWidget(m_hint);
    layout->addWidget(m_body, 1);
}

QWidget *ExternalFriendWidget::link(QWidget *parent)
{
    auto *button = new LinkButton(QString::fromUtf8("添加好友"), parent);
    button->setObjectName(QStringLiteral("linkAddFriend"));
    connect(button, &QPushButton::clicked, this, &ExternalFriendWidget::findPeople);
    return button;
}

void ExternalFriendWidget::retranslate()
{
    m_title->setToolTip(QObject::tr("outsidefrd"));
    m_add->setToolTip(QObject::tr("addcon"));
    m_refresh->setToolTip(QObject::tr("refresh"));
    m_hintText->setText(QObject::tr("nofrd_toadd"));
}

void ExternalFriendWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    ContactTreePage::changeEvent(event);
}

// --- States ----------------------------------------------------------------------

bool ExternalFriendWidget::hasRows() const
{
    const QList<GroupData> groups = model()->groups();
    return model()->contactCount() > 0 ||
           std::any_of(groups.cbegin(), groups.cend(), [](const GroupData &group) {
               return !group.id.isEmpty() && !isBuiltInGroup(group.name);
           });
}

void ExternalFriendWidget::showEmptyPage()
{
    StatePage *page = states()->showPage("nofrd_toadd", "Resources/images/contacts/empty_list.png");
    if (!page->findChild<LinkButton *>())
        page->addBelow(link(page));
}

void ExternalFriendWidget::showState()
{
    ContactTreePage::showState();
    m_hint->setVisible(hasRows() && model()->contactCount() == 0);
    showWaiting();
}

void ExternalFriendWidget::showWaiting()
{
    const bool waiting = view()->isWaitingForGroups();
    if (waiting && m_refresh->hasFocus())
        view()->setFocus();
    m_refresh->setEnabled(!waiting);
    if (waiting && states()->currentWidget()->objectName() != QLatin1String("friendsLoading"))
        m_overlay->note();
    else
        m_overlay->hide();
}

void ExternalFriendWidget::loadAtFirst()
{
    if (model()->rowCount() == 0)
        reload();
}

void ExternalFriendWidget::findPeople()
{
    SearchExternalFriend::showSearch(this);
}

void ExternalFriendWidget::refresh()
{
    LOG_SCOPE("ExternalFriendWidget::refresh()");
    if (isOnline())
        reload();
    else
        tell(QObject::tr("isOfflinePleaseLogin"));
}
