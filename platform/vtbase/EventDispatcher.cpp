#include "EventDispatcher.h"

#include "EventWire.h"
#include "HostBus.h"
#include "Log.h"
#include "NR_Constants.h"
#include "RefreshStatus.h"
#include "Vt_EventHandler.h"

#include <algorithm>

namespace {

const Log logger("EventDispatcher");

} // namespace

void EventDispatcher::add(const std::string& eventName, Vt_EventHandler* handler)
{
    listen();
    const bool known = std::any_of(mSubscriptions.begin(), mSubscriptions.end(), [&](const Subscription& one) {
        return one.handler == handler && one.eventName == eventName;
    });
    if (!known)
        mSubscriptions.push_back({eventName, handler, ++mLastNumber});
}

void EventDispatcher::remove(const std::string& eventName, Vt_EventHandler* handler)
{
    std::erase_if(mSubscriptions, [&](const Subscription& one) {
        return one.handler == handler && one.eventName == eventName;
    });
}

void EventDispatcher::remove(Vt_EventHandler* handler)
{
    std::erase_if(mSubscriptions, [handler](const Subscription& one) { return one.handler == handler; });
}

bool EventDispatcher::send(const Vt_Event& event, int mode)
{
    mRefreshWatch.sent(event, HostBus::hasService());
    if (HostBus::send(BusSignals::event, EventWire::pack(event, mode)))
        return true;
    QMetaObject::invokeMethod(
        this, [this, event] { deliver(event); }, Qt::QueuedConnection);
    return false;
}

void EventDispatcher::listen()
{
    if (mListening)
        return;
    mListening = HostBus::subscribe(BusSignals::event, this, [this](const HostBus::Message& message) {
        const Vt_Event event = EventWire::unpack(message.arguments).event;
        if (message.mayBeService || !NR_Constants::isOfService(event.name()))
            deliver(event);
        else
            logger(3, "%s is dropped: it does not come from the service", event.name().c_str());
    });
    if (mListening)
        HostBus::onServiceLost(this, [this] { mRefreshWatch.serviceLost(); });
}

// In the service's name, but only here: other processes have not asked.
void EventDispatcher::giveUpRefresh()
{
    logger(3, "no service reports on the refresh: it has failed to connect");
    deliver(Vt_Event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, STATUS_CONNECT_FAILED));
}

bool EventDispatcher::isStillThere(int number) const
{
    return std::any_of(mSubscriptions.begin(), mSubscriptions.end(),
                       [number](const Subscription& one) { return one.number == number; });
}

void EventDispatcher::deliver(const Vt_Event& event)
{
    mRefreshWatch.received(event);
    // A handler may subscribe others, unsubscribe or delete them, and run an event loop.
    const std::vector<Subscription> subscriptions = mSubscriptions;
    for (const Subscription& subscription : subscriptions)
        if (subscription.eventName == event.name() && isStillThere(subscription.number))
            subscription.handler->handleEvent(event);
}
