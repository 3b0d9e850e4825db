#pragma once

#include <string>

// The names of the service's events.
namespace NR_Constants {

extern const std::string EVENT_NAVIGATE;
extern const std::string EVENT_SHOW_HELP_EXCERPT_PAGE;
extern const std::string EVENT_NOTIFY_NETWORK_UPDATE_STARTED;
extern const std::string EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED;
extern const std::string EVENT_NOTIFY_STORAGE_STATUS;
extern const std::string EVENT_INITIATE_MANUAL_REFRESH;
extern const std::string EVENT_ABORT_MANUAL_REFRESH;
extern const std::string EVENT_NOTIFY_MANUAL_REFRESH_STATUS;
extern const std::string EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR;

} // namespace NR_Constants
