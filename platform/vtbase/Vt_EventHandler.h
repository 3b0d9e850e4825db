#pragma once

#include <string>

class Vt_Event;

// A receiver of service events. Constructing it subscribes it to one event name; further names are added with
// Vt_EventAndStatusFacade::addEventHandler. Destroying it takes back every subscription that is left.
class Vt_EventHandler
{
public:
    explicit Vt_EventHandler(const std::string& eventName);
    virtual ~Vt_EventHandler();
    Vt_EventHandler(const Vt_EventHandler&) = delete;
    Vt_EventHandler& operator=(const Vt_EventHandler&) = delete;

    // Called from the event loop for each event of a subscribed name, never inside sendEvent().
    virtual void handleEvent(const Vt_Event& event) = 0;
};
