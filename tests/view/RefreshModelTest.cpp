#include "LogCapture.h"
#include "ManRefreshView.h"
#include "NR_Constants.h"
#include "PhoneScreen.h"
#include "RefreshScreen.h"
#include "TestStore.h"
#include "UApplication.h"
#include "Vt_Event.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

// The view against a model of it: tables of what each event and each key does, walked through every sequence of
// five of them. Sequences that lead the model to the same place are followed once.

namespace {

// What a person or the service does. Digits are the service's statuses.
enum Action : char {
    INITIATE = 'i',
    QUEUE = 'q',
    LEFT = 'L',
    ENTER = 'E',
    RIGHT = 'R',
    ESCAPE = 'X',
    RED = '!'
};
constexpr int oddStatus = 9;

const std::string serviceActions = "iq012349";
const std::string keyActions = "LERX!";
// After an action, lets the event loop run.
constexpr char settled = '.';

using Path = std::string;

// On the screen: c connecting, d downloading, s success, e error, q queue error.
const std::map<char, std::string> looks = {{'c', RefreshScreen::connecting},
                                           {'d', RefreshScreen::downloading},
                                           {'s', RefreshScreen::success},
                                           {'e', RefreshScreen::error},
                                           {'q', RefreshScreen::queueError}};

class Model
{
public:
    void perform(char action)
    {
        if (action == settled)
            settle();
        else if (action == INITIATE)
            enter(1);
        else if (action == QUEUE)
            enter(6);
        else if (serviceActions.find(action) != std::string::npos)
            report(action - '0');
        else
            press(action);
    }

    std::vector<std::string> popups() const
    {
        std::vector<std::string> shown;
        for (char popup : mScreen)
            shown.push_back(looks.at(popup));
        return shown;
    }

    int finished() const { return mFinished; }
    const std::vector<std::string>& sent() const { return mSent; }

    // All that decides what comes next.
    std::string place() const
    {
        return std::string{char('0' + mState), mHidden ? 'h' : '-', mDownError ? 'd' : '-',
                           mConnError ? 'c' : '-', mParked ? 'p' : '-'} +
               mWaiting + '/' + mScreen + '/' + mClosing;
    }

private:
    void report(int status)
    {
        //                            0    1    2    3    4  other     state
        static const char* after[] = {"42-310",  // 0 idle
                                      "425311",  // 1 connecting
                                      "425322",  // 2 downloading
                                      "42-313",  // 3 success
                                      "42-314",  // 4 connection error
                                      "42-315",  // 5 download error
                                      "42-316"}; // 6 queue error
        const char next = after[mState][std::min(status, 5)];
        if (next == '-')
            return;
        if (status != 1)
            mHidden = false;
        enter(next - '0');
    }

    void enter(int state)
    {
        mState = state;
        if (!mHidden)
            mWaiting += char('0' + state);
    }

    void settle()
    {
        mFinished += static_cast<int>(std::ranges::count(mClosing, 's'));
        mClosing.clear();
        while (!mWaiting.empty()) {
            const int state = mWaiting.front() - '0';
            mWaiting.erase(0, 1);
            show(state);
        }
    }

    void show(int state)
    {
        std::erase_if(mScreen, [](char popup) { return popup == 'c' || popup == 'd'; });
        mParked = false;
        if ((state == 5 && mDownError) || (state == 4 && mConnError))
            return;
        //                          0    1    2    3    4    5    6
        static const char pops[] = {'-', 'c', 'd', 's', 'e', 'e', 'q'};
        mFinished += state == 1 || state == 2 || state == 3 ? 0 : 1;
        const bool isError = pops[state] == 'e';
        if (pops[state] == '-' || (isError && mScreen.find('e') != std::string::npos))
            return;
        mScreen += pops[state];
        mDownError = mDownError || state == 5;
        mConnError = mConnError || state == 4;
    }

    void press(char key)
    {
        if (key == RED) {
            while (!mScreen.empty())
                leave(false);
            return;
        }
        if (mScreen.empty())
            return;
        const bool left = key == LEFT || key == ENTER;
        const char popup = mScreen.back();
        leave(!left);
        if (popup == 'e' && left) {
            enter(1);
            mSent.push_back("EVENT_INITIATE_MANUAL_REFRESH");
        } else if ((popup == 'c' || popup == 'd') && left) {
            mHidden = true;
        }
    }

    // The topmost pop-up goes; `refused` by the right key.
    void leave(bool refused)
    {
        const char popup = mScreen.back();
        mScreen.pop_back();
        if (popup == 'e') {
            mDownError = mConnError = false;
        } else if (popup == 's' || popup == 'q') {
            mClosing += popup; // its event loop is still to return
        } else if (refused) {
            ++mFinished;
            mHidden = false;
            mSent.push_back("EVENT_ABORT_MANUAL_REFRESH");
        } else {
            mParked = true;
        }
    }

