#pragma once

#include "SettingsForms.h"

#include <map>
#include <string>

// A form whose choices, choice in force and effect are named APIs. It knows the choices as of the last
// reload().
class ApiOptionForm : public SettingsForm
{
public:
    // `name` begins the keys of the form's settings and is kept, not copied. `listApi` is a text of one choice
    // a line, `currentApi` the text of the choice in force, `setApi` the setter that takes the index of a line.
    // A negative index given to setValue() reaches the setter, too, which must ignore it.
    ApiOptionForm(const char* name, const std::string& listApi, const std::string& currentApi,
                  const std::string& setApi);

    void reload() override;
    int optionCount() const override;
    std::string optionLabel(int i) const override;
    int currentIndex() const override { return mCurrentIndex; }
    bool setValue(int i) override;

private:
    const std::string mListApi;
    const std::string mCurrentApi;
    const std::string mSetApi;
    std::map<int, std::string> mOptions;
    int mCurrentIndex = 0;
};

// The operator profile under which the service runs. A choice in the dialog is confirmed first; once one is made, this
// entry, the other forms and the page of details are disabled.
class ProfileForm : public ApiOptionForm
{
public:
    ProfileForm();

    bool isHidden() const override;
    std::string instructText() const override;
    std::string warningLabel() const override;
    std::string warningText() const override;
    bool needsWarning(int i) const override;
};

// The choice of the operator profile under which the service runs. Texts are UTF-8. GUI thread only.
namespace ProfileChoice {

// Makes the platform's object for the profiles, which lives as long as the process. The others do so themselves
// when they come first.
void prepare();

std::string list();    // the ListText of the profiles; empty when they can't be read
std::string current(); // the name of the profile in force

// Puts the profile in line `i` of the last list() in force, and from then on disables the entries that a
// profile fixes, even when the profile can't be installed. Nothing when there is no such line.
void choose(int i);

// Whether the user may not choose at all.
bool isFixed();

} // namespace ProfileChoice
