#pragma once

#include "Entry.h"
#include "FormEntry.h"

// A form as a line of a menu: its label, and under it the choice in force when there are several.
class FormAdapter : public Entry
{
public:
    explicit FormAdapter(FormEntry* form) : mForm(form) {} // not owned

    bool isHidden() const override { return mForm->isHidden(); }
    bool isEnabled() const override { return mForm->isEnabled(); }
    std::string label() const override { return mForm->label(); }
    bool hasValue() const override; // reloads the form first
    std::string valueText() const override;
    void watchedKeys(std::set<std::string>& keys) const override { mForm->watchedKeys(keys); }

    virtual FormEntry* form() const { return mForm; }

private:
    FormEntry* const mForm;
};
