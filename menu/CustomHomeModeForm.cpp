#include "CustomHomeModeForm.h"

#include "MenuSettings.h"
#include "SettingHelper.h"

namespace {

const TableForm<std::string>::Choice choices[] = {
    {"General.OnLabel", MenuSettings::modeOn},
    {"General.OffLabel", MenuSettings::modeOff},
};
constexpr int offIndex = 1;

} // namespace

CustomHomeModeForm::CustomHomeModeForm()
    : TableForm("CustomHomeMode", {GROUP_SYSTEM, MenuSettings::enabledModeKey}, choices)
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
