#pragma once

// What the service reports of a manual refresh, as the value of EVENT_NOTIFY_MANUAL_REFRESH_STATUS. Receivers
// must cope with other numbers, too.
enum RefreshStatus {
    STATUS_CONNECT_FAILED = 0,
    STATUS_DOWNLOADING = 1,
    STATUS_DOWNLOAD_FAILED = 2,
    STATUS_DONE = 3,
    STATUS_CONNECTING = 4,
};
