#pragma once

#include "SettingsForm.h"

#include <span>

// A form that is its table: each choice a label and the value it stores. `Value` is int or std::string.
template <class Value>
class TableForm : public SettingsForm
{
public:
    struct Choice
    {
        const char* labelKey; // in the menu group
        Value value;          // what is stored; a stored value that no choice has shows as choice 0
    };

    // The setting that holds the choice.
    struct Setting
    {
        int group;
        const char* key;
    };

    // `name` begins the keys of the form's texts. The name, the key and the choices are kept, not copied.
    TableForm(const char* name, Setting setting, std::span<const Choice> choices)
        : SettingsForm(name), mSetting(setting), mChoices(choices)
    {
    }

    std::string instructText() const override;
    int optionCount() const override;
    std::string optionLabel(int i) const override;
    int currentIndex() const override;
    bool setValue(int i) override;
    void watchedKeys(std::set<std::string>& keys) const override;

private:
    bool hasChoice(int i) const;

    const Setting mSetting;
    const std::span<const Choice> mChoices;
};
