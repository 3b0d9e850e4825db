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
    return action == "PHONE_CALL" ? Handover::openLink(DesktopLink::call(data.data)) : -1;
}
