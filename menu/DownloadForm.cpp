#include "DownloadForm.h"

#include "NR_EngineUtils.h"
#include "SettingHelper.h"

namespace {

constexpr TableForm<int>::Choice choices[] = {
    {"Download.AlwaysLabel", DOWNLOAD_ALWAYS},
    {"Download.HomeLabel", DOWNLOAD_AT_HOME},
    {"Download.NeverLabel", DOWNLOAD_NEVER},
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
