#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

// Xlib's header names more than goes along with Qt's.
struct _XDisplay;
union _XEvent;

// A program on an X display as its user has it in hand: keys and pointer presses go through the X server, and what
// the program does is seen on the screen. The display is the program's alone and has no window manager.
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
    // Waits until the program has painted its first window and gives it the keys; false when it was not painted in that
    // time.
    bool firstPaint(Milliseconds atMost);

    // Waits until the window has rested for that long and gives it the keys, the first window when none was painted
    // yet. When the picture that it shows was first to be seen, since the start or since forgetPaints(); nothing when
    // the window did not come to rest in that time, or nothing was painted.
    std::optional<Clock::time_point> finalPaint(Milliseconds rest, Milliseconds atMost);

    // The number of a key, such as XK_Up, by its name, "Up".
    static unsigned long keyNamed(const std::string& name);
    // These return at once: the X server has the press, the program may not have seen it yet.
    void key(unsigned long keySym, bool down);
    void press(unsigned long keySym);
    void button(bool down);
    // To a place in the window, in pixels.
    void moveTo(int x, int y);

    // finalPaint() then tells only of what is painted from now on.
    void forgetPaints();

    // How long the program takes to answer from its event loop; nothing when it did not in that time, and at once when
    // its window is gone.
    std::optional<Clock::duration> answerTime(Milliseconds atMost);

    // The upper rows of the window as the screen shows them; empty when it is not to be seen.
    std::string picture(int rows);

    // As a window manager would at the user's wish; returns at once.
    void closeWindow();

    // The status that waitpid() tells, once the program has ended; nothing while it still runs after this time.
    std::optional<int> ended(Milliseconds atMost);

    // The process of the X server, which has to run on this machine.
    pid_t server() const;
    // The program that start() started, 0 when it has ended; its window's size in pixels.
    pid_t pid() const { return mPid; }
    int width() const { return mWidth; }
    int height() const { return mHeight; }

private:
    // The next event of this kind, those before it dropped; nothing when none came by the deadline or before the
    // window was gone.
    std::optional<_XEvent> nextEvent(int type, Clock::time_point deadline);
    // Waits for the program's window and notes where it is.
    bool findWindow(Clock::time_point deadline);
    void giveKeys();
    // Sends the window a message of its manager's, which carries the window's name.
    void tell(const char* message);

    _XDisplay* mDisplay;
    unsigned long mRoot;
    int mDamageEvent = 0;
    unsigned long mWindow = 0; // also when it is gone
    int mX = 0;                // of the window, on the display
    int mY = 0;
    int mWidth = 0;
    int mHeight = 0;
    pid_t mPid = 0;
};
