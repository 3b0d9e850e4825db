#include "ApiProvider.h"

#include "ApiRegistry.h"
#include "CoreStore.h"
#include "FileLock.h"
#include "HowToUseAction.h"
#include "MemoryFile.h"
#include "MenuStore.h"
#include "NR_Constants.h"
#include "SettingHelper.h"
#include "StatusValues.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QTest>

#include <cstdio>
#include <fstream>

namespace {

// The events on the bus, each as "name value hasParameters text mode".
class Wire : public QObject
{
    Q_OBJECT

public:
    Wire()
    {
        QDBusConnection::sessionBus().connect(QString(), "/Vistane/Events", "org.vistane.Core1", "Event", this,
                                              SLOT(receive(QDBusMessage)));
    }

    // What was sent up to now: the bus keeps the order, so all of it has come when a last one has.
    QStringList events()
    {
        Vt_EventAndStatusFacade::instance()->sendEvent(Vt_Event("END"), 0);
        EXPECT_TRUE(QTest::qWaitFor([this] { return mEvents.contains("END 0 0  0"); }));
        QStringList events;
        events.swap(mEvents);
        events.removeLast();
        return events;
    }

private slots:
    void receive(const QDBusMessage& message)
    {
        const QVariantList a = message.arguments();
        ASSERT_EQ(a.size(), 6);
        mEvents << QString("%1 %2 %3 %4 %5")
                       .arg(a[0].toString())
                       .arg(a[1].toInt())
                       .arg(a[3].toInt())
                       .arg(a[4].toString())
                       .arg(a[5].toInt());
    }

private:
    QStringList mEvents;
};

TEST(ApiProvider, SendsTheEventOfEachAction)
{
    MenuStore store;
    ApiProvider::instance();
    Wire wire;
    const std::pair<const char*, QStringList> actions[] = {
        {"READ_STORY_API", {"EVENT_NAVIGATE 7 0  1"}},
        {"NEXT_CHANNEL", {"EVENT_NAVIGATE 6 0  1"}},
        {"PREV_CHANNEL", {"EVENT_NAVIGATE 5 0  1"}},
        {"HOW_TO_USE_API", {"EVENT_SHOW_HELP_EXCERPT_PAGE 0 0 wac 0"}},
        {"READ_MORE_API", {}},
        {"SET_API", {}},
        {"MEMORY_API", {}}, // a text, no action
        {"next_channel", {}},
    };
    for (const auto& [name, events] : actions) {
        ApiRegistry::instance()->act(name);
        EXPECT_EQ(wire.events(), events) << name;
    }
    HowToUseAction entry;
    entry.invoke(1);
    entry.invoke();
    EXPECT_EQ(wire.events(), QStringList("EVENT_SHOW_HELP_EXCERPT_PAGE 0 0 wac 0"));
}

TEST(ApiProvider, KeepsTheSectionsApart)
{
    MenuStore store;
    ApiProvider::instance();
    const ApiRegistry& apis = *ApiRegistry::instance();
    for (const char* name :
         {"LAST_CONNECTION_API", "SUBSCRIPTION_API", "HOME_NETWORK_API", "CURRENT_NETWORK_API",
          "DOWNLOAD_MODE_API", "ROAMING_STATUS_API", "ACTIVITY_API", "MEMORY_API", "PROFILE_API"})
        EXPECT_NE(apis.text(name), "") << name;
    EXPECT_EQ(apis.text("SET_PROFILE_API"), "");
    apis.set("PROFILE_API", 0);
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 0);
    EXPECT_FALSE(apis.isHidden("HIDE_READ_MORE"));
    for (const char* allowed : {"true", "false"}) {
        CoreStore::instance().setFact("user_select_profile", allowed);
        EXPECT_EQ(apis.isHidden("HIDE_PROFILE_API"), *allowed == 'f');
        EXPECT_FALSE(apis.isHidden("PROFILE_API"));
    }
}

TEST(ApiProvider, InstallsTheProfileOfTheListLastShown)
{
    TestStore store(R"({"profiles": [{"id": "p1", "name": "One"}, {"id": "p2", "name": "Two"}]})");
    ApiProvider::instance();
    const ApiRegistry& apis = *ApiRegistry::instance();
    setIntSetting(GROUP_MENU, "ProfileSelected", 0);
    apis.text("PROFILE_API");
    for (int outside : {-1, 2, 1000}) {
        apis.set("SET_PROFILE_API", outside);
        EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 0) << outside;
    }
    apis.set("SET_PROFILE_API", 1);
    EXPECT_EQ(apis.text("CURRENT_PROFILE_API"), "Two");
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 1);

    // The mark is set even when the profile is gone since it was listed.
    setIntSetting(GROUP_MENU, "ProfileSelected", 0);
    CoreStore::instance().removeProfile("p1");
    apis.set("SET_PROFILE_API", 0);
    EXPECT_EQ(getIntSetting(GROUP_MENU, "ProfileSelected"), 1);
    EXPECT_EQ(apis.text("CURRENT_PROFILE_API"), "Two");
}

// Has the memory file to itself, and leaves it as it was.
class OwnMemoryFile
{
public:
    OwnMemoryFile() : mHadFile(rename(MemoryFile::defaultPath, kept) == 0) {}
    ~OwnMemoryFile()
    {
        std::remove(MemoryFile::defaultPath);
        if (mHadFile)
            rename(kept, MemoryFile::defaultPath);
    }

private:
    static constexpr char kept[] = "/tmp/vtmem.kept-by-tests";
    const FileLock mLock{MemoryFile::defaultPath};
    const bool mHadFile;
};

TEST(ApiProvider, FollowsTheServiceAndSavesTheMemoryTexts)
{
    MenuStore store;
    OwnMemoryFile file;
    std::ofstream(MemoryFile::defaultPath) << "1 M\n2 M\n3 M\n";
    StatusValues::state() = {};
    StatusValues::State& state = StatusValues::state();
    Vt_EventAndStatusFacade& facade = *Vt_EventAndStatusFacade::instance();
    const Vt_Event started(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED);
    const Vt_Event completed(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED);
    const Vt_Event storage(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, 0,
                           std::make_shared<Vt_Event::Parameters>(Vt_Event::Parameters{{"free", "9 M"}}));
    {
        ApiProvider provider;
        EXPECT_EQ(state.totalMemoryText, "1 M");
        facade.sendEvent(started, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return state.updateInProgress; }));
        facade.sendEvent(completed, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !state.updateInProgress; }));
        facade.sendEvent(storage, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return state.freeMemoryText == "9 M"; }));
    }
    std::string saved;
    std::getline(std::ifstream(MemoryFile::defaultPath), saved, '\0');
    EXPECT_EQ(saved, "1 M\n9 M\n3 M\n");
    Wire wire; // what comes now must not go to the provider that is gone
    for (const Vt_Event& event : {started, completed, storage})
        facade.sendEvent(event, 0);
    EXPECT_EQ(wire.events().size(), 3);
}

} // namespace

#include "ApiProviderTest.moc"
