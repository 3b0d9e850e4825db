#pragma once

#include <string>

// When the service may download content, by the stored number.
enum DownloadOption {
    DOWNLOAD_ALWAYS = 0,
    DOWNLOAD_AT_HOME = 1, // in the home network only
    DOWNLOAD_NEVER = 2,
};

// What the service's engine can tell. Operations that return an integer return 0, or non-zero with the output
// left alone.
class NR_EngineUtils
{
public:
    // A DownloadOption, or whatever else is stored.
    static int getDownloadOptionSetting(int& option);
    // True when the network in use counts as home although it is another one.
    static int friendlyNetworkStatus(bool& friendly);
    static bool isDownloadOptionNever();
    // False while the download option, together with the network in use, keeps the service off the network.
    static bool isNetworkAccessAllowed();

    // Fills @DEVICE_MODEL@, @DP_CLIENT_SW_VERSION@, @DPP_VERSION@ and @MSISDN@ in `url`, percent-encoded; a
    // fact that the device can't tell fills in as nothing.
    static void replacePatternsInURL(std::string& url);
};
