#include "ProfileChoice.h"

#include "ListText.h"
#include "MenuSettings.h"
#include "NR_OpProfile.h"
#include "SettingHelper.h"
#include "vtString.h"

#include <vector>

namespace {

std::vector<vtTypes::String> listed; // as of the last list()

NR_OpProfile& operatorProfile()
{
    static NR_OpProfile* const profile = new NR_OpProfile;
    return *profile;
}

std::string nameOf(const vtTypes::String& profile)
{
    vtTypes::String name;
    operatorProfile().getOpLanguageString(profile, name);
    return ListText::oneLine(vtStringToUtf8(name));
}

} // namespace

namespace ProfileChoice {

void prepare()
{
    operatorProfile();
}

std::string list()
{
    std::vector<bool> flags;
    if (operatorProfile().getSelectableProfiles(listed, flags) != 0)
        listed.clear();
    std::string lines;
    for (size_t i = 0; i < listed.size(); ++i) {
        const bool selectable = i < flags.size() && flags[i];
        lines += ListText::choice(nameOf(listed[i]), selectable) + '\n';
    }
    return lines;
}

std::string current()
{
    return nameOf(operatorProfile().getCurrentProfile());
}

void choose(int i)
{
    if (i < 0 || static_cast<size_t>(i) >= listed.size())
        return;
    setIntSetting(GROUP_MENU, MenuSettings::profileSelectedKey, 1);
    operatorProfile().installProfile(listed[i]);
}

bool isFixed()
{
    return !operatorProfile().isUserSelectProfile();
}

} // namespace ProfileChoice
