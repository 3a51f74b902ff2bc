#include "ExternalFriend/addexternalfriend.h"

#include "ExternalFriend/addexternalfriendparts.h"
#include "ExternalFriend/externalrequestrules.h"
#include "ExternalFriend/tiplabel.h"
#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/validationedit.h"
#include "controls/validationtext.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"

#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>

namespace {

constexpr int WindowWidth = 400; // device-independent pixels, as all below
constexpr int Edge = 20;
constexpr int HintTime = 4000; // ms

QString firstOf(const QString &text, const QString &other)
{
    return text.isEmpty() ? other : text;
}

} // namespace

AddExternalFriend::AddExternalFriend(const QString &jid, QWidget *parent)
    : BaseDialog(parent), m_jid(jid), m_wait(new QTimer(this))
{
    setObjectName(QStringLiteral("AddExternalFriend"));
    setFixedWidth(WindowWidth);
    m_wait->setObjectName(QStringLiteral("waitTimer"));
    m_wait->setSingleShot(true);
    m_wait->setInterval(Patience);
    connect(m_wait, &QTimer::timeout, this, [this] {
        LOG_ERROR("no answer to the request about " << logText(m_jid));
        const bool isBlacklist = m_pending == ExternalRequest::Blacklist;
        settle();
        say({isBlacklist ? "blacklistFailed" : "addfailreadd", true, TipLabel::Warning});
    });
    buildBody();
    connect(this, &BaseDialog::closed, this, [this] {
        m_isClosed = true;
        m_wait->stop();
        emit signal_closed(m_jid);
    });
    connect(this, &AddExternalFriend::signal_addOutsideFriend, this,
            &AddExternalFriend::slot_addOutsideFriend);
    connect(this, &AddExternalFriend::signal_confirmOutsideFriend, this,
            &AddExternalFriend::slot_confirmOutsideFriend);
    connectHub();

    ctx().vcard(m_jid, &m_profile);
    slot_SkinChange(ctx().skin());
    showPerson();
    slot_ValidationChanged();
    if (isContact())
        becomeContact();
    else
        enter(Asking);
}

void AddExternalFriend::buildBody()
{
    titleLabel()->setObjectName(QStringLiteral("titleLabel"));
    m_minimize = new SkinButton(
        SkinButton::Flat, QStringLiteral("Resources/images/icon/glyph_minimize.png"), titleBar());
    m_minimize->setObjectName(QStringLiteral("btnMin"));
    m_minimize->setFocusPolicy(Qt::TabFocus);
    auto *bar = static_cast<QHBoxLayout *>(titleBar()->layout());
    bar->insertWidget(bar->count() - 1, m_minimize);
    connect(m_minimize, &QPushButton::clicked, this, &AddExternalFriend::slot_min);

    m_header = new ExternalPersonHeader(this);
    m_validation = new ExternalValidation(this);
    m_tip = new TipLabel(this);
    m_tip->setObjectName(QStringLiteral("lblStatus"));
    m_buttons = new ExternalButtons(this);
    auto *body = new QVBoxLayout;
    body->setContentsMargins(Edge, 8, Edge, 16);
    body->setSpacing(12);
    body->addWidget(m_header);
    body->addWidget(m_validation);
    body->addWidget(m_tip);
    body->addWidget(m_buttons);
    bodyLayout()->addLayout(body);

    connect(m_validation->edit(), &QTextEdit::textChanged, this,
            &AddExternalFriend::slot_ValidationChanged);
    connect(m_validation->edit(), &ValidationEdit::confirmed, this,
            &AddExternalFriend::slot_sendReq);
    connect(m_buttons, &ExternalButtons::clicked, this, [this](ExternalButtons::Button button) {
        switch (button) {
        case ExternalButtons::Mail:
            return slot_sendMail();
        case ExternalButtons::Chat:
            return slot_opendialog();
        case ExternalButtons::Blacklist:
            return slot_addBlackList();
        case ExternalButtons::Send:
            return slot_sendReq();
        case ExternalButtons::Accept:
            return slot_confirmReq();
        case ExternalButtons::Close:
            return slot_close();
        }
    });
}

