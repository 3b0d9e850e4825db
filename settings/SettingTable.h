#pragma once

#include "SettingValue.h"

#include <span>
#include <vector>

// Every setting that the menu reads, declared once: from here lint and the operator's guide are fed.

// What a setting may hold.
struct SettingRule
{
    enum class Content { Any, EntryNames, TwoPlaceholders };

    size_t type; // index of the alternative in SettingValue
    bool mayBeMissing = false;
    bool mayBeEmpty = false;
    std::vector<SettingValue> values = {}; // all there are; none when any will do
    Content content = Content::Any;
};

struct Setting
{
    int group;
    const char* key;
    const SettingRule& rule;
    const char* readers; // names of the entries that read it, separated as in a child list
    const char* meaning; // for the operator, in Markdown
};

// Settings that belong together, under one heading of the guide.
struct SettingSection
{
    const char* title;
    std::span<const Setting> settings;
};

// Stands among the readers for the pop-ups of a refresh by hand, which the details page may offer.
inline constexpr char manualRefreshReader[] = "manual refresh";

// All of them, the root's first.
std::span<const SettingSection> settingTable();
// The same without the headings.
const std::vector<Setting>& knownSettings();
