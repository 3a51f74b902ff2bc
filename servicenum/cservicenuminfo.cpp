#include "servicenum/cservicenuminfo.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "controls/noticeline.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/statestack.h"
#include "controls/valuelabel.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/descriptionview.h"
#include "servicenum/servicecommands.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicetexts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {
constexpr int BodyWidth = 400; // device-independent pixels, as all below
constexpr int Margin = 20;
constexpr int Indent = DescriptionView::TextMargin; // of what stands beside the description
constexpr int IconSize = 64;
constexpr int VerifiedSize = 22;
constexpr int MostDescription = 200;
} // namespace

CServiceNumInfo::CServiceNumInfo(const QString &code, QWidget *parent)
    : BaseDialog(parent), m_code(code), m_states(new StateStack)
{
    LOG_SCOPE("CServiceNumInfo::CServiceNumInfo(const QString& code, QWidget* parent)");
    setObjectName(QStringLiteral("CServiceNumInfo"));
    setTitleKey("serviceDetail");
    setFixedWidth(BodyWidth);
    bodyLayout()->addLayout(m_states);
    m_content = makeContent();
    m_states->addWidget(m_content);
    connect(m_states, &StateStack::buttonClicked, this, &CServiceNumInfo::refresh);
    connectNumbers();
    retranslate();
    refresh();
}

// --- What the window is made of ------------------------------------------------------------

QWidget *CServiceNumInfo::makeContent()
{
    auto *content = new QWidget(this);
    m_description = new DescriptionView(MostDescription, content);
    m_description->setObjectName(QStringLiteral("description"));
    m_values = new QWidget(content);
    auto *values = new QGridLayout(m_values);
    values->setContentsMargins(Indent, 0, Indent, 0);
    values->setHorizontalSpacing(12);
    values->setVerticalSpacing(6);
    values->setColumnStretch(1, 1);
    m_subject = makeValue("subject", &m_subjectCaption);
    m_contact = makeValue("contactWay", &m_contactCaption);
    values->addWidget(m_subjectCaption, 0, 0);
    values->addWidget(m_subject, 0, 1);
    values->addWidget(m_contactCaption, 1, 0);
    values->addWidget(m_contact, 1, 1);
    m_notice = new NoticeLine(content);
    m_notice->layout()->setContentsMargins(Indent, 0, Indent, 0);

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(Margin - Indent, 8, Margin - Indent, Margin);
    layout->setSpacing(12);
    layout->addLayout(makeHeader());
    layout->addWidget(m_description);
    layout->addWidget(m_values);
    layout->addStretch(1);
    layout->addWidget(m_notice);
    layout->addLayout(makeButtons());
    return content;
}

QLayout *CServiceNumInfo::makeHeader()
{
    m_icon = new QLabel(this);
    m_icon->setObjectName(QStringLiteral("labelAvatar"));
    m_icon->setFixedSize(IconSize, IconSize);
    m_name = new ElidedLabel(this);
    m_name->setObjectName(QStringLiteral("labelName"));
    m_name->setFont(skinFont(16));
    m_kind = new QLabel(this);
    m_kind->setObjectName(QStringLiteral("labelKind"));
    m_kind->setTextFormat(Qt::PlainText);
    m_kind->setFont(skinFont(12));
    m_kind->setForegroundRole(QPalette::PlaceholderText);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addStretch(1);
    texts->addWidget(m_name);
    texts->addWidget(m_kind);
    texts->addStretch(1);
    auto *header = new QHBoxLayout;
    header->setContentsMargins(Indent, 0, Indent, 0);
    header->setSpacing(14);
    header->addWidget(m_icon);
    header->addLayout(texts, 1);
    return header;
}

ValueLabel *CServiceNumInfo::makeValue(const char *objectName, QLabel **caption)
{
    *caption = new QLabel(this);
    (*caption)->setTextFormat(Qt::PlainText);
    (*caption)->setFont(skinFont(13));
    (*caption)->setForegroundRole(QPalette::PlaceholderText);
    auto *value = new ValueLabel(this);
    value->setObjectName(QLatin1String(objectName));
    value->setFont(skinFont(13));
    return value;
}

