#include "host/companylevers.h"

#include "common/displaytext.h"
#include "host/webservices.h"
#include "http/jsonreader.h"
#include "http/serviceaddresses.h"
#include "http/servicecall.h"

#include <QEvent>

namespace {
const char Path[] = "/center/company/teamApproval.do";
constexpr int NoCompany = 10004;
} // namespace

CompanyLevers::CompanyLevers(const WebServices *services, const QString &ownUid, const Pick &pick,
                             QWidget *parent)
    : QMenu(parent), m_services(services), m_ownUid(ownUid)
{
    setObjectName(QStringLiteral("companyLevers"));
    m_needsApproval = addAction(QString());
    m_needsApproval->setObjectName(QStringLiteral("teamsNeedApproval"));
    m_needsApproval->setCheckable(true);
    addSeparator();
    m_who = addAction(QString());
    m_who->setObjectName(QStringLiteral("approverName"));
    m_who->setEnabled(false);
    m_me = addAction(QString());
    m_me->setObjectName(QStringLiteral("approverMe"));
    m_other = addAction(QString());
    m_other->setObjectName(QStringLiteral("approverOther"));
    connect(m_needsApproval, &QAction::triggered, this,
            [this](bool on) { ask("approval", on ? QStringLiteral("1") : QStringLiteral("0")); });
    connect(m_me, &QAction::triggered, this, [this] { ask("approver", m_ownUid); });
    connect(m_other, &QAction::triggered, this,
            [this, pick] { pick([this](const QString &uid) { ask("approver", uid); }); });
    connect(m_services, &WebServices::changed, this, &CompanyLevers::follow);
    // Somebody else may have changed it.
    connect(this, &QMenu::aboutToShow, this, [this] { ask(); });
    retranslate();
    follow();
}

void CompanyLevers::follow()
{
    const bool isThere = m_services->state() == WebServices::Ready;
    menuAction()->setEnabled(isThere);
    if (isThere)
        ask();
}

void CompanyLevers::ask(const char *field, const QString &value)
{
    ServiceRequest request;
    request.address = ServiceAddresses::host(QStringLiteral("center")) + QLatin1String(Path);
    if (field)
        request.fields = {{field, value}};
    ServiceCall::start(request, this, HERE, [this](const ServiceReply &reply) { take(reply); });
}

void CompanyLevers::take(const ServiceReply &reply)
{
    if (reply.ok) {
        const Json::Value &settings = reply.data();
        m_needsApproval->setChecked(JsonReader::flag(settings, "approval"));
        m_approver = JsonReader::text(settings, "approverName");
        m_approverUid = JsonReader::text(settings, "approver");
    } else {
        if (reply.code != NoCompany)
            emit note(tr("The company's settings could not be read or changed."));
        m_approver.clear();
        m_approverUid.clear();
    }
    for (QAction *action : {m_needsApproval, m_other})
        action->setEnabled(reply.ok);
    m_me->setEnabled(reply.ok && m_approverUid != m_ownUid);
    retranslate();
}

void CompanyLevers::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}

void CompanyLevers::retranslate()
{
    setTitle(tr("Virtual teams of the company"));
    m_needsApproval->setText(tr("New teams need approval"));
    m_who->setText(m_approver.isEmpty()
                       ? tr("Nobody approves them")
                       : menuText(tr("Approved by %1 (%2)").arg(m_approver, m_approverUid)));
    m_me->setText(tr("Approve them myself"));
    m_other->setText(tr("Let a colleague approve them…"));
}
