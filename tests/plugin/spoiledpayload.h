// Payloads that no honest host sends: cut short, too long, random, or announcing
// containers larger than memory.
#pragma once

#include "hostapi/eventcatalogue.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QVector>

// Every event that the plug-in takes.
QVector<EventInfo> inboundEvents();

// How many hostile events a test sends: 100,000, or FRIENDUI_FUZZ_EVENTS if that
// is more.
int hostileEventCount();

// One of the ways to spoil a well-formed payload.
QByteArray spoiledPayload(const QByteArray &wellFormed, QRandomGenerator &random);
