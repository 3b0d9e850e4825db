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

// What moves it on: the user, a service that is busy already, or what the service reports.
enum class RefreshCause {
    INITIATED,
    REFUSED,
    CONNECT_FAILED,
    DOWNLOADING,
    DOWNLOAD_FAILED,
    DONE,
    CONNECTING,
    OTHER
};

// The cause that a report of the service is, of `status`, a RefreshStatus or any other number.
constexpr RefreshCause causeOf(int status)
{
    switch (status) {
    case STATUS_CONNECT_FAILED:
        return RefreshCause::CONNECT_FAILED;
    case STATUS_DOWNLOADING:
        return RefreshCause::DOWNLOADING;
    case STATUS_DOWNLOAD_FAILED:
        return RefreshCause::DOWNLOAD_FAILED;
    case STATUS_DONE:
        return RefreshCause::DONE;
    case STATUS_CONNECTING:
        return RefreshCause::CONNECTING;
    default:
        return RefreshCause::OTHER;
    }
}

// The state that follows `state`; nothing when the cause is to be ignored altogether.
constexpr std::optional<RefreshState> stateAfter(RefreshState state, RefreshCause cause)
{
    using enum RefreshState;
    constexpr auto NONE = static_cast<RefreshState>(-1);
    // A row for each cause, a column for each state.
    // clang-format off
    constexpr RefreshState next[][7] = {
        // IDLE       CONNECTING    DOWNLOADING   DOWN_SUCCESS  CONN_ERROR    DOWN_ERROR    QUEUE_ERROR
        {CONNECTING,   CONNECTING,   CONNECTING,   CONNECTING,   CONNECTING,   CONNECTING,   CONNECTING},
        {QUEUE_ERROR,  QUEUE_ERROR,  QUEUE_ERROR,  QUEUE_ERROR,  QUEUE_ERROR,  QUEUE_ERROR,  QUEUE_ERROR},
        {CONN_ERROR,   CONN_ERROR,   CONN_ERROR,   CONN_ERROR,   CONN_ERROR,   CONN_ERROR,   CONN_ERROR},
        {DOWNLOADING,  DOWNLOADING,  DOWNLOADING,  DOWNLOADING,  DOWNLOADING,  DOWNLOADING,  DOWNLOADING},
        // A failure that comes late, when the run is over or was never seen, is nobody's concern any more.
        {NONE,         DOWN_ERROR,   DOWN_ERROR,   NONE,         NONE,         NONE,         NONE},
        {DOWN_SUCCESS, DOWN_SUCCESS, DOWN_SUCCESS, DOWN_SUCCESS, DOWN_SUCCESS, DOWN_SUCCESS, DOWN_SUCCESS},
        // Also how a hidden run is brought back, which must not set a download back.
        {CONNECTING,   CONNECTING,   DOWNLOADING,  CONNECTING,   CONNECTING,   CONNECTING,   CONNECTING},
        {IDLE,         CONNECTING,   DOWNLOADING,  DOWN_SUCCESS, CONN_ERROR,   DOWN_ERROR,   QUEUE_ERROR},
    };
    // clang-format on
    const RefreshState found = next[static_cast<int>(cause)][static_cast<int>(state)];
    return found == NONE ? std::nullopt : std::optional(found);
}
