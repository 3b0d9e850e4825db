#include "LivePages.h"

#include "EntryRegistry.h"
#include "MenuNode.h"
#include "NR_Constants.h"
#include "SettingGroups.h"
#include "SettingTable.h"
#include "StoreChanges.h"
#include "Vt_EventAndStatusFacade.h"

#include <QElapsedTimer>

#include <algorithm>

namespace vtmenu {

namespace {

// Milliseconds: little for a person, much for a program that writes one setting after the other.
constexpr int shortestDelay = 20;

// Of the time in which changes come without end, one part is spent on the pages, and so many on keys.
constexpr int partsForKeys = 3;

// What the menu reads, and what its entries say besides that they depend on.
std::set<std::string> watchedNames()
{
    std::set<std::string> names = {"channels", "profiles"};
    for (const Setting& setting : knownSettings()) {
        names.insert(std::string(settingGroupName(setting.group)) + '.' + setting.key);
        for (const std::string& reader : childNames(setting.readers))
            if (const Entry* entry = EntryRegistry::instance()->find(reader))
                entry->watchedKeys(names);
    }
    return names;
}

} // namespace

LivePages* LivePages::instance()
{
    static auto* const pages = new LivePages;
    return pages;
}

LivePages::LivePages()
    : Vt_EventHandler(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED), mDelay(shortestDelay)
{
    mDue.setSingleShot(true);
    mDue.callOnTimeout(this, &LivePages::tell);
}

void LivePages::start()
{
    auto* const facade = Vt_EventAndStatusFacade::instance();
    facade->addEventHandler(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED, this);
    facade->addEventHandler(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, this);
    connect(StoreChanges::instance(), &StoreChanges::changed, this, [this](const QStringList& names) {
        if (names.isEmpty() ||
            std::ranges::any_of(names, [this](const QString& name) { return isWatched(name.toStdString()); }))
            schedule();
    });
}

bool LivePages::isWatched(const std::string& name)
{
    if (mWatched.empty())
        mWatched = watchedNames();
    return mWatched.contains(name) || name.starts_with("device.");
}

void LivePages::handleEvent(const Vt_Event& /*event*/)
{
    schedule();
}

void LivePages::schedule()
{
    if (!mDue.isActive())
        mDue.start(mDelay);
}

// A menu of many thousand lines takes its time; then the next change waits the longer.
void LivePages::tell()
{
    if (mIsLate = mHolds > 0; mIsLate)
        return;
    QElapsedTimer elapsed;
    elapsed.start();
    emit changed();
    mDelay = std::max(shortestDelay, partsForKeys * static_cast<int>(elapsed.elapsed()));
}

LivePages::Hold::Hold()
{
    ++instance()->mHolds;
}

LivePages::Hold::~Hold()
{
    LivePages& pages = *instance();
    if (--pages.mHolds == 0 && pages.mIsLate)
        pages.schedule();
}

} // namespace vtmenu
