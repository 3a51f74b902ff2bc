#include "host/servicelevers.h"

#include "host/core/channelbook.h"
#include "host/core/embeddedcore.h"
#include "host/hostbus.h"
#include "host/samplepicture.h"
#include "host/tour/serviceuser.h"
#include "host/webservices.h"
#include "hostapi/eventcodes.h"
#include "sample/samplechannels.h"

#include <QCursor>
#include <QEvent>
#include <QTime>
#include <QTimer>

namespace {
const char RequestPath[] = "/center/friend/addFriendRequest.do";
constexpr qint32 CardWidth = 200; // of the row that the card stands beside
constexpr char NoRight[] = "1";
} // namespace

ServiceLevers::ServiceLevers(const Parts &parts, QWidget *parent) : QMenu(parent), m_parts(parts)
{
    setObjectName(QStringLiteral("serviceLevers"));
    addNumberLevers();
    addSeparator();
    addPeopleLevers();
    retranslate();
}

void ServiceLevers::addLever(const char *name, const char *text, std::function<void()> pull)
{
    QAction *action = addAction(QString());
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, std::move(pull));
    m_levers.append({action, text});
}

// The next one in turn of those that are, or are not, everybody's at first.
CServiceNumData ServiceLevers::nextNumber(bool isSubscribed)
{
    CServiceNumData number;
    const auto &all = sampleServiceNumbers();
    for (int i = 0; i < all.size(); ++i) {
        const SampleServiceNumber &each = all.at((m_turn + i) % all.size());
        if (each.isSubscribed != isSubscribed || each.isClosed)
            continue;
        m_turn += i + 1;
        m_parts.core->serviceNumber(ChannelBook::serviceNumberJid(each.code), &number);
        break;
    }
    return number;
}

void ServiceLevers::addNumberLevers()
{
    HostBus *bus = m_parts.bus;
    addLever("numberAdded", QT_TR_NOOP("A service number is added"), [this, bus] {
        CServiceNumData number = nextNumber(false);
        number.isSub = true;
        bus->notify(Inbound::ServiceNumbersAdded, QList<CServiceNumData>{number});
    });
    addLever("numberChanged", QT_TR_NOOP("A service number has another name"), [this, bus] {
        CServiceNumData number = nextNumber(true);
        number.name = tr("Renamed %1").arg(QTime::currentTime().toString());
        bus->notify(Inbound::ServiceNumberUpdated, ChannelBook::serviceNumberJid(number.code),
                    number);
    });
    addLever("numberSubscribed", QT_TR_NOOP("A subscription succeeds"), [this, bus] {
        bus->notify(Inbound::ServiceNumberSubscribed, nextNumber(false).code, QString(), true,
                    QStringLiteral("0"));
    });
    addLever("numberRefused", QT_TR_NOOP("A subscription is refused"), [this, bus] {
        bus->notify(Inbound::ServiceNumberSubscribed, nextNumber(false).code, QString(), false,
                    QString::fromLatin1(NoRight));
    });
    addLever("numberCancelled", QT_TR_NOOP("A subscription ends"), [this, bus] {
        bus->notify(Inbound::ServiceNumberCancelled, nextNumber(true).code, QString(), true);
    });
    addLever("numberIcon", QT_TR_NOOP("A service number gets another icon"), [this, bus] {
        const CServiceNumData number = nextNumber(true);
        const QString file = number.code + QStringLiteral("-%1.png").arg(m_turn);
        bus->notify(Inbound::ServiceIconStored, number.code,
                    SamplePicture::draw(m_parts.pictureFolder, file, number.name, m_turn));
    });
    addLever("numberWrites", QT_TR_NOOP("A service number writes"), [this] {
        const QString jid = ChannelBook::serviceNumberJid(nextNumber(true).code);
        m_parts.core->receiveMessage(jid, jid, tr("There is something new."));
    });
}

QString ServiceLevers::nextOutsider() const
{
    const SampleCompany &company = m_parts.core->company();
    const auto mayAsk = [this](const SamplePerson &person) {
        FriendData contact;
        return person.index >= 0 && !m_parts.core->sample().isColleague(person) &&
               !m_parts.core->contact(person.uid + QLatin1Char('@') + SampleCompany::domain(),
                                      &contact);
    };
    for (int i = 0; i < SampleCompany::OutsiderCount; ++i) {
        if (mayAsk(company.outsider(i)))
            return company.outsider(i).uid;
    }
    for (int i = 0; i < company.people(); ++i) {
        if (mayAsk(company.person(i)))
            return company.person(i).uid;
    }
    return QString();
}

void ServiceLevers::outsiderAsks()
{
    const QString uid = nextOutsider();
    if (m_parts.services->state() != WebServices::Ready) {
        emit note(tr("There are no web services."));
        return;
    }
    if (uid.isEmpty()) {
        emit note(tr("Everybody outside the company is a contact already."));
        return;
    }
    ServiceUser outsider(m_parts.services->address(), uid);
    outsider.call(QString::fromLatin1(RequestPath), {{"userId", m_parts.core->ownUid()},
                                                     {"reason", tr("Hello, we met at the fair.")},
                                                     {"clientType", QStringLiteral("pc")}});
    if (outsider.code() != 0)
        emit note(tr("The services refuse the request of %1: %2").arg(uid).arg(outsider.code()));
}

void ServiceLevers::addPeopleLevers()
{
    addLever("outsiderAsks", QT_TR_NOOP("Somebody of another company asks to become a contact"),
             // Behind the menu, which would not close while the services are waited for.
             [this] { QTimer::singleShot(0, this, &ServiceLevers::outsiderAsks); });
    addLever("cardShown", QT_TR_NOOP("Show a contact's card at the pointer"), [this] {
        const QList<FriendData> people = m_parts.core->contacts();
        const QPoint at = QCursor::pos();
        if (!people.isEmpty())
            m_parts.bus->notify(Inbound::ShowContactCard, people.at(m_turn++ % people.size()).jid,
                                qint32(at.x()), qint32(at.y()), CardWidth, false);
    });
    addLever("cardHidden", QT_TR_NOOP("Hide the card"),
             [this] { m_parts.bus->notify(Inbound::HideContactCard, QString()); });
}

void ServiceLevers::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}

void ServiceLevers::retranslate()
{
    setTitle(tr("Service numbers, people outside, card"));
    for (const Lever &lever : qAsConst(m_levers))
        lever.action->setText(tr(lever.text));
}
