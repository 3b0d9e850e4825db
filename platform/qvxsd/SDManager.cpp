#include "SDManager.h"

#include "DesktopLink.h"
#include "Handover.h"

SDManager::SDManager(int) {}

int SDManager::performAction(std::string_view action, const SDData& data)
{
    Handover::announce("performAction", {std::string(action), data.mimeType, data.data, data.text,
                                         data.flag ? "true" : "false", std::to_string(data.number)});
    if (!Handover::isOn())
        return 0;
    if (action == "PHONE_CALL")
        return Handover::openLink(DesktopLink::call(data.data));
    return Handover::refuse(Failure::Kind::NoApplication, action,
                            "no action " + DesktopLink::escaped(action) + " here");
}
