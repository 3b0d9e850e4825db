#pragma once

#include <optional>

// Where a manual refresh stands, as the service's events last put it.
enum class RefreshState : int {
    IDLE = 0,
    CONNECTING = 1,
    DOWNLOADING = 2,
    DOWN_SUCCESS = 3,
    CONN_ERROR = 4,
    DOWN_ERROR = 5,
    QUEUE_ERROR = 6,
};

// What the service reports of a run. It may send other numbers, too.
enum RefreshStatus {
    STATUS_CONNECT_FAILED = 0,
    STATUS_DOWNLOADING = 1,
    STATUS_DOWNLOAD_FAILED = 2,
    STATUS_DONE = 3,
    STATUS_CONNECTING = 4,
};

// The state after the service reported `status` in `state`; nothing when the report is to be ignored altogether.
std::optional<RefreshState> stateAfter(RefreshState state, int status);
