#include "TableForm.h"

#include "MenuSettings.h"
#include "SettingHelper.h"

namespace {

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
