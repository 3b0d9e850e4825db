#pragma once

#include "SettingsForm.h"

#include <map>

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
