#pragma once

#include "RefreshWatch.h"
#include "Vt_Event.h"

#include <QObject>

#include <string>
#include <vector>

class Vt_EventHandler;

// The subscriptions of this process, and the way of events to them: over the session bus, or within the
// process when there is none.
class EventDispatcher : public QObject
{
    Q_OBJECT

public:
    void add(const std::string& eventName, Vt_EventHandler* handler);
    void remove(const std::string& eventName, Vt_EventHandler* handler);
    void remove(Vt_EventHandler* handler);

    // Returns at once; handlers are called from the event loop. False when the event stays within the process, for want
    // of a bus. `mode` only travels with it.
    bool send(const Vt_Event& event, int mode);

private:
    struct Subscription
    {
        std::string eventName;
        Vt_EventHandler* handler;
        int number; // tells a new handler from a deleted one at the same address
    };

    void listen();
    bool isStillThere(int number) const;
    void deliver(const Vt_Event& event);
    void giveUpRefresh(); // for a service that is not there

    std::vector<Subscription> mSubscriptions;
    int mLastNumber = 0;
    bool mListening = false;
    RefreshWatch mRefreshWatch{[this] { giveUpRefresh(); }};
};
