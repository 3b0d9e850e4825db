#pragma once

#include "BusListener.h"

// Hears what the platform is asked for while it lives: "operation|argument|argument...".
class PlatformRequests : public BusListener
{
public:
    PlatformRequests() : BusListener(BusSignals::request) {}
};
