#include "Handover.h"

#include "AM_ActionData.h"
#include "AM_LauncherClient.h"
#include "BusListener.h"
#include "DesktopStandIn.h"
#include "LogCapture.h"
#include "SDManager.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::string_literals;

// What each request and each link brings about, the tables of the launcher's tests say.
namespace {

const std::string addressBook = "2f7e9a31-c605-4b1d-8e2a-94d0f6b3c718";
const std::string calendar = "5c2d7a10-8e4b-4f3a-9b61-0d7e2c4a9f35";

TEST(Handover, StartsTheProgramThatIsInstalledUnlessItIsOff)
{
    DesktopStandIn desktop({"xdg-open", "kaddressbook"}); // the second one of the table
    BusListener requests(BusSignals::request);
    EXPECT_EQ(AM_LauncherClient::launchAppObject(addressBook, {}, 0, true, false), 0);
    EXPECT_EQ(desktop.take(1).at(0).words, std::vector{"kaddressbook"s});

    qputenv("VISTANE_HANDOVER", "off");
    EXPECT_EQ(AM_LauncherClient::launchAppObject(addressBook, "off", 0, true, true), 0);
    EXPECT_EQ(AM_LauncherClient::openDocument("rtsp://h\0\xff"s, "a\xe2\x82", true), 0);
    const std::vector<std::string> expected = {
        "launchAppObject|" + addressBook + "||0|true|false",
        "launchAppObject|" + addressBook + "|off|0|true|true",
        "openDocument|rtsp://h\xef\xbf\xbd\xef\xbf\xbd|a\xef\xbf\xbd\xef\xbf\xbd|true"};
    EXPECT_EQ(requests.take(), expected);
    EXPECT_EQ(Handover::lastStarted(), std::vector{"kaddressbook"s}) << "nothing since";
}

TEST(Handover, RefusesWhatItDoesNotKnowAndSaysSo)
{
    DesktopStandIn desktop({"xdg-open", "gnome-contacts"});
    LogCapture log;
    BusListener refused(BusSignals::refused);
    for (const std::string& appId : {""s, "#"s, addressBook + "\0"s, "2f7e9a31"s, calendar})
        EXPECT_NE(AM_LauncherClient::launchAppObject(appId, {}, 0, true, true), 0) << appId;
    EXPECT_NE(AM_LauncherClient::loadURL("\nforged line:"), 0);
    EXPECT_NE(AM_LauncherClient::openDocument("/etc/passwd", {}, true), 0);
    EXPECT_NE(AM_ActionData().invoke(), 0);
    EXPECT_NE(SDManager(0).performAction("DIAL", {}), 0);
    EXPECT_TRUE(desktop.take(0).empty());
    EXPECT_EQ(log.lines().size(), 9u);
    EXPECT_EQ(refused.take().at(6),
              "openDocument|/etc/passwd||true|a link that may not be opened: /etc/passwd");
    EXPECT_EQ(log.lines().at(5),
              "(Handover:*)[~~~~vistane~~~~]a link that may not be opened: %0Aforged%20line:");
}

TEST(Handover, WhatIsStartedLivesByItself)
{
    DesktopStandIn desktop;
    const int leaky = memfd_create("leaky", 0);
    const auto before = signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(AM_LauncherClient::loadURL("http://h"), 0);
    signal(SIGPIPE, before);
    close(leaky);
    const std::string state = desktop.take(1).at(0).state;
    SCOPED_TRACE(state);
    EXPECT_TRUE(state.starts_with("/\n/dev/null\n/dev/null\n/dev/null\n")) << "no link names a file by chance";
    EXPECT_EQ(state.find("leaky"), std::string::npos);
    EXPECT_NE(state.find("SigIgn:\t0000000000000000\n"), std::string::npos) << "inherits what we ignore";
    EXPECT_FALSE(state.ends_with('\n' + std::to_string(getsid(0)) + '\n')) << "is of our session";

    qputenv("PATH", "/nonexistent");
    EXPECT_NE(AM_LauncherClient::loadURL("http://h"), 0);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "left a child behind";
}

} // namespace
