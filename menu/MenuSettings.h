#pragma once

#include <string>

// The settings that many entries read, each test in one place. All answer from the store at the moment they are
// asked.
namespace MenuSettings {

// A text of the menu group; empty when it is missing.
std::string text(const std::string& key);

// The texts "NAME.title" and "NAME.label" of the entry called `name`. Entries without a page of their own have
// no label: their line in the menu is their title.
std::string title(const std::string& name);
std::string label(const std::string& name);

// The flags "NAME.visible" and "NAME.enabled" of the entry called `name`; false when they are missing.
bool isVisible(const std::string& name);
bool isEnabled(const std::string& name);

// isEnabled(), but false once the user has chosen an operator profile, which fixes much of what the menu would
// set.
bool isEnabledWithoutProfile(const std::string& name);

// 1 once the user has chosen an operator profile.
inline constexpr char profileSelectedKey[] = "ProfileSelected"; // of the menu group

// Whether the service is on, off or hidden. A value that is none of these counts as on.
inline constexpr char enabledModeKey[] = "EnabledMode"; // of the system group
inline constexpr char modeOn[] = "ENABLED_NORMAL_MODE";
inline constexpr char modeOff[] = "DISABLED_NORMAL_MODE";
inline constexpr char modeHidden[] = "HIDDEN_MODE";
std::string enabledMode();
void setEnabledMode(const std::string& mode);
bool isServiceOff();

// Qualified names, for those who watch the settings that entries depend on.
inline constexpr char watchedEnabledMode[] = "VtCore.System.EnabledMode";
inline constexpr char watchedProfileSelected[] = "VtCore.Menu.ProfileSelected";

} // namespace MenuSettings
