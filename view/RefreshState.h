#pragma once

#include "RefreshStatus.h"

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

// The state after the service reported `status`, a RefreshStatus or any other number, in `state`; nothing when
// the report is to be ignored altogether.
std::optional<RefreshState> stateAfter(RefreshState state, int status);
