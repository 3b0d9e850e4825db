#include "ApiProvider.h"

#include "ApiRegistry.h"
#include "MemoryFile.h"
#include "NR_Constants.h"
#include "ProfileForm.h"
#include "StatusValues.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <utility>

namespace {

ApiProvider* theProvider = nullptr;

// Where a navigation event leads.
enum NavigationCode { PREVIOUS_CHANNEL = 5, NEXT_CHANNEL = 6, READ_STORY = 7 };

// None of the events sent here carries a map, which is null then, not empty.
void navigate(int code)
{
    Vt_EventAndStatusFacade::instance()->sendEvent(Vt_Event(NR_Constants::EVENT_NAVIGATE, code), 1);
}

void readStory()
{
    navigate(READ_STORY);
}

void nextChannel()
{
    navigate(NEXT_CHANNEL);
}

void previousChannel()
{
    navigate(PREVIOUS_CHANNEL);
}

void howToUse()
{
    const Vt_Event event(NR_Constants::EVENT_SHOW_HELP_EXCERPT_PAGE, 0, nullptr, "wac");
    Vt_EventAndStatusFacade::instance()->sendEvent(event, 0);
}

void doNothing() {}

bool showAlways()
{
    return false;
}

void registerApis(ApiRegistry& apis)
{
    apis.add("READ_STORY_API", readStory);
    apis.add("NEXT_CHANNEL", nextChannel);
    apis.add("PREV_CHANNEL", previousChannel);
    apis.add("READ_MORE_API", doNothing);
    apis.add("HIDE_READ_MORE", showAlways);
    apis.add("LAST_CONNECTION_API", StatusValues::lastConnection);
    apis.add("SUBSCRIPTION_API", StatusValues::subscription);
    apis.add("SET_API", doNothing);
    apis.add("HOME_NETWORK_API", StatusValues::homeNetwork);
    apis.add("CURRENT_NETWORK_API", StatusValues::currentNetwork);
    apis.add("DOWNLOAD_MODE_API", StatusValues::downloadMode);
    apis.add("ROAMING_STATUS_API", StatusValues::roamingStatus);
    apis.add("ACTIVITY_API", StatusValues::activity);
    apis.add("MEMORY_API", StatusValues::memory);
    apis.add("PROFILE_API", ProfileChoice::list);
    apis.add("CURRENT_PROFILE_API", ProfileChoice::current);
    apis.add("SET_PROFILE_API", ProfileChoice::choose);
    apis.add("HIDE_PROFILE_API", ProfileChoice::isFixed);
    apis.add("HOW_TO_USE_API", howToUse);
}

} // namespace

ApiProvider* ApiProvider::instance()
{
    if (!theProvider)
        theProvider = new ApiProvider;
    return theProvider;
}

void ApiProvider::tearDown()
{
    delete std::exchange(theProvider, nullptr);
}

ApiProvider::ApiProvider() : Vt_EventHandler(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED)
{
    Vt_EventAndStatusFacade& facade = *Vt_EventAndStatusFacade::instance();
    facade.addEventHandler(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED, this);
    facade.addEventHandler(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, this);
    registerApis(*ApiRegistry::instance());
    ProfileChoice::prepare();
    MemoryFile::load(MemoryFile::defaultPath, StatusValues::state());
}

ApiProvider::~ApiProvider()
{
    Vt_EventAndStatusFacade& facade = *Vt_EventAndStatusFacade::instance();
    facade.removeEventHandler(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED, this);
    facade.removeEventHandler(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, this);
    MemoryFile::save(MemoryFile::defaultPath, StatusValues::state());
}

void ApiProvider::handleEvent(const Vt_Event& event)
{
    StatusValues::follow(event);
}
