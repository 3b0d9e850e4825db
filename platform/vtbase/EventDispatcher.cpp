#include "EventDispatcher.h"

#include "EventWire.h"
#include "HostBus.h"
#include "Vt_EventHandler.h"

#include <QDBusMessage>

#include <algorithm>

void EventDispatcher::add(const std::string& eventName, Vt_EventHandler* handler)
{
    if (!mListening)
        mListening = HostBus::subscribe(EventWire::path, EventWire::interface, EventWire::signal, this,
                                        SLOT(receive(QDBusMessage)));
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
    if (HostBus::send(EventWire::path, EventWire::interface, EventWire::signal, EventWire::pack(event, mode)))
        return true;
    QMetaObject::invokeMethod(
        this, [this, event] { deliver(event); }, Qt::QueuedConnection);
    return false;
}

void EventDispatcher::receive(const QDBusMessage& message)
{
    if (const auto received = EventWire::unpack(message))
        deliver(received->event);
}

bool EventDispatcher::isStillThere(int number) const
{
    return std::any_of(mSubscriptions.begin(), mSubscriptions.end(),
                       [number](const Subscription& one) { return one.number == number; });
}

void EventDispatcher::deliver(const Vt_Event& event)
{
    // A handler may subscribe others, unsubscribe or delete them, and run an event loop.
    const std::vector<Subscription> subscriptions = mSubscriptions;
    for (const Subscription& subscription : subscriptions)
        if (subscription.eventName == event.name() && isStillThere(subscription.number))
            subscription.handler->handleEvent(event);
}
