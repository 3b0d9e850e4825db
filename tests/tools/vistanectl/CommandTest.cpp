#include "DesktopStandIn.h"
#include "Vistanectl.h"

#include <QFile>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const pack = R"({
    "settings": {"VtCore.Menu": {"Details.title": "Details", "Details.visible": true},
                 "VtNewsReader.UI": {"ScrollingRate": 1}},
    "channels": [{"id": "c1", "title": "News"}],
    "profiles": [{"id": "p1", "name": "One"}, {"id": "p2", "name": "Two", "selectable": false}]})";

struct Step
{
    QStringList arguments;
    int exit;
    std::string out; // whole
    std::string err; // a part; empty means that there is nothing at all
};

// Runs the steps one after the other on one store.
void runAll(const Vistanectl& ctl, const std::vector<Step>& steps)
{
    for (const auto& [arguments, exit, out, err] : steps) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const Vistanectl::Result result = ctl.run(arguments);
        EXPECT_EQ(result.exit, exit);
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err.empty(), err.empty()) << result.err;
        EXPECT_NE(result.err.find(err), std::string::npos) << result.err;
    }
}

const QString title = "VtCore.Menu.Details.title";
const QString visible = "VtCore.Menu.Details.visible";
const QString rate = "VtNewsReader.UI.ScrollingRate";

