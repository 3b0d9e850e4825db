#include "Handover.h"

#include "AM_ActionData.h"
#include "AM_LauncherClient.h"
#include "BusListener.h"
#include "DesktopProgram.h"
#include "DesktopStandIn.h"
#include "LogCapture.h"
#include "PortalRequest.h"
#include "PortalStandIn.h"
#include "SDManager.h"
#include "Table.h"

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
    DesktopStandIn desktop({"gio", "kaddressbook"}); // the second one of the table
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
    EXPECT_TRUE(Handover::lastOutcome().started.empty());
}

TEST(Handover, RefusesWhatItDoesNotKnowAndSaysSo)
{
    DesktopStandIn desktop({"gio", "gnome-contacts"});
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

    EXPECT_EQ(Handover::lastOutcome().what, Handover::Outcome::Done);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "left a child behind";
}

// The unit may do little, and a browser needs more.
TEST(Handover, AUnitStartsUnitsAndKeepsTheWords)
{
    DesktopStandIn desktop({"systemd-run", "kaddressbook"});
    qputenv("SYSTEMD_EXEC_PID", QByteArray::number(getpid()));
    const std::vector<std::string> run = {"systemd-run", "--user", "--quiet", "--collect",
                                          "--property=KillMode=process"};
    const auto started = [&](std::vector<std::string> words) {
        words.insert(words.begin(), run.begin(), run.end());
        EXPECT_EQ(desktop.take(1).at(0).words, words);
    };
    EXPECT_EQ(AM_LauncherClient::launchAppObject(addressBook, {}, 0, true, false), 0);
    started({"--", "kaddressbook"});
    EXPECT_EQ(AM_LauncherClient::loadURL("http://h/$HOME"), 0);
    started({"--wait", "--", "gio", "open", "--", "http://h/$$HOME"});
    EXPECT_EQ(Handover::lastOutcome().what, Handover::Outcome::Done);
    qputenv("SYSTEMD_EXEC_PID", "1"); // a unit's child is none
    EXPECT_EQ(AM_LauncherClient::launchAppObject(addressBook, {}, 0, true, false), 0);
    EXPECT_EQ(desktop.take(1).at(0).words, std::vector{"kaddressbook"s});
    qunsetenv("SYSTEMD_EXEC_PID");
}

TEST(Handover, SaysWhatBecameOfALinkAndNothingMore)
{
    // What the portal does, what becomes of the link, what the log says.
    const DesktopStandIn desktop;
    for (const auto& [steps, expected, said] : table<3>(R"(
reply respond:0|opened by portal|
respond:0 reply|opened by portal|
reply flood:0|opened by portal|
reply respond:1 respond:0 respond:2|cancelled|
reply respond:2|refused and told|a tel: link was not opened: the portal has not opened it
reply respond:4294967295 flood:0|refused and told|has not opened it
reply stranger respond:2|refused and told|has not opened it
reply misrespond respond:0|unknown and told|the portal's response makes no sense
reply die|unknown and told|nobody says whether a tel: link was opened
die|unknown and told|nobody says
reply:/other|unknown and told|the portal's reply makes no sense
misreply|unknown and told|the portal's reply makes no sense
error:org.freedesktop.portal.Error.NotAllowed|refused and told|Error.NotAllowed: xxxxx
error:org.freedesktop.DBus.Error.NoReply|unknown and told|Error.NoReply
error:org.freedesktop.DBus.Error.UnknownMethod|opened by gio|portal is of no use
absent|opened by gio|
)")) {
        SCOPED_TRACE(steps);
        const LogCapture log;
        const PortalStandIn portal(steps);
        BusListener refused(BusSignals::refused);
        std::string told;
        Failure::setListener([&](auto, auto& about) { told += about == "tel:" ? " and told" : about; });
        EXPECT_EQ(SDManager(0).performAction("PHONE_CALL", {"", "+1", "", false, 0}), 0);
        const Handover::Outcome& outcome = Handover::lastOutcome();
        QTest::qWait(0); // for what comes too late
        std::string what =
            std::array{"nothing", "under way", "opened by ", "cancelled", "refused", "unknown"}[outcome.what];
        EXPECT_EQ(refused.take().size(), what == "refused" ? 1u : 0u);
        what += (what.ends_with(' ') ? outcome.started.at(0) : "") + told;
        EXPECT_EQ(what, expected);
        EXPECT_EQ(log.text().empty(), said.empty()) << log.text();
        EXPECT_TRUE(log.text().find(said) < 200 && log.text().size() < 400) << log.text();
        EXPECT_EQ(portal.asked, steps == "absent" ? "" : "tel:+1");
        Failure::setListener({});
    }
}

TEST(Handover, WaitsForNobodyWithoutEnd)
{
    const PortalStandIn portal("reply");
    std::string answers;
    const auto answered = [&](const LinkAnswer& answer) { answers += std::to_string(answer.what); };
    const auto after = [&](size_t count) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() >= count; }));
        return answers;
    };
    new PortalRequest("tel:", answered, 1);
    EXPECT_EQ(after(1), std::to_string(LinkAnswer::Unknown));
    DesktopProgram::open({"sleep", "1"}, answered, 1);
    EXPECT_EQ(after(2), "44");
    DesktopProgram::open({"/nonexistent"}, answered);
    EXPECT_EQ(after(3), "443") << "refused";
    DesktopProgram::open({"sh", "-c", "kill -9 $$"}, answered);
    EXPECT_EQ(after(4), "4434");
    siginfo_t child;
    EXPECT_TRUE(QTest::qWaitFor([&] { return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == -1; }));
}

} // namespace
