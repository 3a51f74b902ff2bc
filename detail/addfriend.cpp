#include "detail/addfriend.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/statepage.h"
#include "controls/tipbox.h"
#include "controls/validationedit.h"
#include "controls/validationtext.h"
#include "detail/addfriendpages.h"
#include "detail/addfriendresult.h"
#include "detail/personpicture.h"
#include "http/fileservices.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace {
constexpr int PolicyWait = 5000; // ms
constexpr int WindowWidth = 400; // device-independent pixels
constexpr int NameWidth = 240;   // of the person's name within a sentence

// "nick (user)" when both are known and differ.
QString profileName(const VcardInfo &profile)
{
    const QString nick = displayText(profile.nickName);
    const QString user = displayText(profile.userName);
    if (nick.isEmpty() || user.isEmpty() || nick == user)
        return nick.isEmpty() ? user : nick;
    return nick + QLatin1Char('(') + user + QLatin1Char(')');
}
} // namespace

AddFriend::AddFriend(const QString &jid, QWidget *parent)
    : BaseDialog(parent), m_jid(jid), m_wait(new QTimer(this))
{
    setObjectName(QStringLiteral("AddFriend"));
    setWindowTitle(QString::fromUtf8("添加至联系人"));
    setFixedWidth(WindowWidth);
    m_wait->setObjectName(QStringLiteral("waitTimer"));
    m_wait->setSingleShot(true);
    m_wait->setInterval(PolicyWait);
    connect(m_wait, &QTimer::timeout, this, &AddFriend::slot_waitTimeOut);
    buildPages();

    connect(this, &BaseDialog::closed, this, [this] {
        m_isClosed = true;
        m_wait->stop();
        emit signal_closeaddfrd(m_jid);
    });
    connectHub();

    ctx().vcard(m_jid, &m_profile);
    m_header->setPicture(personPicture(m_jid, m_profile));
    showPerson();
    refreshGroups();
    slot_ValidationChanged();
}

void AddFriend::buildPages()
{
    m_header = new AddFriendHeader(this);
    m_pages = new QStackedWidget(this);
    m_pages->setObjectName(QStringLiteral("addFriendPages"));
    m_waiting = new StatePage("gettinginformation",
                              QStringLiteral("Resources/images/SearchFriend/qora_Loading.gif"),
                              "cancel", this);
    m_waiting->setObjectName(QStringLiteral("waitingPage"));
    m_form = new AddFriendForm(this);
    m_form->setObjectName(QStringLiteral("requestPage"));
    m_outcome = new AddFriendOutcome(this);
    m_outcome->setObjectName(QStringLiteral("resultPage"));
    for (QWidget *page : {static_cast<QWidget *>(m_waiting), static_cast<QWidget *>(m_form),
                          static_cast<QWidget *>(m_outcome)})
        m_pages->addWidget(page);
    bodyLayout()->addWidget(m_header);
    bodyLayout()->addWidget(m_pages, 1);

    connect(m_waiting, &StatePage::buttonClicked, this, &QDialog::reject);
    connect(m_form, &AddFriendForm::confirmed, this, &AddFriend::slot_next);
    connect(m_form, &AddFriendForm::chatWanted, this, &AddFriend::slot_chat);
    connect(m_form, &AddFriendForm::cancelled, this, &QDialog::reject);
    connect(m_form, &AddFriendForm::newGroupWanted, this, &AddFriend::slot_newgroup);
    connect(m_form->validationEdit(), &QTextEdit::textChanged, this,
            &AddFriend::slot_ValidationChanged);
    connect(m_outcome, &AddFriendOutcome::actionWanted, this, &AddFriend::opratePage);
    connect(m_outcome, &AddFriendOutcome::closeWanted, this, &QDialog::reject);
}

void AddFriend::connectHub()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_FriendVcardInfo, this, &AddFriend::slot_updatedialog);
    connect(hub, &Hub::signal_UpdateFrdHead, this, &AddFriend::slot_upDatePhoto);
    connect(hub, &Hub::signal_addGroup, this,
            [this](const QString &id, const QString &name, bool success, bool inner) {
                if (inner)
                    groupAnswered({id, name}, success);
            });
    connect(&PictureFiles::instance(), &PictureFiles::ready, this,
            [this](const QString &name, const QString &file) {
                if (name == pictureName(m_profile))
                    m_header->setPicture(file);
            });
    connect(hub, &Hub::signal_addAllGroup, this, &AddFriend::refreshGroups);
    connect(hub, &Hub::signal_delGroup, this, &AddFriend::refreshGroups);
    connect(hub, &Hub::signal_changeGroupName, this, &AddFriend::refreshGroups);
}

// --- The person ------------------------------------------------------------------

