#pragma once

#include "Entry.h"

// One fact of the details page: a heading and the text of a named API.
class DetailsRow : public Entry
{
public:
    // `labelKey` is the heading's setting in the menu group. Both are kept, not copied.
    DetailsRow(const char* apiName, const char* labelKey) : mApiName(apiName), mLabelKey(labelKey) {}

    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string label() const override;
    bool hasValue() const override { return true; }
    std::string valueText() const override;

private:
    const char* const mApiName;
    const char* const mLabelKey;
};
