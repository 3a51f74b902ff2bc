#include "tests/plugin/spoiledpayload.h"

namespace {
constexpr int MinimumEvents = 100000;

QByteArray randomBytes(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

} // namespace

QVector<EventInfo> inboundEvents()
{
    QVector<EventInfo> list;
    for (const EventInfo &info : EventCatalogue::all()) {
        if (info.direction == EventInfo::ToPlugin)
            list.append(info);
    }
    return list;
}

int hostileEventCount()
{
    return qMax(MinimumEvents, qEnvironmentVariableIntValue("FRIENDUI_FUZZ_EVENTS"));
}

QByteArray spoiledPayload(const QByteArray &wellFormed, QRandomGenerator &random)
{
    QByteArray payload = wellFormed;
    switch (random.bounded(6)) {
    case 0: // random from the first byte
        return randomBytes(random, random.bounded(120));
    case 1: // cut short
        return payload.left(random.bounded(payload.size() + 1));
    case 2: // too long
        return payload + randomBytes(random, random.bounded(200));
    case 3: // a few bytes changed
        for (int i = 0; i < 3 && !payload.isEmpty(); ++i)
            payload[random.bounded(payload.size())] = char(random.bounded(256));
        return payload;
    case 4: { // a count or a length that cannot be right, anywhere
        static const char *const lengths[] = {"7ffffff0", "fffffffe", "ffffffff", "80000000"};
        const int at = random.bounded(payload.size() + 1);
        return payload.replace(at, 4, QByteArray::fromHex(lengths[random.bounded(4)]));
    }
    default: // zeros: as many empty elements as fit
        return QByteArray::fromHex("00000fff") + QByteArray(random.bounded(8192), '\0');
    }
}