QLayout *CServiceNumInfo::makeButtons()
{
    const auto button = [this](SkinButton::Kind kind, const char *key) {
        auto *made = new SkinButton(kind, QString(), this);
        made->setObjectName(QLatin1String(key));
        return made;
    };
    m_chat = button(SkinButton::Primary, "serviceNoChat");
    m_subscribe = button(SkinButton::Primary, "subscribe");
    m_cancel = button(SkinButton::Outline, "cancelSubscribe");
    m_history = button(SkinButton::Outline, "showhistory");
    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(Indent, 4, Indent, 0);
    buttons->setSpacing(10);
    buttons->addStretch(1);
    for (SkinButton *each : {m_chat, m_subscribe, m_cancel, m_history})
        buttons->addWidget(each);

    using Info = CServiceNumInfo;
    connect(m_chat, &QPushButton::clicked, this, [this] {
        reject(); // not to stand in front of the chat
        ServiceCommands::openChat(m_code);
    });
    connect(m_history, &QPushButton::clicked, this,
            [this] { ServiceCommands::showHistory(m_code, this); });
    connect(m_subscribe, &QPushButton::clicked, this,
            [this] { emit signal_subscribeServiceNum(m_code); });
    connect(m_cancel, &QPushButton::clicked, this,
            [this] { emit signal_unsubscribeServiceNum(m_code); });
    connect(this, &Info::signal_subscribeServiceNum, this,
            [this](const QString &code) { ServiceCommands::subscribe(code, this); });
    connect(this, &Info::signal_unsubscribeServiceNum, this,
            [this](const QString &code) { ServiceCommands::unsubscribe(code, this); });
    return buttons;
}

// --- What it follows -----------------------------------------------------------------------

void CServiceNumInfo::connectNumbers()
{
    using Hub = FriendUISignalSender;
    const ServiceNumbers *numbers = &ServiceNumbers::instance();
    const auto ifOwn = [this](auto then) {
        return [this, then](const QString &code) {
            if (code == m_code)
                then();
        };
    };
    connect(numbers, &ServiceNumbers::changed, this, ifOwn([this] {
                // Whatever has been asked for anew may end otherwise.
                m_refusal = nullptr;
                m_failed = false;
                fill();
            }));
    connect(numbers, &ServiceNumbers::detailFailed, this, ifOwn([this] {
                m_failed = true;
                fill();
            }));
    connect(numbers, &ServiceNumbers::iconReady, this, ifOwn([this] { showIcon(); }));
    connect(numbers, &ServiceNumbers::subscriptionFailed, this,
            [this](const QString &code, const QString &error) {
                if (code != m_code)
                    return;
                m_refusal = ServiceTexts::refusalKey(error);
                fill();
            });
    connect(numbers, &ServiceNumbers::cancellationFailed, this, ifOwn([this] {
                m_refusal = "cancelSubscribeFailed";
                fill();
            }));
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, this, &CServiceNumInfo::showIcon);
    connect(&Skin::instance(), &Skin::changed, this, &CServiceNumInfo::showIcon);
    connect(Hub::instance(), &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected)
            refresh();
        else
            fill();
    });
    // What one user may see is not for the next one.
    connect(Hub::instance(), &Hub::signal_logout, this, &QDialog::reject);
}

void CServiceNumInfo::refresh()
{
    m_failed = false;
    if (isOnline())
        ServiceNumbers::instance().refresh(m_code);
    fill();
}

// --- What it shows -------------------------------------------------------------------------

void CServiceNumInfo::fill()
{
    if (const CServiceNumData *number = ServiceNumbers::instance().find(m_code)) {
        fillContent(*number);
        const bool isFirst = m_states->currentWidget() != m_content || !isVisible();
        m_states->setCurrentWidget(m_content);
        // Before the description, which is first in the window.
        if (isFirst)
            (m_chat->isEnabled() ? m_chat : m_subscribe)->setFocus(Qt::OtherFocusReason);
    } else if (!isOnline()) {
        m_states->showPage("yourImIsOffline", "Resources/images/FriendDetail/failed.png");
    } else if (m_failed) {
        m_states->showPage("loadErrorAndCrazyRetry", "Resources/images/FriendDetail/failed.png",
                           "retry");
    } else {
        m_states->showPage("loading", "Resources/images/SearchFriend/qora_Loading.gif");
    }
    if (isVisible()) {
        layout()->activate();
        adjustSize();
    }
}

