#pragma once

#include "UListItem.h"

// A row of a choice list.
class UListBoxItem : public UListItem
{
public:
    // An empty `text` adds no line. The list is the one the row is made for.
    UListBoxItem(UListBox* /*list*/, const QString& text) : UListItem(text) {}
};