void writeFile(const QString& name, const char* content)
{
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

TEST(Command, SettingsAreReadSetAndResetAndKeepTheirType)
{
    runAll(Vistanectl(pack), {
                                 {{"get", visible}, 0, "true\n", ""},
                                 {{"set", title, "a\tb\\n"}, 0, "", ""},
                                 {{"get", title}, 0, "a\tb\\n\n", ""},
                                 {{"set", rate, "-5"}, 0, "", ""},
                                 {{"list"},
                                  0,
                                  "VtCore.Menu.Details.title\tstring\tuser\ta\\tb\\\\n\n"
                                  "VtCore.Menu.Details.visible\tbool\tpack\ttrue\n"
                                  "VtNewsReader.UI.ScrollingRate\tint\tuser\t-5\n",
                                  ""},
                                 {{"list", "Nothing"}, 0, "", ""},
                                 {{"reset", title}, 0, "", ""},
                                 {{"reset", title}, 1, "", title.toStdString()},
                                 {{"get", title}, 0, "Details\n", ""},
                                 {{"set", visible, "1"}, 1, "", visible.toStdString()},
                                 {{"set", rate, "2147483648"}, 1, "", rate.toStdString()},
                                 {{"set", rate, " 1"}, 1, "", rate.toStdString()},
                                 {{"set", rate, "1", "--type", "string"}, 1, "", "int"},
                                 {{"set", rate, "1", "--type", "float"}, 2, "", "float"},
                                 {{"set", title, "a\nb"}, 1, "", title.toStdString()},
                                 {{"set", "VtCore.Menu.New", "1"}, 1, "", "VtCore.Menu.New"},
                                 {{"set", "11.z.z", "1", "--type", "string"}, 0, "", ""},
                                 {{"set", "5.z.z", "5", "--type", "int"}, 1, "", "5.z.z"},
                                 {{"list", "11."}, 0, "11.z.z\tstring\tuser\t1\n", ""},
                             });
    // Texts that a command line parser could take for something else.
    for (const char* text : {"", "{}", "[a,b]", "close", "--json"})
        runAll(Vistanectl(pack),
               {{{"set", title, "--", text}, 0, "", ""}, {{"get", title}, 0, text + std::string("\n"), ""}});
}

TEST(Command, WhatIsMissingOrMisspeltIsNamed)
{
    runAll(Vistanectl(pack), {
                                 {{}, 2, "", "subcommand"},
                                 {{"gett", title}, 2, "", "gett"},
                                 {{"get"}, 2, "", "KEY"},
                                 {{"get", title, "more"}, 2, "", "more"},
                                 {{"get", "--loud", title}, 2, "", "--loud"},
                                 {{"get", "VtCore.Menu.Nothing"}, 1, "", "VtCore.Menu.Nothing"},
                                 {{"get", "VtCore.Menue.title"}, 1, "", "VtCore.Menue.title"},
                                 {{"channel", "remove", "c9"}, 1, "", "c9"},
                                 {{"channel", "add", "c9", "two\nlines"}, 2, "", "TITLE"},
                                 {{"profile", "use", "p9"}, 1, "", "p9"},
                                 {{"profile", "add", "p9", "DISABLE:Gold"}, 2, "", "NAME"},
                                 {{"profile", "use", "p2"}, 1, "", "p2"},
                                 {{"device", "set", "colour", "red"}, 1, "", "colour"},
                                 {{"send", "EVENT_UNKNOWN"}, 1, "", "EVENT_UNKNOWN"},
                                 {{"send", "EVENT_NAVIGATE", "six"}, 2, "", "six"},
                                 {{"send", "EVENT_NAVIGATE", "--param", "x"}, 2, "", "x"},
                             });
}

TEST(Command, FactsChannelsAndProfilesAreKept)
{
    const Vistanectl ctl(pack);
    runAll(ctl, {
                    {{"device", "set", "roaming", "-1"}, 0, "", ""},
                    {{"device", "set", "model", ""}, 0, "", ""},
                    {{"channel", "add", "-1", "Sport"}, 0, "", ""},
                    {{"channel", "add", "c1", "World"}, 0, "", ""},
                    {{"channel", "list"}, 0, "c1\tWorld\n-1\tSport\n", ""},
                    {{"channel", "remove", "c1"}, 0, "", ""},
                    {{"channel", "list"}, 0, "-1\tSport\n", ""},
                    {{"profile", "use", "p1"}, 0, "", ""},
                    {{"profile", "add", "p3", "Three", "--locked"}, 0, "", ""},
                    {{"profile", "remove", "p2"}, 0, "", ""},
                    {{"profile", "list"}, 0, "p1\tOne\tselectable\tcurrent\np3\tThree\tlocked\t\n", ""},
                    {{"profile", "add", "p1", "One", "--locked"}, 0, "", "p1: is in force but locked"},
                });
    const std::string facts = ctl.run({"device", "list"}).out;
    EXPECT_NE(facts.find("roaming\t-1\n"), std::string::npos) << facts;
    EXPECT_NE(facts.find("model\t\n"), std::string::npos) << facts;
}

TEST(Command, PacksAreInstalledWholeOrNotAtAll)
{
    const Vistanectl ctl(pack);
    const QString good = ctl.file("good.json");
    const QString bad = ctl.file("bad.json");
    const QString copy = ctl.file("copy.json");
    const QString pipe = ctl.file("pipe");
    const QString large = ctl.file("large.json");
    ASSERT_EQ(mkfifo(pipe.toUtf8(), 0600), 0);
    const int reader = open(pipe.toUtf8(), O_RDONLY | O_NONBLOCK);
    writeFile(large, "");
    ASSERT_TRUE(QFile::resize(large, 16 * 1024 * 1024 + 1));
    writeFile(good, R"({"settings": {"VtCore.Menu": {"Details.title": "New"}}})");
    writeFile(bad, R"({"settings": {"VtCore.Menu": {"Details.title": "Bad", "x.y": 1.5}}})");
    runAll(ctl, {
                    {{"pack", "check", good}, 0, "", ""},
                    {{"pack", "check", bad}, 1, "", "VtCore.Menu.x.y"},
                    {{"pack", "install", bad}, 1, "", "VtCore.Menu.x.y"},
                    {{"pack", "install", ctl.file("none.json")}, 1, "", "none.json"},
                    {{"device", "set", "imsi", "42"}, 0, "", ""},
                    {{"pack", "export", copy}, 0, "", ""},
                    {{"pack", "install", good}, 0, "", ""},
                    {{"list"}, 0, "VtCore.Menu.Details.title\tstring\tpack\tNew\n", ""},
                    {{"pack", "install", copy}, 0, "", ""},
                    {{"get", title}, 0, "Details\n", ""},
                    {{"pack", "export", "/nonexistent/pack.json"}, 1, "", "/nonexistent/pack.json"},
                    {{"pack", "export", pipe}, 0, "", ""},
                    {{"pack", "check", "/dev/zero"}, 1, "", "is no plain file"},
                    {{"pack", "check", pipe}, 1, "", "is no plain file"},
                    {{"pack", "check", large}, 1, "", "is larger than 16 MB"},
                    {{"scene", "load", good}, 1, "", "settings: is no section of a scene"},
                    {{"scene", "load", SOURCE_DIR "/share/scenes/demo.json"}, 0, "", ""},
                    {{"channel", "list"}, 0, "world\tWorld News\nsport\tSport\nweather\tWeather\n", ""},
                });
    EXPECT_EQ(ctl.run({"pack", "export", "-"}).out, ctl.run({"pack", "export"}).out);
    char first = 0;
    EXPECT_EQ(read(reader, &first, 1), 1);
    EXPECT_EQ(first, '{') << "a pipe is written to, not replaced";
    close(reader);
    QProcess full;
    full.setProcessEnvironment(ctl.environment);
    full.setStandardOutputFile("/dev/full");
    full.start(Vistanectl::program, {"pack", "export"});
    ASSERT_TRUE(full.waitForFinished());
    EXPECT_EQ(full.exitCode(), 1);
}

TEST(Command, MachinesGetJson)
{
    const Vistanectl ctl(pack);
    ctl.run({"set", title, "a\tb\\n\"c\""});
    ctl.run({"profile", "use", "p1"});
    const std::pair<QStringList, const char*> cases[] = {
        {{"--json", "get", rate}, R"({"key": "VtNewsReader.UI.ScrollingRate", "type": "int", "value": 1})"},
        {{"list", "VtCore.Menu.Details.t", "--json"},
         R"([{"key": "VtCore.Menu.Details.title", "type": "string", "layer": "user", "value": "a\tb\\n\"c\""}])"},
        {{"list", "Nothing", "--json"}, "[]"},
        {{"profile", "list", "--json"},
         R"([{"id": "p1", "name": "One", "selectable": true, "current": true},
             {"id": "p2", "name": "Two", "selectable": false, "current": false}])"},
    };
    for (const auto& [arguments, json] : cases) {
        const std::string out = ctl.run(arguments).out;
        EXPECT_EQ(QJsonDocument::fromJson(out.c_str()), QJsonDocument::fromJson(json)) << out;
    }
}

TEST(Command, WithoutAStoreNothingIsPretended)
{
    Vistanectl ctl;
    const QString file = ctl.file("pack.json");
    writeFile(file, "{}");
    ctl.environment.insert("VISTANE_DB", "/proc/vistane/core.db");
    runAll(ctl, {
                    {{"get", rate}, 3, "", "cannot be used"},
                    {{"set", rate, "1"}, 3, "", "cannot be used"},
                    {{"device", "list"}, 3, "", "cannot be used"},
                    {{"pack", "install", file}, 3, "", "cannot be used"},
                    {{"pack", "check", file}, 0, "", ""},
                });
}

TEST(Command, OpensLinksAndSaysWhatWasStarted)
{
    const DesktopStandIn desktop;
    Vistanectl ctl(pack);
    ctl.environment.insert("PATH", qEnvironmentVariable("PATH"));
    ctl.environment.insert("VISTANE_HANDOVER", "desktop");
    runAll(ctl, {
                    {{"open", "tel:+1(202)5550123"}, 0, "xdg-open tel:+12025550123\ttrue\n", ""},
                    {{"open", "javascript:alert(1)"}, 1, "nothing\tfalse\n", "nothing was started"},
                });
}
