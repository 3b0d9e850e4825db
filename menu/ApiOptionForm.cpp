#include "ApiOptionForm.h"

#include "ApiRegistry.h"

#include <sstream>

ApiOptionForm::ApiOptionForm(const char* name, const std::string& listApi, const std::string& currentApi,
                             const std::string& setApi)
    : SettingsForm(name), mListApi(listApi), mCurrentApi(currentApi), mSetApi(setApi)
{
}

void ApiOptionForm::reload()
{
    mOptions.clear();
    mCurrentIndex = 0;
    const ApiRegistry& apis = *ApiRegistry::instance();
    std::istringstream list(apis.text(mListApi));
    const std::string current = apis.text(mCurrentApi);
    std::string line;
    for (int i = 0; std::getline(list, line); ++i) {
        if (line == current)
            mCurrentIndex = i;
        mOptions[i] = line;
    }
}

int ApiOptionForm::optionCount() const
{
    return static_cast<int>(mOptions.size());
}

std::string ApiOptionForm::optionLabel(int i) const
{
    const auto found = mOptions.find(i);
    return found == mOptions.end() ? std::string() : found->second;
}

bool ApiOptionForm::setValue(int i)
{
    if (!isChange(i))
        return false;
    ApiRegistry::instance()->set(mSetApi, i);
    return true;
}
