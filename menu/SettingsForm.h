#pragma once

#include "FormEntry.h"

// A form whose flags and texts are the settings that begin with its name. Once an operator profile is chosen it
// is disabled.
class SettingsForm : public FormEntry
{
public:
    // The name is kept, not copied.
    explicit SettingsForm(const char* name) : mName(name) {}

    bool isHidden() const override;
    bool isEnabled() const override;
    std::string title() const override;
    std::string label() const override;

protected:
    const char* const mName;
};
