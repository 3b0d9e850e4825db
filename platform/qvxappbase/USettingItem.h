#pragma once

#include "UListItem.h"

// A row of a settings menu: what can be set and, under it, how it is set now.
class USettingItem : public UListItem
{
public:
    // An empty `text` adds no line. The list is the one the row is made for.
    USettingItem(UListBox* /*list*/, const QString& text) : UListItem(text) {}
};
