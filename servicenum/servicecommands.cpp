#include "servicenum/servicecommands.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/tipbox.h"
#include "hostapi/hostrecords.h"
#include "plugin/frienduieventprocess.h"
#include "servicenum/cservicenohistory.h"
#include "servicenum/cservicenumsearch.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicetexts.h"

#include <QObject>

namespace {

bool mayRequest(QWidget *parent)
{
    if (isOnline())
        return true;
    TipBox::tell(parent, QObject::tr("yourImIsOffline"));
    return false;
}

QString nameOf(const QString &code)
{
    const CServiceNumData *number = ServiceNumbers::instance().find(code);
    return number ? ServiceTexts::name(*number) : displayText(code);
}

} // namespace

void ServiceCommands::openChat(const QString &code)
{
    if (!ServiceNumbers::instance().isSubscribed(code)) {
        LOG_DEBUG("not subscribed to " << logText(code));
        return;
    }
    CServiceNumSearch::closeSearch(); // not to stand in front of the chat
    FriendUIEventProcess::openChat(makeJid(code), MessageData::ServiceNumber);
}

void ServiceCommands::showHistory(const QString &code, QWidget *parent)
{
    if (mayRequest(parent))
        CServiceNoHistory::showHistory(code, nameOf(code));
}

void ServiceCommands::subscribe(const QString &code, QWidget *parent)
{
    if (!ServiceNumbers::instance().isBusy(code) && mayRequest(parent))
        ServiceNumbers::instance().subscribe(code);
}

void ServiceCommands::unsubscribe(const QString &code, QWidget *parent)
{
    if (ServiceNumbers::instance().isBusy(code) || !mayRequest(parent))
        return;
    QString question = QObject::tr("cancelSubscribeAsk");
    question.replace(QLatin1String("%1"), nameOf(code));
    TipBox::ask(parent, question, [code, parent] {
        // The answer may have taken its time.
        ServiceNumbers &numbers = ServiceNumbers::instance();
        if (numbers.isSubscribed(code) && !numbers.isBusy(code) && mayRequest(parent))
            numbers.unsubscribe(code);
    });
}

void ServiceCommands::toggle(const QString &code, QWidget *parent)
{
    if (ServiceNumbers::instance().isSubscribed(code))
        unsubscribe(code, parent);
    else
        subscribe(code, parent);
}
