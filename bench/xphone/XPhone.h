#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

// Xlib's header names more than goes along with Qt's.
struct _XDisplay;
union _XEvent;

// A program on an X display as its user has it in hand: key presses go through the X server, and what the program
// does is seen on the screen. The display is the program's alone and has no window manager.
class XPhone
{
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::milliseconds;

    // Opens the display that $DISPLAY names; without one, or without XTEST and DAMAGE, the process ends with status 2.
    XPhone();
    // Kills a program that is still running.
    ~XPhone();
    XPhone(const XPhone&) = delete;
    XPhone& operator=(const XPhone&) = delete;

    // Starts a program, found along $PATH, with this process's environment; false when there is none. One at a time:
    // the one before has to have ended, as ended() says.
    bool start(const std::vector<std::string>& command);
    // Waits until the window has rested for that long and gives it the keys, the first window when none was painted
    // yet. When the picture that it shows was first to be seen, since the start or since forgetPaints(); nothing when
    // the window did not come to rest in that time, or nothing was painted.
    std::optional<Clock::time_point> finalPaint(Milliseconds rest, Milliseconds atMost);

    // A key, such as XK_Up. Returns at once: the X server has the press, the program may not have seen it yet.
    void press(unsigned long keySym);

    // finalPaint() then tells only of what is painted from now on.
    void forgetPaints();

    // As a window manager would at the user's wish; returns at once.
    void closeWindow();

    // The status that waitpid() tells, once the program has ended; nothing while it still runs after this time.
    std::optional<int> ended(Milliseconds atMost);

    // The program that start() started, 0 when it has ended.
    pid_t pid() const { return mPid; }

private:
    // The next event of this kind, those before it dropped; nothing when none came by the deadline or before the
    // window was gone.
    std::optional<_XEvent> nextEvent(int type, Clock::time_point deadline);
    // Waits for the program's window and notes its size.
    bool findWindow(Clock::time_point deadline);
    // The pixels of the window as the screen shows them; empty when it is not to be seen.
    std::string picture();

    _XDisplay* mDisplay;
    int mDamageEvent = 0;
    unsigned long mWindow = 0; // also when it is gone
    unsigned mWidth = 0;
    unsigned mHeight = 0;
    pid_t mPid = 0;
};
