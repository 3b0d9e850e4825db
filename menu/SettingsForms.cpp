#include "SettingsForms.h"

#include "MenuSettings.h"
#include "NR_EngineUtils.h"
#include "SettingHelper.h"

namespace {

// The stored rate runs the other way from the list.
constexpr TableForm<int>::Choice scrollingChoices[] = {
    {"Scrolling.FastLabel", 3},
    {"Scrolling.MediumLabel", 2},
    {"Scrolling.SlowLabel", 1},
    {"General.OffLabel", 0},
};

constexpr TableForm<int>::Choice downloadChoices[] = {
    {"Download.AlwaysLabel", DOWNLOAD_ALWAYS},
    {"Download.HomeLabel", DOWNLOAD_AT_HOME},
    {"Download.NeverLabel", DOWNLOAD_NEVER},
};

const TableForm<std::string>::Choice homeModeChoices[] = {
    {"General.OnLabel", MenuSettings::modeOn},
    {"General.OffLabel", MenuSettings::modeOff},
};
constexpr int offIndex = 1;

void read(int group, const char* key, int& value)
{
    value = getIntSetting(group, key);
}

void read(int group, const char* key, std::string& value)
{
    value = getStringSetting(group, key);
}

void write(int group, const char* key, int value)
{
    setIntSetting(group, key, value);
}

void write(int group, const char* key, const std::string& value)
{
    setStringSetting(group, key, value);
}

} // namespace

bool SettingsForm::isHidden() const
{
    return !MenuSettings::isVisible(mName);
}

bool SettingsForm::isEnabled() const
{
    return MenuSettings::isEnabledWithoutProfile(mName);
}

std::string SettingsForm::title() const
{
    return MenuSettings::title(mName);
}

std::string SettingsForm::label() const
{
    return MenuSettings::label(mName);
}

template <class Value>
std::string TableForm<Value>::instructText() const
{
    return MenuSettings::text(std::string(mName) + ".InstructText");
}

template <class Value>
int TableForm<Value>::optionCount() const
{
    return static_cast<int>(mChoices.size());
}

template <class Value>
std::string TableForm<Value>::optionLabel(int i) const
{
    return hasChoice(i) ? MenuSettings::text(mChoices[i].labelKey) : std::string();
}

template <class Value>
int TableForm<Value>::currentIndex() const
{
    Value stored;
    read(mSetting.group, mSetting.key, stored);
    for (int i = 0; i < optionCount(); ++i) {
        if (mChoices[i].value == stored)
            return i;
    }
    return 0;
}

template <class Value>
bool TableForm<Value>::setValue(int i)
{
    if (!isChange(i))
        return false;
    if (hasChoice(i))
        write(mSetting.group, mSetting.key, mChoices[i].value);
    return true;
}

template <class Value>
void TableForm<Value>::watchedKeys(std::set<std::string>& keys) const
{
    keys.insert(MenuSettings::watchedProfileSelected);
}

template <class Value>
bool TableForm<Value>::hasChoice(int i) const
{
    return i >= 0 && i < optionCount();
}

template class TableForm<int>;
template class TableForm<std::string>;

ScrollingForm::ScrollingForm()
    : TableForm("Scrolling", {GROUP_NEWS_READER_UI, "ScrollingRate"}, scrollingChoices)
{
}

DownloadForm::DownloadForm() : TableForm("Download", {GROUP_SERVICE, "DownloadOption"}, downloadChoices) {}

const char* DownloadForm::labelKey(int option)
{
    for (const Choice& choice : downloadChoices) {
        if (choice.value == option)
            return choice.labelKey;
    }
    return nullptr;
}

CustomHomeModeForm::CustomHomeModeForm()
    : TableForm("CustomHomeMode", {GROUP_SYSTEM, MenuSettings::enabledModeKey}, homeModeChoices)
{
    mWarnOnOff = true;
}

std::string CustomHomeModeForm::warningLabel() const
{
    return MenuSettings::text("CustomHomeMode.WarningLabelOff");
}

std::string CustomHomeModeForm::warningText() const
{
    return MenuSettings::text("CustomHomeMode.WarningOffText");
}

bool CustomHomeModeForm::needsWarning(int i) const
{
    return mWarnOnOff && i == offIndex;
}