    int mState = 0;
    bool mHidden = false;
    bool mDownError = false;
    bool mConnError = false;
    bool mParked = false; // a progress dialog that is off the screen, but not gone
    std::string mWaiting; // states that are to be shown
    std::string mScreen;
    std::string mClosing;
    int mFinished = 0;
    std::vector<std::string> mSent;
};

// One walk of a fresh view along a path. Notices run event loops of their own, so every step is taken from whatever
// loop is the innermost one.
class Walk : public QObject
{
public:
    explicit Walk(const Path& path) : mPath(path)
    {
        connect(&mView, &ManRefreshView::finish, this, [this] { ++mFinished; });
        QTimer::singleShot(0, this, [this] { step(); });
        mLoop.exec();
        EXPECT_EQ(mSent.names(), mModel.sent()) << path;
    }

private:
    void step()
    {
        while (mNext < mPath.size()) {
            const char action = mPath[mNext++];
            mModel.perform(action);
            if (action == settled) {
                later([this] { compare(), step(); });
                return;
            }
            perform(action);
        }
        emit UApplication::instance()->askReturnToIdle(0);
        later([this] { mLoop.quit(); });
    }

    void perform(char action)
    {
        static const std::map<char, Qt::Key> keys = {{LEFT, Qt::Key_F1},
                                                     {ENTER, Qt::Key_Return},
                                                     {RIGHT, Qt::Key_F2},
                                                     {ESCAPE, Qt::Key_Escape},
                                                     {RED, Qt::Key_End}};
        if (keys.contains(action))
            RefreshScreen::pressAtOnce(keys.at(action));
        else if (action == INITIATE)
            mView.handleEvent(Vt_Event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH));
        else if (action == QUEUE)
            mView.handleEvent(Vt_Event(NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR));
        else
            mView.handleEvent(Vt_Event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, action - '0'));
    }

    void compare()
    {
        const Path walked = mPath.substr(0, mNext);
        EXPECT_EQ(RefreshScreen::popups(), mModel.popups()) << walked;
        EXPECT_EQ(mFinished, mModel.finished()) << walked;
    }

    // After as many turns of the loop as the timers of five events and the return of five notices can take.
    void later(std::function<void()> action, int turns = 12)
    {
        QTimer::singleShot(0, this, [this, action = std::move(action), turns] {
            turns > 0 ? later(action, turns - 1) : action();
        });
    }

    Path mPath;
    size_t mNext = 0;
    Model mModel;
    SentRequests mSent;
    ManRefreshView mView;
    int mFinished = 0;
    QEventLoop mLoop;
};

class RefreshModel : public testing::Test
{
protected:
    RefreshModel()
    {
        ManRefreshView::retryPause = 0;
        PhoneScreen::instance()->setUpdatesEnabled(false);
    }
    ~RefreshModel() override
    {
        ManRefreshView::retryPause = 2;
        PhoneScreen::instance()->setUpdatesEnabled(true);
    }

    // Walks every sequence of up to `length` of these actions, and returns how many walks that took. Each action
    // is followed by `pause`, and each walk ended by `end`.
    int explore(const std::string& actions, int length, const Path& pause, const Path& end)
    {
        int walks = 0;
        std::set<std::string> places;
        std::vector<Path> paths = {{}};
        for (int i = 0; i < length && !HasFailure(); ++i) {
            std::vector<Path> longer;
            for (const Path& path : paths) {
                for (char action : actions) {
                    const Path next = path + action + pause;
                    Walk walk(next + end);
                    ++walks;
                    Model model;
                    for (char done : next)
                        model.perform(done);
                    if (places.insert(model.place()).second)
                        longer.push_back(next);
                }
            }
            paths = longer;
        }
        return walks;
    }

private:
    TestStore mStore{RefreshScreen::pack};
    LogCapture mLog;
};

TEST_F(RefreshModel, FollowsEverySequenceOfKeysAndEvents)
{
    RecordProperty("walks", explore(serviceActions + keyActions, 5, ".", ""));
}

// Events that come faster than the event loop turns, with and without keys in between.
TEST_F(RefreshModel, FollowsEveryBurstOfEvents)
{
    RecordProperty("walks", explore("iq0123", 5, "", "."));
}

TEST_F(RefreshModel, FollowsKeysPressedInBetween)
{
    RecordProperty("walks", explore(serviceActions + keyActions + settled, 4, "", "."));
}

} // namespace
