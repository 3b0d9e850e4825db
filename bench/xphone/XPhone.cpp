#include "XPhone.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <csignal>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void giveUp(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    std::exit(2);
}

} // namespace

XPhone::XPhone() : mDisplay(XOpenDisplay(nullptr))
{
    if (!mDisplay)
        giveUp("no display: set DISPLAY, or start it by xvfb-run");
    int errorEvent;
    int version[4];
    if (!XTestQueryExtension(mDisplay, &version[0], &version[1], &version[2], &version[3]) ||
        !XDamageQueryExtension(mDisplay, &mDamageEvent, &errorEvent))
        giveUp("the display lacks the extension XTEST or DAMAGE");
    // The window may be gone by the time it is spoken to.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    const Window root = DefaultRootWindow(mDisplay);
    XSelectInput(mDisplay, root, SubstructureNotifyMask); // new windows
    XDamageCreate(mDisplay, root, XDamageReportRawRectangles);
    XSync(mDisplay, False);
}

XPhone::~XPhone()
{
    if (mPid > 0) {
        kill(mPid, SIGKILL);
        waitpid(mPid, nullptr, 0);
    }
    XCloseDisplay(mDisplay);
}

bool XPhone::start(const std::vector<std::string>& command)
{
    XSync(mDisplay, True);
    mWindow = None;
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    if (posix_spawnp(&mPid, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
        mPid = 0;
    return mPid != 0;
}

std::optional<XPhone::Clock::time_point> XPhone::finalPaint(Milliseconds rest, Milliseconds atMost)
{
    const auto deadline = Clock::now() + atMost;
    if (mWindow == None && !findWindow(deadline))
        return {};
    std::string last;
    std::optional<Clock::time_point> changed;
    auto painted = nextEvent(mDamageEvent + XDamageNotify, deadline);
    while (painted && Clock::now() < deadline) {
        const auto now = Clock::now();
        if (const std::string seen = picture(); seen != last) {
            last = seen;
            changed = now;
        }
        painted = nextEvent(mDamageEvent + XDamageNotify, Clock::now() + rest);
    }
    XSetInputFocus(mDisplay, mWindow, RevertToNone, CurrentTime);
    XSync(mDisplay, False);
    return painted ? std::nullopt : changed;
}

bool XPhone::findWindow(Clock::time_point deadline)
{
    const auto shown = nextEvent(MapNotify, deadline);
    XWindowAttributes attributes;
    if (!shown || !XGetWindowAttributes(mDisplay, shown->xmap.window, &attributes))
        return false;
    mWindow = shown->xmap.window;
    mWidth = static_cast<unsigned>(attributes.width);
    mHeight = static_cast<unsigned>(attributes.height);
    return true;
}

void XPhone::press(KeySym key)
{
    for (const Bool down : {True, False})
        XTestFakeKeyEvent(mDisplay, XKeysymToKeycode(mDisplay, key), down, CurrentTime);
    XFlush(mDisplay);
}

void XPhone::forgetPaints()
{
    XSync(mDisplay, True);
}

std::string XPhone::picture()
{
    XImage* image = XGetImage(mDisplay, mWindow, 0, 0, mWidth, mHeight, AllPlanes, ZPixmap);
    if (!image)
        return {};
    const std::string pixels(image->data, static_cast<size_t>(image->bytes_per_line) * mHeight);
    XDestroyImage(image);
    return pixels;
}

void XPhone::closeWindow()
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = mWindow;
    event.xclient.message_type = XInternAtom(mDisplay, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(mDisplay, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(mDisplay, mWindow, False, NoEventMask, &event);
    XFlush(mDisplay);
}

std::optional<int> XPhone::ended(Milliseconds atMost)
{
    const auto deadline = Clock::now() + atMost;
    int status;
    while (waitpid(mPid, &status, WNOHANG) == 0) {
        if (Clock::now() > deadline)
            return {};
        std::this_thread::sleep_for(Milliseconds(1));
    }
    mPid = 0;
    return status;
}

std::optional<XEvent> XPhone::nextEvent(int type, Clock::time_point deadline)
{
    XFlush(mDisplay);
    for (;;) {
        while (XPending(mDisplay) > 0) {
            XEvent event;
            XNextEvent(mDisplay, &event);
            if (event.type == type)
                return event;
            if (event.type == DestroyNotify && event.xdestroywindow.window == mWindow) {
                mWindow = None;
                return {};
            }
        }
        const auto left = std::chrono::ceil<Milliseconds>(deadline - Clock::now()).count();
        pollfd connection = {ConnectionNumber(mDisplay), POLLIN, 0};
        if (left <= 0 || poll(&connection, 1, static_cast<int>(left)) <= 0)
            return {};
    }
}
