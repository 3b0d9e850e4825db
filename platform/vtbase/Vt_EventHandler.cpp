#include "Vt_EventHandler.h"

#include "Vt_EventAndStatusFacade.h"

Vt_EventHandler::Vt_EventHandler(const std::string& eventName)
{
    Vt_EventAndStatusFacade::instance()->addEventHandler(eventName, this);
}

Vt_EventHandler::~Vt_EventHandler()
{
    Vt_EventAndStatusFacade::instance()->removeEventHandler(this);
}
