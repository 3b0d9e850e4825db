#include "Handover.h"

#include "AM_ActionData.h"
#include "AM_LauncherClient.h"
#include "DesktopStandIn.h"
#include "LogCapture.h"
#include "PlatformRequests.h"
#include "PrivateFile.h"
#include "SDManager.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::string_literals;

namespace {

using Words = std::vector<std::string>;

const char addressBook[] = "2f7e9a31-c605-4b1d-8e2a-94d0f6b3c718";
const char calendar[] = "5c2d7a10-8e4b-4f3a-9b61-0d7e2c4a9f35";

AM_ActionData mail()
{
    AM_ActionData data;
    data.setAction("SendEmail");
    data.setValue("To", "a@x");
    data.setValue("Cc", "");
    data.setValue("Subject", "Hi \"there\"");
    return data;
}

TEST(Handover, AnnouncesArgumentsInOrderAndStartsNothingWhenOff)
{
    DesktopStandIn desktop({"xdg-open", "gnome-contacts"});
    qputenv("VISTANE_HANDOVER", "off");
    PlatformRequests requests;
    const Words startedBefore = Handover::lastStarted();

    EXPECT_EQ(AM_LauncherClient::launchAppObject(addressBook, {}, 0, true, false), 0);
    EXPECT_EQ(AM_LauncherClient::loadURL("http://h/?a=b|\xc3\xa4\xff"), 0);
    EXPECT_EQ(AM_LauncherClient::openDocument("rtsp://h\0i"s, {}, true), 0);
    EXPECT_EQ(mail().invoke(), 0);
    EXPECT_EQ(SDManager(0).performAction("PHONE_CALL", {"text/x-phoneNumber", "+12", "", false, 7}), 0);

    const Words expected = {
        "launchAppObject|"s + addressBook + "||0|true|false",
        "loadURL|http://h/?a=b|\xc3\xa4\xef\xbf\xbd",
        "openDocument|rtsp://h\xef\xbf\xbdi||true",
        "invoke|SendEmail|To|a@x|Cc||Subject|Hi \"there\"",
        "performAction|PHONE_CALL|text/x-phoneNumber|+12||false|7",
    };
    EXPECT_EQ(requests.take(), expected);
    EXPECT_TRUE(desktop.take(0).empty());
    EXPECT_EQ(Handover::lastStarted(), startedBefore);
}

TEST(Handover, MapsEachRequestToTheDesktop)
{
    DesktopStandIn desktop({"xdg-open", "kaddressbook", "gnome-calendar"});
    QTemporaryDir dir;
    const std::string textFile = dir.filePath("text").toStdString();
    ASSERT_TRUE(PrivateFile::write(textFile.c_str(), "Hi & bye"));
    const auto message = [](const std::string& file) {
        AM_ActionData data;
        data.setAction("SendMMSSMS");
        data.setValue("ContactList", "+1555");
        data.setValue("Files", file);
        return data;
    };
    const std::string planted = dir.filePath("planted").toStdString();
    ASSERT_EQ(symlink("/etc/passwd", planted.c_str()), 0);

    const auto expectStarted = [&](int status, const Words& words) {
        EXPECT_EQ(status, 0) << testing::PrintToString(words);
        const auto calls = desktop.take(1);
        ASSERT_EQ(calls.size(), 1u) << testing::PrintToString(words);
        EXPECT_EQ(calls[0].words, words);
        EXPECT_EQ(Handover::lastStarted(), words);
    };
    expectStarted(AM_LauncherClient::loadURL("http://h/a b"), {"xdg-open", "http://h/a%20b"});
    expectStarted(AM_LauncherClient::openDocument("rtsp://h/s", {}, true), {"xdg-open", "rtsp://h/s"});
    expectStarted(mail().invoke(), {"xdg-open", "mailto:a@x?subject=Hi%20%22there%22"});
    expectStarted(message(textFile).invoke(), {"xdg-open", "sms:+1555?body=Hi%20%26%20bye"});
    expectStarted(message(planted).invoke(), {"xdg-open", "sms:+1555"});
    expectStarted(SDManager(0).performAction("PHONE_CALL", {"text/x-phoneNumber", "12#", "", false, 0}),
                  {"xdg-open", "tel:12%23"});
    // the second of the table's programs, the first not being there
    expectStarted(AM_LauncherClient::launchAppObject(addressBook, {}, 0, true, true), {"kaddressbook"});
    expectStarted(AM_LauncherClient::launchAppObject(calendar, "--date=2007 $(x)\n-v", 0, true, true),
                  {"gnome-calendar", "--date=2007%20$(x)%0A-v"});
}

TEST(Handover, RefusesWhatItDoesNotKnowAndSaysSo)
{
    DesktopStandIn desktop({"xdg-open", "gnome-contacts"});
    LogCapture log;
    for (const std::string& appId : {""s, "#"s, "/bin/sh"s, "xdg-open"s, addressBook + "\tgnome-contacts"s,
                                     addressBook + "\0"s, "2f7e9a31"s})
        EXPECT_NE(AM_LauncherClient::launchAppObject(appId, {}, 0, true, true), 0)
            << testing::PrintToString(appId);
    EXPECT_NE(AM_LauncherClient::launchAppObject(calendar, {}, 0, true, true), 0) << "is not installed";
    for (const char* link : {"file:///etc/passwd", "-v", "--version:", "", "\nforged line:"})
        EXPECT_NE(AM_LauncherClient::loadURL(link), 0) << link;
    EXPECT_NE(AM_LauncherClient::openDocument("/etc/passwd", {}, true), 0);
    EXPECT_NE(AM_LauncherClient::loadURL("http://h/" + std::string(1 << 20, 'x')), 0)
        << "is too long to hand over";
    EXPECT_NE(AM_ActionData().invoke(), 0);
    EXPECT_NE(SDManager(0).performAction("DIAL", {}), 0);
    EXPECT_TRUE(desktop.take(0).empty());

    const Words lines = log.lines();
    EXPECT_EQ(lines.size(), 15u);
    EXPECT_EQ(lines.at(12), "(Handover:*)[~~~~vistane~~~~]a link that may not be opened: %0Aforged%20line:");
}

TEST(Handover, WhatIsStartedLivesByItself)
{
    DesktopStandIn desktop;
    int leaky[2];
    ASSERT_EQ(pipe(leaky), 0);
    ASSERT_EQ(AM_LauncherClient::loadURL("http://h"), 0);
    const auto calls = desktop.take(1);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_TRUE(calls[0].files.starts_with("/dev/null\n/dev/null\n/dev/null\n")) << calls[0].files;
    EXPECT_EQ(calls[0].files.find("pipe:"), std::string::npos) << calls[0].files;
    EXPECT_EQ(calls[0].folder, "/\n") << "a link must not name a file of the folder we happen to be in";
    EXPECT_NE(calls[0].session, getsid(0));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "left a child behind";
    close(leaky[0]);
    close(leaky[1]);
}

TEST(Handover, AnswersFailureWithoutAnOpener)
{
    DesktopStandIn desktop;
    qputenv("PATH", "/nonexistent");
    EXPECT_NE(AM_LauncherClient::loadURL("http://h"), 0);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "left a child behind";
}

} // namespace
