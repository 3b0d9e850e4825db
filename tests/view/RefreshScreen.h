#pragma once

#include "Vt_EventHandler.h"

#include <Qt>

#include <string>
#include <vector>

// What tests of the manual refresh look at: the pop-ups on the screen and the events that are sent.
namespace RefreshScreen {

// The texts of every dialog of a refresh, each another one, for a TestStore.
extern const char* const pack;

// The pop-ups on the screen, bottom to top, as a person sees them: "[caption] text (left key | right key)", with
// the progress in percent where there is a bar.
std::vector<std::string> popups();

// Presses a key as a person does whose program is busy: no event loop runs before this returns.
void pressAtOnce(Qt::Key key);

inline const std::string connecting = "[Refresh] Connecting 0% (Hide | Cancel)";
inline const std::string downloading = "[Refresh] Downloading 50% (Hide | Cancel)";
inline const std::string success = "Done: 12 stories, 1 KB (OK | )";
inline const std::string error = "[No luck] Again? (Retry | Cancel)";
inline const std::string queueError = "Queued (OK | )";

} // namespace RefreshScreen

// Notes the requests that reach the service.
class SentRequests : public Vt_EventHandler
{
public:
    SentRequests();

    void handleEvent(const Vt_Event& event) override;

    // Their names, once everything sent has come over the bus.
    std::vector<std::string> names();

private:
    std::vector<std::string> mNames;
};
