#include "DownloadForm.h"

#include "SettingHelper.h"

namespace {

constexpr TableForm<int>::Choice choices[] = {
    {"Download.AlwaysLabel", 0},
    {"Download.HomeLabel", 1},
    {"Download.NeverLabel", 2},
};

} // namespace

DownloadForm::DownloadForm() : TableForm("Download", {GROUP_SERVICE, "DownloadOption"}, choices) {}

const char* DownloadForm::labelKey(int option)
{
    for (const Choice& choice : choices) {
        if (choice.value == option)
            return choice.labelKey;
    }
    return nullptr;
}
