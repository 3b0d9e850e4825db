#pragma once

#include "FormEntry.h"

#include <span>

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

// The speed at which the headlines scroll.
class ScrollingForm : public TableForm<int>
{
public:
    ScrollingForm();
};

// When the service may download content.
class DownloadForm : public TableForm<int>
{
public:
    DownloadForm();

    // The key of the label of a stored option; null when there is no such option.
    static const char* labelKey(int option);
};

// Switches the headlines on and off; off asks first.
class CustomHomeModeForm : public TableForm<std::string>
{
public:
    CustomHomeModeForm();

    std::string warningLabel() const override;
    std::string warningText() const override;
    bool needsWarning(int i) const override;
};
