#include "ScrollingForm.h"

#include "SettingHelper.h"

namespace {

// The stored rate runs the other way from the list.
constexpr TableForm<int>::Choice choices[] = {
    {"Scrolling.FastLabel", 3},
    {"Scrolling.MediumLabel", 2},
    {"Scrolling.SlowLabel", 1},
    {"General.OffLabel", 0},
};

} // namespace

ScrollingForm::ScrollingForm() : TableForm("Scrolling", {GROUP_NEWS_READER_UI, "ScrollingRate"}, choices) {}
