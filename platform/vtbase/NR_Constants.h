#pragma once

#include <array>
#include <string>

// The names of the service's events. Defined here, so that they are there before anything that includes them.
namespace NR_Constants {

inline const std::string EVENT_NAVIGATE = "EVENT_NAVIGATE";
inline const std::string EVENT_SHOW_HELP_EXCERPT_PAGE = "EVENT_SHOW_HELP_EXCERPT_PAGE";
inline const std::string EVENT_NOTIFY_NETWORK_UPDATE_STARTED = "EVENT_NOTIFY_NETWORK_UPDATE_STARTED";
inline const std::string EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED = "EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED";
inline const std::string EVENT_NOTIFY_STORAGE_STATUS = "EVENT_NOTIFY_STORAGE_STATUS";
inline const std::string EVENT_INITIATE_MANUAL_REFRESH = "EVENT_INITIATE_MANUAL_REFRESH";
inline const std::string EVENT_ABORT_MANUAL_REFRESH = "EVENT_ABORT_MANUAL_REFRESH";
inline const std::string EVENT_NOTIFY_MANUAL_REFRESH_STATUS = "EVENT_NOTIFY_MANUAL_REFRESH_STATUS";
inline const std::string EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR = "EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR";

// All of them.
inline const std::array eventNames = {
    EVENT_NAVIGATE,
    EVENT_SHOW_HELP_EXCERPT_PAGE,
    EVENT_NOTIFY_NETWORK_UPDATE_STARTED,
    EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED,
    EVENT_NOTIFY_STORAGE_STATUS,
    EVENT_INITIATE_MANUAL_REFRESH,
    EVENT_ABORT_MANUAL_REFRESH,
    EVENT_NOTIFY_MANUAL_REFRESH_STATUS,
    EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR,
};

// Whether it is the service that sends events of this name; the others are sent to it.
inline bool isOfService(const std::string& eventName)
{
    return eventName == EVENT_NOTIFY_NETWORK_UPDATE_STARTED ||
           eventName == EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED || eventName == EVENT_NOTIFY_STORAGE_STATUS ||
           eventName == EVENT_NOTIFY_MANUAL_REFRESH_STATUS || eventName == EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR;
}

} // namespace NR_Constants
