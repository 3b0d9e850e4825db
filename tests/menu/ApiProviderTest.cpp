#include "ApiProvider.h"

#include "ApiRegistry.h"
#include "BusListener.h"
#include "Entry.h"
#include "FileLock.h"
#include "LogCapture.h"
#include "MemoryFile.h"
#include "NR_Constants.h"
#include "PrivateFile.h"
#include "StatusValues.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <fstream>

namespace {

void send(const Vt_Event& event)
{
    Vt_EventAndStatusFacade::instance()->sendEvent(event, 0);
}

TEST(ApiRegistry, CallsWhatANameWasGivenLast)
{
    ApiRegistry& apis = *ApiRegistry::instance();
    static std::string called;
    apis.add(
        "Test.b", +[] { return std::string("old"); });
    apis.add(
        "Test.b", +[] { return std::string("text"); });
    apis.add(
        "Test.b", +[] { called += "act "; });
    apis.add(
        "Test.b", +[](int i) { called += std::to_string(i); });
    apis.add(
        "Test.b", +[] { return true; });
    for (const std::string name : {"Test.b", "Test.a", "Test.c", "test.b", "", "zzz"}) {
        SCOPED_TRACE(name);
        const bool isKnown = name == "Test.b";
        const LogCapture log;
        called.clear();
        EXPECT_EQ(apis.text(name), isKnown ? "text" : "");
        EXPECT_EQ(apis.isHidden(name), isKnown);
        ActionEntry entry(name, "label");
        EXPECT_TRUE(!entry.isHidden() && entry.isEnabled() && entry.label() == "label");
        entry.invoke(7);
        entry.invoke();
        entry.mArgMode = 1;
        entry.invoke();
        entry.invoke(8);
        EXPECT_EQ(called, isKnown ? "act 8" : "");
        EXPECT_EQ(log.text(), "");
    }
}

TEST(ApiProvider, SendsTheEventOfEachAction)
{
    ApiProvider::instance();
    BusListener bus(BusSignals::event);
    using Events = std::vector<std::string>; // name, value, map, whether there is one, text, mode
    const std::pair<const char*, Events> actions[] = {
        {"READ_STORY_API", {"EVENT_NAVIGATE|7||false||1"}},
        {"NEXT_CHANNEL", {"EVENT_NAVIGATE|6||false||1"}},
        {"PREV_CHANNEL", {"EVENT_NAVIGATE|5||false||1"}},
        {"HOW_TO_USE_API", {"EVENT_SHOW_HELP_EXCERPT_PAGE|0||false|wac|0"}},
        {"READ_MORE_API", {}},
        {"SET_API", {}},
        {"MEMORY_API", {}}, // a text, no action
        {"next_channel", {}},
    };
    for (const auto& [name, events] : actions) {
        ApiRegistry::instance()->act(name);
        EXPECT_EQ(bus.take(), events) << name;
    }
}

TEST(ApiProvider, FollowsTheServiceAndSavesTheMemoryTexts)
{
    const FileLock lock(MemoryFile::defaultPath);
    PrivateFile::write(MemoryFile::defaultPath, "1 M\n2 M\n3 M\n");
    StatusValues::State& state = StatusValues::state();
    state = {};
    const Vt_Event started(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED);
    const Vt_Event completed(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED);
    const Vt_Event storage(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, 0,
                           std::make_shared<Vt_Event::Parameters>(Vt_Event::Parameters{{"free", "9 M"}}));
    {
        ApiProvider provider;
        EXPECT_EQ(state.totalMemoryText, "1 M");
        send(started);
        EXPECT_TRUE(QTest::qWaitFor([&] { return state.updateInProgress; }));
        send(completed);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !state.updateInProgress; }));
        send(storage);
        EXPECT_TRUE(QTest::qWaitFor([&] { return state.freeMemoryText == "9 M"; }));
    }
    EXPECT_EQ(PrivateFile::read(MemoryFile::defaultPath), "1 M\n9 M\n3 M\n");
    std::remove(MemoryFile::defaultPath);
    // What comes now must not go to the provider that is gone.
    BusListener bus(BusSignals::event);
    for (const Vt_Event& event : {started, completed, storage})
        send(event);
    EXPECT_EQ(bus.take().size(), 3);
}

TEST(MemoryFile, ReadsTheLinesThereAre)
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("vtmem").toStdString();
    const std::pair<const char*, const char*> cases[] = {
        {"1 M\n2 M\n3 M", "1 M|2 M|3 M"}, {"1 M\n2 M\n", "1 M|2 M|0 K"},
        {"", "680 K|680 K|0 K"},          {"\n\n\n", "||"},
        {"1\n2\n3\n4\n", "1|2|3"},
    };
    for (const auto& [text, expected] : cases) {
        std::ofstream(path) << text;
        StatusValues::State state;
        MemoryFile::load(path.c_str(), state);
        EXPECT_EQ(state.totalMemoryText + '|' + state.freeMemoryText + '|' + state.usedMemoryText, expected);
    }
}

} // namespace