void AddExternalFriend::connectHub()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_SkinChange, this, &AddExternalFriend::slot_SkinChange);
    connect(&Skin::instance(), &Skin::changed, this, [this] { slot_SkinChange(ctx().skin()); });
    connect(hub, &Hub::signal_FriendVcardInfo, this,
            [this](const QString &jid, const VcardInfo &info) {
                if (makeJid(jid) != m_jid)
                    return;
                m_profile = info;
                showPerson();
            });
    connect(hub, &Hub::signal_UpdateFrdHead, this,
            [this](const QString &jid, const QString &imagePath) {
                if (makeJid(jid) == m_jid)
                    m_header->setPicture(imagePath);
            });
    connect(&PictureFiles::instance(), &PictureFiles::ready, this,
            [this](const QString &name, const QString &file) {
                if (m_pictureName.isEmpty() || name != m_pictureName)
                    return;
                HttpResponseData response;
                response.ok = true;
                response.fileName = name;
                response.localPath = file;
                slot_downSelfPic(response);
            });
    connect(hub, &Hub::signal_addFriend, this, [this](const QString &jid) {
        if (makeJid(jid) == m_jid)
            becomeContact();
    });
    connect(hub, &Hub::signal_addAllFriend, this, [this] {
        if (isContact())
            becomeContact();
    });
    connect(hub, &Hub::signal_delOutsideFriend, this, [this](const QString &jid) {
        if (makeJid(jid) == m_jid && m_state == Added)
            enter(Asking);
    });
    connect(hub, &Hub::signal_logout, this, &QDialog::reject);
}

// --- The person ------------------------------------------------------------------

void AddExternalFriend::setPerson(const SearchFriendResultData &person)
{
    m_person = person;
    showPerson();
}

void AddExternalFriend::showPerson()
{
    FriendData contact;
    contact.jid = m_jid;
    ctx().friendData(m_jid, &contact);
    VcardInfo known = m_profile;
    known.nickName = firstOf(known.nickName, m_person.nickName);
    known.userName = firstOf(known.userName, m_person.name);
    m_header->setPerson(m_jid, contactDisplayName(contact, known),
                        displayText(firstOf(known.companyName, m_person.companyName)));

    const QString photo = firstOf(known.photoName, m_person.photoName);
    // The service's text is no path of ours.
    m_pictureName = QFileInfo(photo).fileName();
    const QString file = PictureFiles::instance().ofPerson(m_jid, photo);
    if (!file.isEmpty())
        m_header->setPicture(file);
}

void AddExternalFriend::slot_downSelfPic(const HttpResponseData &response)
{
    LOG_SCOPE("AddExternalFriend::slot_downSelfPic(const HttpResponseData& response)");
    static const QString temporary = QStringLiteral(".tmp");
    QString file = response.ok ? response.localPath : QString();
    if (file.endsWith(temporary)) {
        const QString complete = file.chopped(temporary.size());
        QFile::remove(complete);
        file = QFile::rename(file, complete) ? complete : QString();
    }
    if (file.isEmpty())
        LOG_ERROR("the picture of " << logText(m_jid) << " could not be fetched");
    m_header->setPicture(file);
}

void AddExternalFriend::slot_SkinChange(const SysUIData &skindata)
{
    dressNameLabel(titleLabel(), skindata);
    m_header->dress(skindata);
    m_validation->dress(skindata);
}

bool AddExternalFriend::isContact() const
{
    FriendData contact;
    return ctx().friendData(m_jid, &contact);
}

// --- States ----------------------------------------------------------------------

void AddExternalFriend::asked(const QString &statusText)
{
    LOG_SCOPE("AddExternalFriend::asked(const QString &statusText)");
    m_request = displayText(statusText);
    const bool isContactNow = m_state == Added && isContact();
    // A request that crosses the user's own makes both contacts: its answer counts.
    if (isContactNow || m_pending == ExternalRequest::Request)
        return;
    if (m_pending)
        showState();
    else
        enter(Asked);
}

void AddExternalFriend::setRequested()
{
    if (m_state == Asking)
        say({"已发送请求", false, TipLabel::Success});
}

void AddExternalFriend::becomeContact()
{
    settle();
    if (m_state != Added)
        enter(Added);
    showPerson();
}

