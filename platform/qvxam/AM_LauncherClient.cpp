#include "AM_LauncherClient.h"

#include "Handover.h"

namespace {

const char* asText(bool flag)
{
    return flag ? "true" : "false";
}

} // namespace

int AM_LauncherClient::launchAppObject(std::string_view appId, std::string_view args, int initiator, bool first,
                                       bool second)
{
    Handover::announce("launchAppObject", {std::string(appId), std::string(args), std::to_string(initiator),
                                           asText(first), asText(second)});
    return Handover::isOn() ? Handover::startApplication(appId, args) : 0;
}

int AM_LauncherClient::loadURL(std::string_view url)
{
    Handover::announce("loadURL", {std::string(url)});
    return Handover::isOn() ? Handover::openLink(url) : 0;
}

int AM_LauncherClient::openDocument(std::string_view path, std::string_view type, bool flag)
{
    Handover::announce("openDocument", {std::string(path), std::string(type), asText(flag)});
    return Handover::isOn() ? Handover::openLink(path) : 0;
}