void AddFriend::slot_updatedialog(const QString &jid, const VcardInfo &info)
{
    if (makeJid(jid) != m_jid)
        return;
    LOG_SCOPE("AddFriend::slot_updatedialog(const QString& jid, const VcardInfo& info)");
    m_profile = info;
    const QString head = personPicture(m_jid, info);
    if (!head.isEmpty())
        m_header->setPicture(head);
    showPerson();
    showState();
}

void AddFriend::slot_upDatePhoto(const QString &jid, const QString &photoPath)
{
    if (makeJid(jid) != m_jid)
        return;
    LOG_SCOPE("AddFriend::slot_upDatePhoto(const QString& jid, const QString& photoPath)");
    m_header->setPicture(photoPath);
}

QString AddFriend::personName(int width) const
{
    QString name = profileName(m_profile);
    if (name.isEmpty())
        name = displayText(m_givenName);
    if (name.isEmpty())
        name = displayText(jidUser(m_jid));
    return width > 0 ? fontMetrics().elidedText(name, Qt::ElideRight, width) : name;
}

void AddFriend::showPerson()
{
    m_header->setPerson(m_jid, personName(0), m_profile.sex);
}

// --- States ----------------------------------------------------------------------

void AddFriend::askPolicy()
{
    LOG_SCOPE("AddFriend::askPolicy()");
    m_isRequested = false;
    slot_setResult(AddFriendResult::JustOpened, AddFriendResult::NoPolicy);
    const QPointer<AddFriend> alive(this);
    const QString jid = m_jid;
    FriendUIEventProcess::requestProfile(jid, false);
    if (alive && !m_isClosed)
        FriendUIEventProcess::requestPolicy(jid);
}

void AddFriend::policyReceived(const QString &config, const QString &groupName,
                               const QString &displayName)
{
    LOG_SCOPE("AddFriend::policyReceived(const QString &config, const QString &groupName, "
              "const QString &displayName)");
    if (m_isClosed || (m_state != State::Waiting && m_state != State::Filling)) {
        LOG_DEBUG("the policy of " << logText(m_jid) << " comes too late");
        return;
    }
    m_wait->stop();
    if (!displayName.isEmpty())
        m_givenName = displayName;
    showPerson();
    m_form->chooseGroupByName(groupName);
    const int policy = AddFriendResult::policyOf(config);
    if (policy != AddFriendResult::AcceptsAll) {
        slot_setResult(AddFriendResult::PolicyKnown, policy);
        return;
    }
    // The result is told when there is one: group and remark are still to be chosen.
    LOG_DEBUG("ADD_FROM  or ACCEPT_ALL");
    m_mode = AddFriendResult::PolicyKnown;
    m_configtype = policy;
    m_needValidation = false;
    enter(State::Filling);
}

void AddFriend::slot_setResult(int mode, int policy)
{
    LOG_SCOPE("AddFriend::slot_setResult(int mode, int policy)");
    m_wait->stop();
    m_mode = mode;
    m_configtype = policy;
    switch (AddFriendResult::row(mode, policy).page) {
    case AddFriendResult::Page::Result:
        if (policy == AddFriendResult::DeniesAll && mode != AddFriendResult::Accepted)
            LOG_DEBUG("DENY_ALL");
        enter(policy == AddFriendResult::DeniesAll && mode != AddFriendResult::Accepted
                  ? State::Refused
                  : State::Added);
        break;
    case AddFriendResult::Page::Form:
        m_needValidation = true;
        enter(State::Filling);
        break;
    case AddFriendResult::Page::Waiting:
        m_wait->start();
        enter(State::Waiting);
        break;
    }
}

void AddFriend::slot_waitTimeOut()
{
    LOG_SCOPE("AddFriend::slot_waitTimeOut()");
    m_wait->stop();
    if (m_state != State::Waiting)
        return;
    LOG_ERROR("no answer about the policy of " << logText(m_jid));
    m_noAnswer = true;
    enter(State::Failed);
}

void AddFriend::slot_addFriendFail()
{
    LOG_SCOPE("AddFriend::slot_addFriendFail()");
    m_wait->stop();
    LOG_ERROR("adding " << logText(m_jid) << " has failed");
    m_noAnswer = false;
    m_chatWanted = false;
    enter(State::Failed);
}

void AddFriend::added()
{
    if (m_state == State::Added)
        return;
    const bool chat = std::exchange(m_chatWanted, false);
    slot_setResult(AddFriendResult::Accepted, m_configtype);
    if (chat)
        FriendUIEventProcess::openChat(m_jid, MessageData::Person);
}

void AddFriend::enter(State state)
{
    const QWidget *before = m_pages->currentWidget();
    m_state = state;
    showState();
    // The form is left alone while it is being filled.
    if (m_pages->currentWidget() != before || before == m_outcome)
        takeFocus();
}

void AddFriend::takeFocus()
{
    if (m_pages->currentWidget() == m_form)
        m_form->takeFocus();
    else if (m_pages->currentWidget() == m_outcome)
        m_outcome->takeFocus();
    else
        m_waiting->findChild<QPushButton *>()->setFocus();
}

