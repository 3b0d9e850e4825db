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
#include <sys/socket.h>
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
    mRoot = DefaultRootWindow(mDisplay);
    // New windows, and the answers of programs, which go to the root window as StructureNotify events.
    XSelectInput(mDisplay, mRoot, SubstructureNotifyMask | StructureNotifyMask);
    XDamageCreate(mDisplay, mRoot, XDamageReportRawRectangles);
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

bool XPhone::firstPaint(Milliseconds atMost)
{
    const auto deadline = Clock::now() + atMost;
    if (!findWindow(deadline) || !nextEvent(mDamageEvent + XDamageNotify, deadline))
        return false;
    giveKeys();
    return true;
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
        if (const std::string seen = picture(mHeight); seen != last) {
            last = seen;
            changed = now;
        }
        painted = nextEvent(mDamageEvent + XDamageNotify, Clock::now() + rest);
    }
    giveKeys();
    return painted ? std::nullopt : changed;
}

bool XPhone::findWindow(Clock::time_point deadline)
{
    const auto shown = nextEvent(MapNotify, deadline);
    XWindowAttributes attributes;
    Window child;
    if (!shown || !XGetWindowAttributes(mDisplay, shown->xmap.window, &attributes))
        return false;
    mWindow = shown->xmap.window;
    mWidth = attributes.width;
    mHeight = attributes.height;
    XTranslateCoordinates(mDisplay, mWindow, mRoot, 0, 0, &mX, &mY, &child);
    return true;
}

void XPhone::giveKeys()
{
    XSetInputFocus(mDisplay, mWindow, RevertToNone, CurrentTime);
    XSync(mDisplay, False);
}

unsigned long XPhone::keyNamed(const std::string& name)
{
    return XStringToKeysym(name.c_str());
}

void XPhone::key(KeySym key, bool down)
{
    XTestFakeKeyEvent(mDisplay, XKeysymToKeycode(mDisplay, key), down, CurrentTime);
    XFlush(mDisplay);
}

void XPhone::press(KeySym key)
{
    this->key(key, true);
    this->key(key, false);
}

void XPhone::button(bool down)
{
    XTestFakeButtonEvent(mDisplay, Button1, down, CurrentTime);
    XFlush(mDisplay);
}

void XPhone::moveTo(int x, int y)
{
    XTestFakeMotionEvent(mDisplay, -1, mX + x, mY + y, CurrentTime);
    XFlush(mDisplay);
}

void XPhone::forgetPaints()
{
    XSync(mDisplay, True);
}

std::optional<XPhone::Clock::duration> XPhone::answerTime(Milliseconds atMost)
{
    if (mWindow == None)
        return {};
    const auto asked = Clock::now();
    tell("_NET_WM_PING");
    if (!nextEvent(ClientMessage, asked + atMost))
        return {};
    return Clock::now() - asked;
}

std::string XPhone::picture(int rows)
{
    XImage* image = XGetImage(mDisplay, mWindow, 0, 0, static_cast<unsigned>(mWidth),
                              static_cast<unsigned>(rows), AllPlanes, ZPixmap);
    if (!image)
        return {};
    const std::string pixels(image->data,
                             static_cast<size_t>(image->bytes_per_line) * static_cast<size_t>(rows));
    XDestroyImage(image);
    return pixels;
}

void XPhone::closeWindow()
{
    tell("WM_DELETE_WINDOW");
    XFlush(mDisplay);
}

void XPhone::tell(const char* message)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = mWindow;
    event.xclient.message_type = XInternAtom(mDisplay, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(mDisplay, message, False));
    event.xclient.data.l[1] = CurrentTime;
    event.xclient.data.l[2] = static_cast<long>(mWindow);
    XSendEvent(mDisplay, mWindow, False, NoEventMask, &event);
}

pid_t XPhone::server() const
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    getsockopt(ConnectionNumber(mDisplay), SOL_SOCKET, SO_PEERCRED, &peer, &size);
    return peer.pid;
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
