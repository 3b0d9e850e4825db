#pragma once

#include "vtTypes.h"

#include <memory>
#include <string>

class EventDispatcher;
class Vt_Event;
class Vt_EventHandler;

// The service's event bus, and what the service knows of the network. Process-wide; made on first use and
// never destroyed.
class Vt_EventAndStatusFacade
{
public:
    static Vt_EventAndStatusFacade* instance();

    // Sends `event` to every handler subscribed to its name, in every process. Handlers are called later,
    // from the event loop, in the order of sending. `mode` travels with the event. Returns 0; non-zero when
    // there is no bus, in which case only this process's handlers get it.
    int sendEvent(const Vt_Event& event, int mode);

    // The handler is not owned. Adding a pair twice, or removing one that is not there, changes nothing.
    void addEventHandler(const std::string& eventName, Vt_EventHandler* handler);
    void removeEventHandler(const std::string& eventName, Vt_EventHandler* handler);
    void removeEventHandler(Vt_EventHandler* handler); // all of its names

    // Facts of the network. Non-zero, and the output left alone, when the device can't tell.
    int getHomeNetworkName(vtTypes::String& name);
    int getCurrentNetworkName(vtTypes::String& name);
    int getRoamingStatus(int& roaming); // 0: in the home network

private:
    Vt_EventAndStatusFacade();
    ~Vt_EventAndStatusFacade();

    std::unique_ptr<EventDispatcher> mDispatcher;
};
