#pragma once

#include "OperatorPack.h"

#include <span>
#include <vector>

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

// A setting that the menu reads.
struct KnownSetting
{
    int group;
    const char* key;
    const SettingRule& rule;
    const char* readers; // names of the entries that read it, separated as in a child list
};

// Stands among the readers for the pop-ups of a refresh by hand, which the details page may offer.
inline constexpr char manualRefreshReader[] = "manual refresh";

// All of them, the root's first.
std::span<const KnownSetting> knownSettings();
