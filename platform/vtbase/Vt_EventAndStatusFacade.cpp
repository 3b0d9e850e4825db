#include "Vt_EventAndStatusFacade.h"

#include "DeviceFacts.h"
#include "EventDispatcher.h"

Vt_EventAndStatusFacade::Vt_EventAndStatusFacade() : mDispatcher(std::make_unique<EventDispatcher>()) {}

Vt_EventAndStatusFacade::~Vt_EventAndStatusFacade() = default;

Vt_EventAndStatusFacade* Vt_EventAndStatusFacade::instance()
{
    static auto* facade = new Vt_EventAndStatusFacade;
    return facade;
}

int Vt_EventAndStatusFacade::sendEvent(const Vt_Event& event, int mode)
{
    return mDispatcher->send(event, mode) ? 0 : 1;
}

void Vt_EventAndStatusFacade::addEventHandler(const std::string& eventName, Vt_EventHandler* handler)
{
    mDispatcher->add(eventName, handler);
}

void Vt_EventAndStatusFacade::removeEventHandler(const std::string& eventName, Vt_EventHandler* handler)
{
    mDispatcher->remove(eventName, handler);
}

void Vt_EventAndStatusFacade::removeEventHandler(Vt_EventHandler* handler)
{
    mDispatcher->remove(handler);
}

int Vt_EventAndStatusFacade::getHomeNetworkName(vtTypes::String& name)
{
    return DeviceFacts::get("home_network", name);
}

int Vt_EventAndStatusFacade::getCurrentNetworkName(vtTypes::String& name)
{
    return DeviceFacts::get("current_network", name);
}

int Vt_EventAndStatusFacade::getRoamingStatus(int& roaming)
{
    return DeviceFacts::get("roaming", roaming);
}
