#include "DesktopStandIn.h"
#include "Table.h"
#include "Vistanectl.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace {

const char* const pack = R"({
    "settings": {"VtCore.Menu": {"Details.title": "Details", "Details.visible": true},
                 "VtNewsReader.UI": {"ScrollingRate": 1}},
    "channels": [{"id": "c1", "title": "News"}],
    "profiles": [{"id": "p1", "name": "One"}, {"id": "p2", "name": "Two", "selectable": false}]})";

QString replaced(const std::string& text)
{
    QString result = QString::fromStdString(text);
    result.replace("@title", "VtCore.Menu.Details.title").replace("@visible", "VtCore.Menu.Details.visible");
    return result.replace("@rate", "VtNewsReader.UI.ScrollingRate").replace('^', '\n');
}

// Runs commands one after the other on one store. A row has a command, its exit status, the whole of what it prints and
// a part of what it complains of, where nothing means that it does not. "^" stands for a line feed, "~" for a space
// within an argument.
void runAll(const Vistanectl& ctl, const std::string& rows)
{
    for (const auto& [command, exit, out, err] : table<4>(rows)) {
        SCOPED_TRACE(command);
        const Vistanectl::Result result = ctl.run(replaced(command).split(' ').replaceInStrings("~", " "));
        EXPECT_EQ(std::to_string(result.exit), exit);
        EXPECT_EQ(result.out, replaced(out).toStdString());
        EXPECT_EQ(result.err.empty(), err.empty()) << result.err;
        EXPECT_NE(result.err.find(replaced(err).toStdString()), std::string::npos) << result.err;
    }
}

} // namespace

TEST(Command, SettingsAreReadSetAndResetAndKeepTheirType)
{
    const Vistanectl ctl(pack);
    runAll(ctl, "get @visible|0|true^;set @visible false|0;get @visible|0|false^;reset @visible|0;set @title "
                "a\tb\\n|0;get @title|0|a\tb\\n^;set @rate -5|0;"
                "list|0|@title\tstring\tuser\ta\\tb\\\\n^@visible\tbool\tpack\ttrue^@rate\tint\tuser\t-5^;"
                "list Nothing|0;reset @title|0;reset @title|1||@title;get @title|0|Details^;"
                "set @visible 1|1||@visible;set @rate 2147483648|1||@rate;set @rate ~1|1||@rate;"
                "set @rate 1 --type string|1||int;set @rate 1 --type float|2||float;set @title a^b|1||@title;"
                "set VtCore.Menu.New 1|1||VtCore.Menu.New;set 11.z.z 1 --type string|0;"
                "set 5.z.z 5 --type int|1||5.z.z;list 11.|0|11.z.z\tstring\tuser\t1^");
    // Texts that a command line parser could take for something else.
    for (const std::string text : {"", "{}", "[a,b]", "close", "--json"})
        runAll(ctl, "set @title -- " + text + "|0;get @title|0|" + text + '^');
}

TEST(Command, WhatIsMissingOrMisspeltIsNamed)
{
    const Vistanectl ctl(pack);
    EXPECT_EQ(ctl.run({}).exit, 2);
    runAll(ctl, "gett @title|2||gett;get|2||KEY;get @title more|2||more;get --loud @title|2||--loud;"
                "get VtCore.Menu.Nothing|1||VtCore.Menu.Nothing;get VtCore.Menue.title|1||VtCore.Menue.title;"
                "channel remove c9|1||c9;channel add c9 two^lines|2||TITLE;profile use p9|1||p9;"
                "profile add p9 DISABLE:Gold|2||NAME;profile use p2|1||p2;device set colour red|1||colour;"
                "send EVENT_UNKNOWN|1||EVENT_UNKNOWN;send EVENT_NAVIGATE six|2||six;"
                "send EVENT_NAVIGATE --param x|2||x");
}

TEST(Command, FactsChannelsAndProfilesAreKept)
{
    const Vistanectl ctl(pack);
    runAll(ctl, "device set roaming -1|0;device set model |0;channel add -1 Sport|0;channel add c1 World|0;"
                "channel list|0|c1\tWorld^-1\tSport^;channel remove c1|0;channel list|0|-1\tSport^;"
                "profile use p1|0;profile add p3 Three --locked|0;profile remove p2|0;"
                "profile list|0|p1\tOne\tselectable\tcurrent^p3\tThree\tlocked\t^;"
                "profile add p1 One --locked|0||p1: is in force but locked");
    const std::string facts = ctl.run({"device", "list"}).out;
    EXPECT_NE(facts.find("roaming\t-1\n"), std::string::npos) << facts;
    EXPECT_NE(facts.find("model\t\n"), std::string::npos) << facts;
}