void CServiceNumInfo::fillContent(const CServiceNumData &number)
{
    const bool isSubscribed = ServiceNumbers::instance().isSubscribed(m_code);
    m_name->setText(ServiceTexts::name(number));
    m_kind->setText(QObject::tr("kindServiceNumber") + QString::fromUtf8(" · ") +
                    (isSubscribed ? QObject::tr("subscribed") : QObject::tr("notSubscribed")));
    m_description->setDescription(number.description);
    const auto setValue = [](QLabel *caption, ValueLabel *label, const QString &value) {
        label->setValue(value);
        label->setVisible(!value.trimmed().isEmpty());
        caption->setVisible(!value.trimmed().isEmpty());
    };
    setValue(m_subjectCaption, m_subject, number.subject);
    setValue(m_contactCaption, m_contact, number.contactWay);
    m_values->setVisible(!m_subject->isHidden() || !m_contact->isHidden());
    fillButtons(number);
    fillNotice(number);
    showIcon();
}

void CServiceNumInfo::fillButtons(const CServiceNumData &number)
{
    const bool isSubscribed = ServiceNumbers::instance().isSubscribed(m_code);
    const bool isBusy = ServiceNumbers::instance().isBusy(m_code);
    const bool mayAsk = isOnline() && !isBusy;
    const bool isForbidden = m_refusal && qstrcmp(m_refusal, "NoAuthSubscrip") == 0;
    // The one that takes the other's place takes its focus, too.
    SkinButton *shown = isSubscribed ? m_cancel : m_subscribe;
    SkinButton *hidden = isSubscribed ? m_subscribe : m_cancel;
    const bool hadFocus = m_subscribe->hasFocus() || m_cancel->hasFocus() || m_focusDue;
    shown->setVisible(true);
    m_cancel->setEnabled(mayAsk);
    m_subscribe->setEnabled(mayAsk && !isForbidden);
    m_focusDue = hadFocus && !shown->isEnabled();
    if (hadFocus)
        (shown->isEnabled() ? static_cast<QWidget *>(shown) : closeButton())
            ->setFocus(Qt::OtherFocusReason);
    hidden->setVisible(false);
    m_subscribe->setToolTip(isForbidden ? QObject::tr("NoAuthSubscrip") : QString());
    m_chat->setEnabled(isSubscribed);
    m_chat->setToolTip(!isSubscribed           ? QObject::tr("serviceChatNeedsSubscription")
                       : !number.isInteractive ? QObject::tr("serviceOneWay")
                                               : QString());
    m_history->setEnabled(isOnline());
}

void CServiceNumInfo::fillNotice(const CServiceNumData &number)
{
    if (!isOnline())
        m_notice->say("yourImIsOffline");
    else if (m_refusal)
        m_notice->say(m_refusal);
    else if (!ServiceNumbers::instance().isSubscribed(m_code))
        m_notice->say("serviceChatNeedsSubscription");
    else if (!number.isInteractive)
        m_notice->say("serviceOneWay");
    else
        m_notice->say(nullptr);
}

void CServiceNumInfo::showIcon()
{
    if (!ServiceNumbers::instance().find(m_code))
        return;
    QPixmap icon = AvatarStore::instance().serviceIcon(ServiceNumbers::instance().icon(m_code),
                                                       IconSize, devicePixelRatioF());
    QPainter painter(&icon);
    const int corner = IconSize - VerifiedSize;
    RowPainter::drawVerified(&painter, QRectF(corner, corner, VerifiedSize, VerifiedSize));
    painter.end();
    m_icon->setPixmap(icon);
}

void CServiceNumInfo::retranslate()
{
    m_chat->setText(QObject::tr("serviceNoChat"));
    m_subscribe->setText(QObject::tr("subscribe"));
    m_cancel->setText(QObject::tr("cancelSubscribe"));
    m_history->setText(QObject::tr("showhistory"));
    m_subjectCaption->setText(QObject::tr("serviceSubject"));
    m_contactCaption->setText(QObject::tr("serviceContact"));
    m_subject->setAccessibleName(m_subjectCaption->text());
    m_contact->setAccessibleName(m_contactCaption->text());
    m_description->setAccessibleName(QObject::tr("serviceDescription"));
    m_icon->setAccessibleName(QObject::tr("kindServiceNumber"));
}

void CServiceNumInfo::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    fill();
}
