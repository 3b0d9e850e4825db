#pragma once

#include "Vt_Event.h"

#include <QVariantList>

// How an event travels on the session bus.
namespace EventWire {

struct Received
{
    Vt_Event event;
    int mode; // the second argument of sendEvent
};

QVariantList pack(const Vt_Event& event, int mode);

// `arguments` are those of a BusSignals::event.
Received unpack(const QVariantList& arguments);

} // namespace EventWire