TEST(Command, PacksAreInstalledWholeOrNotAtAll)
{
    const Vistanectl ctl(pack);
    ASSERT_EQ(mkfifo(ctl.file("pipe").toUtf8(), 0600), 0);
    ctl.write("large.json", "");
    ASSERT_TRUE(QFile::resize(ctl.file("large.json"), 16 * 1024 * 1024 + 1));
    ctl.write("good.json", R"({"settings": {"VtCore.Menu": {"Details.title": "New"}}})");
    ctl.write("bad.json", R"({"settings": {"VtCore.Menu": {"Details.title": "Bad", "x.y": 1.5}}})");
    runAll(ctl, "pack check good.json|0;pack check bad.json|1||VtCore.Menu.x.y;"
                "pack install bad.json|1||VtCore.Menu.x.y;pack install none.json|1||none.json;"
                "device set imsi 42|0;pack export copy.json|0;pack install good.json|0;"
                "list|0|@title\tstring\tpack\tNew^;pack install copy.json|0;get @title|0|Details^;"
                "pack export /nonexistent/pack.json|1||/nonexistent/pack.json;"
                "pack check /dev/zero|1||is no plain file;"
                "pack check pipe|1||is no plain file;pack check large.json|1||is larger than 16 MB;"
                "scene load good.json|1||settings: is no section of a scene;"
                "scene load " SOURCE_DIR "/share/scenes/demo.json|0;"
                "channel list|0|world\tWorld News^sport\tSport^weather\tWeather^");
    for (const char* output : {"-", "/proc/self/fd/1"})
        EXPECT_EQ(ctl.run({"pack", "export", output}).out, ctl.run({"pack", "export"}).out) << output;
    // A device of its own, which only root can make: one of the machine's could be replaced by a fault.
    if (mknod(ctl.file("full").toUtf8(), S_IFCHR | 0600, makedev(1, 7)) == 0)
        runAll(ctl, "pack export full|1||full");
    EXPECT_FALSE(QFileInfo(ctl.file("full")).isFile());
    QProcess process;
    process.setProcessEnvironment(ctl.environment);
    process.setStandardOutputFile("/dev/full");
    process.start(Vistanectl::program, {"pack", "export"});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
}

TEST(Command, MachinesGetJson)
{
    const Vistanectl ctl(pack);
    runAll(ctl, "set @title a\tb\\n\"c\"|0;profile use p1|0");
    for (const auto& [command, json] : table<2>(R"(
--json get @rate|{"key": "VtNewsReader.UI.ScrollingRate", "type": "int", "value": 1}
list VtCore.Menu.Details.t --json|[{"key": "@title", "type": "string", "layer": "user", "value": "a\tb\\n\"c\""}]
list Nothing --json|[]
profile list --json|[{"id": "p1", "name": "One", "selectable": true, "current": true}, {"id": "p2", "name": "Two", "selectable": false, "current": false}])")) {
        const std::string out = ctl.run(replaced(command).split(' ')).out;
        EXPECT_EQ(QJsonDocument::fromJson(out.c_str()), QJsonDocument::fromJson(replaced(json).toUtf8()))
            << out;
    }
}

TEST(Command, WithoutAStoreNothingIsPretended)
{
    Vistanectl ctl;
    ctl.write("pack.json", "{}");
    ctl.environment.insert("VISTANE_DB", "/proc/vistane/core.db");
    runAll(ctl, "get @rate|3||cannot be used;set @rate 1|3||cannot be used;device list|3||cannot be used;"
                "pack install pack.json|3||cannot be used;pack check pack.json|0");
}

TEST(Command, OpensLinksAndSaysWhatWasStarted)
{
    const DesktopStandIn desktop;
    Vistanectl ctl(pack);
    ctl.environment.insert("PATH", qEnvironmentVariable("PATH"));
    ctl.environment.insert("VISTANE_HANDOVER", "desktop");
    runAll(ctl, "open tel:+1(202)5550123|0|xdg-open tel:+12025550123\ttrue^;"
                "open javascript:alert(1)|1|nothing\tfalse^|nothing was started");
}
