#pragma once

#include <string_view>

// The application manager's way to start other applications. Every operation returns 0 when the request went
// out, non-zero when it was refused or nothing can serve it. Text may hold any bytes; a null text is `{}`.
class AM_LauncherClient
{
public:
    // Starts the application with the identifier `appId`, handing it `args` as one argument. The initiator and
    // the flags mean nothing on this host.
    static int launchAppObject(std::string_view appId, std::string_view args, int initiator, bool, bool);
    // Opens a link in the browser, or in whatever the desktop has for its scheme.
    static int loadURL(std::string_view url);
    // Opens a streaming link. The type and the flag mean nothing on this host.
    static int openDocument(std::string_view path, std::string_view type, bool);
};