void AddExternalFriend::enter(State state)
{
    m_state = state;
    switch (state) {
    case Asking:
    case Asked:
        m_said = Said();
        break;
    case Sent:
        m_said = {"已发送请求", false, TipLabel::Success};
        break;
    case Added:
        m_said = {"已添加好友", false, TipLabel::Success};
        break;
    case Blocked:
        m_said = {"已加入黑名单", false, TipLabel::Information};
        break;
    }
    showState();
    takeFocus();
}

void AddExternalFriend::say(const Said &said)
{
    m_said = said;
    showState();
}

// The texts of the state, in the language of now.
void AddExternalFriend::showState()
{
    using Buttons = ExternalButtons;
    setTitleKey(m_state == Asked ? QT_TRANSLATE_NOOP("QObject", "outsideRequestTitle")
                                 : QT_TRANSLATE_NOOP("QObject", "addcon"));
    Buttons::Buttons shown;
    if (m_state == Asking)
        shown = Buttons::Send;
    else if (m_state == Asked)
        shown = Buttons::Mail | Buttons::Chat | Buttons::Blacklist | Buttons::Accept;
    else if (m_state == Added)
        shown = Buttons::Mail | Buttons::Chat | Buttons::Close;
    else
        shown = Buttons::Close;
    shown.setFlag(Buttons::Mail,
                  shown.testFlag(Buttons::Mail) && ctx().hasRight(ApplicationContext::Mail));
    shown.setFlag(Buttons::Chat,
                  shown.testFlag(Buttons::Chat) && ctx().hasRight(ApplicationContext::Chat));
    m_buttons->show(shown);
    m_buttons->setRequestsEnabled(!m_pending);
    m_validation->show(m_state == Asking  ? ExternalValidation::ToType
                       : m_state == Asked ? ExternalValidation::ToRead
                                          : ExternalValidation::Nothing,
                       firstOf(m_request, QObject::tr("iamsomebodywantadd")));
    m_validation->setEditable(!m_pending);
    m_minimize->setToolTip(QObject::tr("minimize"));
    m_minimize->setAccessibleName(QObject::tr("minimize"));
    m_tip->tell(!m_said.text   ? QString()
                : m_said.isKey ? QObject::tr(m_said.text)
                               : QString::fromUtf8(m_said.text),
                m_said.tone);
    layout()->activate();
    resize(width(), layout()->totalHeightForWidth(width()));
}

void AddExternalFriend::takeFocus()
{
    if (m_state == Asking)
        m_validation->edit()->setFocus();
    else
        m_buttons->takeFocus();
}

// --- What the user presses -------------------------------------------------------

void AddExternalFriend::slot_sendMail()
{
    LOG_SCOPE("AddExternalFriend::slot_sendMail()");
    emit signal_sendEmail(m_jid);
}

void AddExternalFriend::slot_opendialog()
{
    LOG_SCOPE("AddExternalFriend::slot_opendialog()");
    emit signal_openChatDlg(m_jid);
}

void AddExternalFriend::slot_close()
{
    LOG_SCOPE("AddExternalFriend::slot_close()");
    reject();
}

void AddExternalFriend::slot_min()
{
    LOG_SCOPE("AddExternalFriend::slot_min()");
    showMinimized();
}

void AddExternalFriend::slot_ValidationChanged()
{
    ValidationEdit *edit = m_validation->edit();
    const int length = ValidationText::weightedLength(edit->toPlainText());
    if (length <= ValidationText::MaximumLength) {
        m_validation->showLength(length, ValidationText::MaximumLength);
        return;
    }
    LOG_DEBUG("length > maxLength");
    if (!m_said.text) // what has happened is more important
        m_tip->tell(QObject::tr("validationLimit"), TipLabel::Information, HintTime);
    edit->cutExcess(); // and this runs again
}

// --- Events ----------------------------------------------------------------------

void AddExternalFriend::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_header->retranslate();
    m_buttons->retranslate();
    showState();
}

// What is not yet shown cannot take the focus.
void AddExternalFriend::showEvent(QShowEvent *event)
{
    BaseDialog::showEvent(event);
    takeFocus();
}
