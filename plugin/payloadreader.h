// Reads an event's payload as a list of typed arguments, and makes an event
// handler out of a hub signal.
#pragma once

#include "hostapi/baseevent.h"
#include "hostapi/recordstream.h"
#include "plugin/frienduisignalsender.h"

#include <QDataStream>

#include <tuple>
#include <type_traits>

// The arguments in wire order. Whatever the payload lacks, or holds broken, is a
// default value; so is every argument behind it.
template <class... Args> std::tuple<std::decay_t<Args>...> readPayload(const QByteArray &payload)
{
    std::tuple<std::decay_t<Args>...> arguments{};
    QDataStream in(payload);
    std::apply([&in](auto &...argument) { (RecordStream::readNext(in, argument), ...); },
               arguments);
    return arguments;
}

namespace PayloadReader {

template <class... Params>
void readAndEmit(void (FriendUISignalSender::*signal)(Params...), const QByteArray &payload)
{
    // Named locals, because some signals take references.
    auto arguments = readPayload<Params...>(payload);
    std::apply(
        [signal](auto &...argument) { (FriendUISignalSender::instance()->*signal)(argument...); },
        arguments);
}

} // namespace PayloadReader

// Reads the payload in the order of the signal's parameters, which are the one
// statement of the payload's types, and emits the signal. A row of a table:
//
//     {Inbound::GroupCreated, emits<&FriendUISignalSender::signal_addGroup>},
template <auto Signal> void emits(BaseEvent &event)
{
    PayloadReader::readAndEmit(Signal, event.payload);
}