// The texts of the state, in the language of now.
void AddFriend::showState()
{
    switch (m_state) {
    case State::Waiting:
        m_pages->setCurrentWidget(m_waiting);
        break;
    case State::Filling:
        showForm();
        break;
    case State::Sent:
        showOutcome(AddFriendResult::infoIcon(), QObject::tr("addreply"), QString());
        break;
    case State::Added:
    case State::Refused: {
        const AddFriendResult::Row row = AddFriendResult::row(m_mode, m_configtype);
        showOutcome(row.icon, personName(NameWidth) + QObject::tr(row.textKey),
                    row.statusKey ? QObject::tr(row.statusKey) : QString());
        break;
    }
    case State::Failed:
        showOutcome(AddFriendResult::failIcon(),
                    m_noAnswer ? QObject::tr("addfailreadd") : QObject::tr("addcontactsfailed"),
                    m_noAnswer ? QString() : QObject::tr("addfailreadd"));
        break;
    }
    // A text that wraps once more asks for its height when it is set.
    resize(width(), qMax(height(), layout()->totalHeightForWidth(width())));
}

void AddFriend::showForm()
{
    const AddFriendResult::Row row = AddFriendResult::row(m_mode, m_configtype);
    m_form->setState(row.icon, (row.namesPerson ? personName(NameWidth) : QString()) +
                                   QObject::tr(row.textKey));
    m_form->setValidationNeeded(m_needValidation);
    m_pages->setCurrentWidget(m_form);
}

void AddFriend::showOutcome(const QString &icon, const QString &text, const QString &status)
{
    const bool added = m_state == State::Added;
    const bool failed = m_state == State::Failed;
    m_outcome->show(icon, text, status,
                    added    ? QObject::tr("sure")
                    : failed ? QObject::tr("readd")
                             : QString(),
                    added ? QString() : QObject::tr("close"));
    m_pages->setCurrentWidget(m_outcome);
}

void AddFriend::opratePage()
{
    LOG_SCOPE("AddFriend::opratePage()");
    if (m_jid == ctx().ownJid())
        TipBox::tell(this, QObject::tr("notaddcontacts"), QObject::tr("sure"));
    else if (m_state != State::Failed)
        reject();
    else if (!isOfflineTold())
        askPolicy();
}

// --- The request -----------------------------------------------------------------

bool AddFriend::isOfflineTold()
{
    if (isOnline())
        return false;
    TipBox::tell(this, QObject::tr("offlineCannotAdd"));
    return true;
}

// Once per policy: also a second click that comes before the page has changed.
bool AddFriend::mayRequest() const
{
    if (m_isClosed || m_isRequested)
        return false;
    return m_state == State::Filling || (m_state == State::Added && mayBecomeContact(m_jid));
}

void AddFriend::slot_next()
{
    LOG_SCOPE("AddFriend::slot_next()");
    m_chatWanted = false;
    slot_addFriend();
}

void AddFriend::slot_addFriend()
{
    LOG_SCOPE("AddFriend::slot_addFriend()");
    if (!mayRequest() || isOfflineTold())
        return;
    m_isRequested = true;
    const QString text = m_needValidation ? m_form->validationEdit()->validation() : QString();
    const int policy = m_configtype;
    enter(State::Sent);
    emit requestSent(m_jid);
    FriendUIEventProcess::addContact(m_jid, text, m_form->groupId(), m_form->remark(), policy);
}

void AddFriend::slot_chat()
{
    LOG_SCOPE("AddFriend::slot_chat()");
    if (m_state != State::Filling && m_state != State::Added)
        return;
    const bool atOnce =
        m_configtype == AddFriendResult::AcceptsAll || m_mode == AddFriendResult::Accepted;
    const QString jid = m_jid;
    const QPointer<AddFriend> alive(this);
    m_chatWanted = !atOnce;
    slot_addFriend();
    const bool isGone = !alive || m_isClosed; // by the host, in the request
    if (atOnce && (isGone || m_state == State::Sent || m_state == State::Added))
        FriendUIEventProcess::openChat(jid, MessageData::Person);
}

// --- The validation text ---------------------------------------------------------

void AddFriend::slot_ValidationChanged()
{
    ValidationEdit *edit = m_form->validationEdit();
    const int length = ValidationText::weightedLength(edit->toPlainText());
    if (length <= ValidationText::MaximumLength) {
        m_form->showLength(length, ValidationText::MaximumLength);
        return;
    }
    LOG_DEBUG("length > maxLength");
    edit->cutExcess(); // and this runs again
}

// --- Events ----------------------------------------------------------------------

void AddFriend::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showState();
}

// What is not yet shown cannot take the focus.
void AddFriend::showEvent(QShowEvent *event)
{
    BaseDialog::showEvent(event);
    takeFocus();
}
