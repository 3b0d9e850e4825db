#include "Stream.h"

#include "CoreStore.h"
#include "Dice.h"
#include "HostBus.h"
#include "Life.h"
#include "MenuChannel.h"
#include "NR_Constants.h"
#include "PlatformSignals.h"
#include "QCopChannel.h"
#include "RefreshStatus.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <algorithm>
#include <climits>

namespace {

using namespace std::string_literals;

const std::string keys[] = {"Up",     "Down",   "Down",   "Down",   "Prior",    "Next",
                            "Return", "Return", "Return", "Return", "KP_Enter", "F1",
                            "F9",     "Left",   "Right",  "Tab",    "Home",     "a"};
const std::string backKeys[] = {"F2", "F11", "Escape"};

// What is written besides values that other settings have in the pack.
const SettingValue values[] = {0,
                               1,
                               2,
                               3,
                               -1,
                               INT_MIN,
                               INT_MAX,
                               false,
                               true,
                               ""s,
                               " "s,
                               ",,, ,"s,
                               "Nobody"s,
                               "\\n\\n%1%2%3%n%s"s,
                               "a\nb\tc"s,
                               "\xff\xfe"s,
                               "\0x"s,
                               "😀\u0301\u200f"s,
                               "العناوين الرئيسية"s,
                               "<b>bold</b>&amp;"s,
                               std::string(2000, 'W'),
                               "tel:+12025550123"s,
                               "mailto:a@b.example?subject=x"s,
                               "javascript:x"s,
                               "://%%%"s,
                               "https://h.example/@MSISDN@"s,
                               "SetupHeadlines"s,
                               "ConfigureHeadlines, SetupHeadlines, Details, Profile, Profile"s,
                               "HowToUse,AddNewChannel,ManageMyChannels,CustomHomeMode,Scrolling,Download"s};
const SettingValue modes[] = {"ENABLED_NORMAL_MODE"s, "DISABLED_NORMAL_MODE"s, "HIDDEN_MODE"s};
const std::string decisiveSettings[] = {"ConfigureHeadlines.ChildIDs",
                                        "EnabledMode",
                                        "ProfileSelected",
                                        "ManualRefresh",
                                        "DownloadOption",
                                        "ScrollingRate"};
const std::string ids[] = {"world", "sport", "standard", "saver", "business", "new", ""};
constexpr int goodStatuses[] = {STATUS_CONNECTING, STATUS_DOWNLOADING, STATUS_DONE};

std::string textOf(const SettingValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    return std::to_string(std::holds_alternative<int>(value) ? std::get<int>(value) : std::get<bool>(value));
}

// Once what is on its way over the bus has had its effect. Going back from there would end most lives early.
bool isAtRoot(Life& life)
{
    HostBus::flush();
    return life.isAtRoot();
}

// Some keys stay down.
std::string pressKey(Life& life, Dice& dice)
{
    const bool back = dice.oneIn(8);
    const bool hold = dice.oneIn(30);
    const std::string name = back ? dice.pick(backKeys) : dice.pick(keys);
    if (back && isAtRoot(life))
        return "-";
    life.phone().key(XPhone::keyNamed(name), true);
    if (!hold)
        life.phone().key(XPhone::keyNamed(name), false);
    return (hold ? "hold " : "press ") + name;
}

void release(Life& life)
{
    for (const std::string& name : keys)
        life.phone().key(XPhone::keyNamed(name), false);
    for (const std::string& name : backKeys)
        life.phone().key(XPhone::keyNamed(name), false);
    life.phone().button(false);
}

std::string release(Life& life, Dice&)
{
    release(life);
    return "release everything";
}

// Touches and lifts, just touches, or moves on (which drags what was touched). The right soft key is "back".
std::string movePointer(Life& life, Dice& dice)
{
    XPhone& phone = life.phone();
    const int x = dice.below(phone.width());
    const int y = dice.below(phone.height());
    const int what = dice.below(5);
    if (what > 0 && x >= phone.width() / 2 && y > phone.height() - 40 && isAtRoot(life))
        return "-";
    phone.moveTo(x, y);
    if (what > 0)
        phone.button(true);
    if (what > 1)
        phone.button(false);
    return (what > 1 ? "tap " : what ? "touch " : "move to ") + std::to_string(x) + ',' + std::to_string(y);
}

void send(const std::string& name, int value, const Vt_Event::Parameters& parameters = {})
{
    Vt_EventAndStatusFacade::instance()->sendEvent(
        Vt_Event(name, value, std::make_shared<Vt_Event::Parameters>(parameters)), 0);
}

// Failures are rare, for each one may bring about a pause of two seconds.
std::string refreshStatuses(Life&, Dice& dice)
{
    std::string told = "refresh status";
    const int length = dice.below(30) ? 1 : 100;
    for (int i = 0; i < length; ++i) {
        const int status = dice.below(200) ? dice.pick(goodStatuses) : dice.below(8) - 1;
        send(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, status);
        told += ' ' + std::to_string(status);
    }
    return told;
}

std::string serviceEvent(Life& life, Dice& dice)
{
    const std::string& name = dice.pick(NR_Constants::eventNames);
    if (name == NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS)
        return refreshStatuses(life, dice);
    const std::string text = textOf(dice.pick(values));
    send(name, dice.below(3), {{"total", text}, {"free", text}, {"used", text}});
    return name + ' ' + text;
}

std::string changeSetting(Life&, Dice& dice)
{
    const auto& settings = OperatorPack::builtIn().settings;
    OperatorPack::Setting setting = dice.pick(settings);
    if (const std::string& key = dice.pick(decisiveSettings); dice.below(2))
        setting = *std::ranges::find(settings, key, &OperatorPack::Setting::key);
    setting.value = dice.below(2) ? dice.pick(values) : dice.pick(settings).value;
    if (setting.key == "EnabledMode" && dice.below(2))
        setting.value = dice.pick(modes);
    CoreStore::instance().write(setting.group, setting.key, setting.value);
    return setting.key + " = " + textOf(setting.value);
}

constexpr void (*factChanges[])(CoreStore&, const std::string& id, const std::string& text) = {
    [](CoreStore& store, const std::string& id, const std::string& text) { store.setFact(id, text); },
    [](CoreStore& store, const std::string& id, const std::string& text) {
        store.addChannel({id, text});
    },
    [](CoreStore& store, const std::string& id, const std::string&) { store.removeChannel(id); },
    [](CoreStore& store, const std::string& id, const std::string& text) {
        store.addProfile({id, text, true});
    },
    [](CoreStore& store, const std::string& id, const std::string& text) {
        store.addProfile({id, text, false});
    },
    [](CoreStore& store, const std::string& id, const std::string&) { store.removeProfile(id); },
    [](CoreStore& store, const std::string& id, const std::string&) { store.setCurrentProfile(id); },
};

std::string changeFact(Life&, Dice& dice)
{
    const int change = dice.below(std::size(factChanges));
    const std::string id = change ? dice.pick(ids) : std::string(dice.pick(OperatorPack::factNames()));
    const std::string text = textOf(dice.pick(values));
    factChanges[change](CoreStore::instance(), id, text);
    return "change " + std::to_string(change) + " of " + id + ": " + text;
}

bool goHome(Life& life)
{
    for (int tries = 0; tries < 60 && !life.isOver(); ++tries) {
        if (isAtRoot(life))
            return true;
        life.phone().press(XPhone::keyNamed("Escape"));
    }
    return false;
}

bool opensSomething(Life& life)
{
    for (int row = 0; row < 8 && !life.isOver(); ++row) {
        life.phone().press(XPhone::keyNamed("Return"));
        if (!isAtRoot(life))
            return true;
        life.phone().press(XPhone::keyNamed("Down"));
    }
    return false;
}

std::string restore(Life&, Dice&)
{
    Stream::restoreStore();
    return "restore the store";
}

constexpr struct
{
    int weight;
    std::string (*act)(Life&, Dice&);
} acts[] = {
    {600, pressKey},    {40, release},       {180, movePointer}, {30, refreshStatuses},
    {15, serviceEvent}, {30, changeSetting}, {12, changeFact},   {20, restore},
};

constexpr struct
{
    const char* name;
    void (*act)(XPhone&);
} ends[] = {
    {"press End", [](XPhone& phone) { phone.press(XPhone::keyNamed("End")); }},
    {"close the window", [](XPhone& phone) { phone.closeWindow(); }},
    {"close message", [](XPhone&) { QCopChannel::send(menuChannel, "close"); }},
    {"return to idle",
     [](XPhone&) {
         HostBus::send(PlatformSignals::path, PlatformSignals::busInterface, PlatformSignals::returnToIdle,
                       {0});
     }},
};

} // namespace

std::string Stream::happen(Life& life, Dice& dice)
{
    int left = 0;
    for (const auto& act : acts)
        left += act.weight;
    left = dice.below(left);
    const auto* act = acts;
    while ((left -= act->weight) >= 0)
        ++act;
    return act->act(life, dice);
}

std::string Stream::askToEnd(Life& life, Dice& dice)
{
    const auto& end = dice.pick(ends);
    end.act(life.phone());
    return end.name;
}

bool Stream::comeHome(Life& life)
{
    release(life);
    restoreStore();
    return goHome(life) && opensSomething(life) && goHome(life);
}

void Stream::restoreStore()
{
    CoreStore& store = CoreStore::instance();
    std::vector<CoreStore::Listed> settings;
    store.list(settings);
    for (const auto& [setting, layer] : settings)
        if (layer == CoreStore::Layer::User)
            store.reset(setting.group, setting.key);
    store.installPack(OperatorPack::builtIn());
}
