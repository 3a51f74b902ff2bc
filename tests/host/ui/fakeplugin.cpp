// A plug-in with the host's interface and a pane that shows nothing: for the
// loader, without the real module.
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QLabel>
#include <QPointer>

namespace {

// Answers that everybody may be added, and keeps the last code for the test.
class Receiver : public QObject
{
protected:
    void customEvent(QEvent *event) override
    {
        BaseEvent *base = asBaseEvent(event);
        if (!base)
            return;
        setProperty("lastCode", base->code);
        if (base->code == Inbound::MayAddContact) {
            base->payload.clear();
            QDataStream out(&base->payload, QIODevice::WriteOnly);
            out << true;
        }
    }
};

} // namespace

class FakePlugin : public QObject, public PluginInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID FRIENDUI_PLUGIN_INTERFACE_ID)
    Q_INTERFACES(PluginInterface)

public:
    QString getPluginName() override { return QStringLiteral("FakePlugin"); }
    QWidget *getMainWidget(QWidget *) override
    {
        if (!m_pane) {
            m_pane = new QLabel(QStringLiteral("fake pane"));
            m_pane->setObjectName(QStringLiteral("fakePane"));
        }
        return m_pane;
    }
    QObject *getEventReceiver() override { return &m_receiver; }
    void setHostReceiver(QObject *receiver) override
    {
        // What a plug-in does first: it asks for something.
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << true;
        BaseEvent request(Outbound::RefreshGroups, payload, getPluginId(),
                          QString::fromLatin1(PluginId::Roster));
        QCoreApplication::sendEvent(receiver, &request);
    }
    QString getPluginId() override { return QString::fromLatin1(PluginId::FriendUi); }
    bool acceptsRequest(quintptr, quintptr, quintptr) override { return true; }
    bool acceptsNotice(quintptr, quintptr, quintptr) override { return true; }
    QVariantList exportedItems(quintptr, quintptr) override { return {}; }
    void setApplicationContext(ApplicationContext *) override {}

private:
    QPointer<QLabel> m_pane;
    Receiver m_receiver;
};

#include "fakeplugin.moc"
