#pragma once

#include "Entry.h"

// A setting with a short list of named choices, counted from 0. Texts are UTF-8. The label of a choice that
// can't be chosen carries the mark of ListText.
class FormEntry
{
public:
    virtual ~FormEntry() = default;

    // Reads the choices anew; called before they are shown in a menu.
    virtual void reload() {}
    virtual bool isHidden() const = 0;
    virtual bool isEnabled() const = 0;
    virtual std::string title() const = 0;        // caption of the dialog
    virtual std::string instructText() const = 0; // the line above the choices
    virtual int optionCount() const = 0;
    virtual std::string label() const = 0;            // the form's line in a menu
    virtual std::string optionLabel(int i) const = 0; // empty when there is no choice i

    // The warning before choice `i` is applied, when it needs one.
    virtual std::string warningLabel() const { return {}; }
    virtual std::string warningText() const { return {}; }
    virtual bool needsWarning(int /*i*/) const { return false; }

    virtual int currentIndex() const = 0; // the choice in force
    // Applies choice `i`. False, and nothing written, when `i` is past the end or, among several, in force
    // already; the only choice of a form is applied again each time. True otherwise, even when the write
    // failed; a negative index writes nothing and answers true. A mark on the choice is not looked at: it is the
    // dialog that lets nobody confirm a choice that can't be chosen.
    virtual bool setValue(int i) = 0;

    virtual void watchedKeys(std::set<std::string>& /*keys*/) const {} // as for Entry

protected:
    // Whether applying choice `i` can change anything; the test that every setValue() begins with.
    bool isChange(int i) const;

    bool mWarnOnOff = false; // set by forms that warn before a choice is applied
};

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
