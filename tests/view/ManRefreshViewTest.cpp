#include "BusListener.h"
#include "ViewTest.h"

#include <QElapsedTimer>
#include <QEventLoop>

#include <map>
#include <set>

#include <sys/time.h>

using namespace std::string_literals;

namespace {

// After as many turns of the loop as the timers of five events and the return of five notices can take; also
// where that is inside a notice's event loop.
void atRest(const std::function<void()>& action, size_t turns = 12)
{
    Screen::later([=] { turns > 0 ? atRest(action, turns - 1) : action(); });
}

// i and q: a run is started or refused; digits: the service's statuses; each with the state that it leads to
// from the states 0 to 6. Then the keys. A dot lets the event loop run.
const std::map<char, std::string> events = {
    {'i', "1111111"}, {'q', "6666666"}, {'0', "4444444"}, {'1', "2222222"},
    {'2', "-55----"}, {'3', "3333333"}, {'4', "1121111"}, {'9', "0123456"},
};
const std::map<char, Qt::Key> keys = {
    {'L', Qt::Key_F1}, {'E', Qt::Key_Return}, {'R', Qt::Key_F2}, {'X', Qt::Key_Escape}, {'!', Qt::Key_End},
};
const std::string everything = "iq012349LERX!";

// The pop-up of each state.
const std::string refreshing = "ManRefresh.Option.Refresh ManRefresh.Instruction.";
const std::string failure = "ManRefresh.Instruction.ServerError ManRefresh.Instruction.AskTryAgain "
                            "(ManRefresh.Instruction.Retry | Cancel)";
const std::map<char, std::string> looks = {
    {'1', refreshing + "ConnectingToServer 0% (Hide | Cancel)"},
    {'2', refreshing + "DownloadingStories 50% (Hide | Cancel)"},
    {'3', "0 stories, 0 KB (OK | )"},
    {'4', failure},
    {'5', failure},
    {'6', "Error.QueueErr (OK | )"},
};

// What each event and each key does.
struct Model
{
    static bool isProgress(char state) { return state == '1' || state == '2'; }
    static bool isError(char state) { return state == '4' || state == '5'; }
    static bool isNotice(char state) { return state == '3' || state == '6'; }

    void perform(char action)
    {
        if (action == '.')
            settle();
        else if (events.contains(action))
            report(action);
        else if (!screen.empty())
            press(action);
    }

    void report(char event)
    {
        const char next = events.at(event)[size_t(state - '0')];
        if (next == '-')
            return;
        state = next;
        hidden = hidden && (event == '1' || event == 'i' || event == 'q');
        if (!hidden)
            waiting += state;
    }

    void settle()
    {
        // The ninth notice waits until a person has closed one, and what comes after it waits behind.
        const auto isFull = [&] { return std::ranges::count_if(screen, isNotice) == 8; };
        for (; !waiting.empty() && !(isNotice(waiting[0]) && isFull()); waiting.erase(0, 1)) {
            const char next = waiting[0];
            std::erase_if(screen, isProgress);
            parked = false;
            if (isError(next) && screen.find(next) != std::string::npos)
                continue;
            finished += next < '1' || next > '3';
            if (next != '0' && !(isError(next) && std::ranges::any_of(screen, isError)))
                screen += next;
        }
    }

    void press(char key)
    {
        const bool left = key == 'L' || key == 'E';
        const char popup = screen.back();
        screen.pop_back();
        if (isError(popup) && left) {
            report('i');
            sent.push_back("EVENT_INITIATE_MANUAL_REFRESH|0||false||0");
        } else if (isProgress(popup) && (left || key == '!')) {
            parked = true;
            hidden = hidden || left;
        } else if (isProgress(popup)) {
            hidden = false;
            ++finished;
            sent.push_back("EVENT_ABORT_MANUAL_REFRESH|0||false||0");
        }
        finished += popup == '3';
        if (key == '!')
            perform(key);
    }

    // All that decides what comes next.
    auto place() const { return std::tuple(state, hidden, parked, waiting, screen); }

    char state = '0';
    bool hidden = false;
    bool parked = false; // a progress dialog that is off the screen, but not gone
    std::string waiting; // states that are to be shown
    std::string screen;  // states whose pop-ups are up, bottom to top
    int finished = 0;
    Lines sent;
};

class RefreshView : public RefreshTest
{
protected:
    void perform(char action)
    {
        using namespace NR_Constants;
        const std::string& event = action == 'i'   ? EVENT_INITIATE_MANUAL_REFRESH
                                   : action == 'q' ? EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR
                                                   : EVENT_NOTIFY_MANUAL_REFRESH_STATUS;
        if (keys.contains(action))
            Screen::pressAtOnce(keys.at(action));
        else
            mView->handleEvent(Vt_Event(event, action - '0'));
    }

    // Takes a fresh view along a path beside the model. Notices run event loops of their own, so every step is
    // taken from whatever loop is the innermost one.
    void walk(const std::string& path)
    {
        const auto before = PhoneScreen::instance()->findChildren<UPopup*>().size();
        mView = std::make_unique<ManRefreshView>();
        Model model;
        int finished = 0;
        QObject::connect(mView.get(), &ManRefreshView::finish, [&] { ++finished; });
        QEventLoop loop;
        size_t walked = 0;
        const std::function<void()> step = [&] {
            Lines expected;
            for (char state : model.screen)
                expected.push_back(looks.at(state));
            EXPECT_EQ(popups(), expected) << path.substr(0, walked);
            EXPECT_EQ(finished, model.finished) << path.substr(0, walked);
            while (walked < path.size()) {
                const char action = path[walked++];
                const auto turns = 12 + 2 * model.waiting.size();
                model.perform(action);
                if (action == '.')
                    return atRest(step, turns);
                perform(action);
            }
            mView.reset(); // also in the middle of its notices
            atRest([&] { loop.quit(); });
        };
        Screen::later(step);
        loop.exec();
        EXPECT_EQ(mSent.take(), model.sent) << path;
        EXPECT_EQ(PhoneScreen::instance()->findChildren<UPopup*>().size(), before) << path;
    }

    // Walks every sequence of up to `length` actions, each followed by `pause`, and each walk ended by `end`.
    // Sequences that lead the model to the same place are followed once.
    void explore(const std::string& actions, int length, const std::string& pause, const std::string& end)
    {
        std::set<decltype(Model().place())> places;
        Lines paths = {""};
        for (int i = 0; i < length && !HasFailure(); ++i)
            for (const std::string& path : std::exchange(paths, {}))
                for (char action : actions) {
                    const std::string next = path + action + pause;
                    walk(next + end);
                    Model model;
                    for (char done : next)
                        model.perform(done);
                    if (places.insert(model.place()).second)
                        paths.push_back(next);
                }
    }

    BusListener mSent{BusSignals::event};
    std::unique_ptr<ManRefreshView> mView = std::make_unique<ManRefreshView>();
};

TEST_F(RefreshView, FollowsEverySequence)
{
    explore(everything, 4, ".", "");
    // Events that come faster than the event loop turns, with and without keys in between.
    explore("iq0123", 4, "", ".");
    explore(everything + '.', 3, "", ".");
    walk("4.1L.Ri."); // hidden while the dialog that is to take its place was on its way
}

TEST_F(RefreshView, FillsTheFiguresIntoTheSuccessText)
{
    setIntSetting(GROUP_DCD, "RuntimeValues.ItemsDownloaded", 1234567);
    setIntSetting(GROUP_DCD, "RuntimeValues.BytesDownloaded", -1536);
    const std::pair<const char*, std::string> cases[] = {
        {"%1 stories, %2 KB", "1234567 stories, -1 KB"},
        {"%5 KB after %2, %2", "-1 KB after 1234567, 1234567"},
        {"100 %, %1, %2, %3", "100 %, 1234567, -1, %3"},
        {"C:\\news \\\\n", "C:\news \\\n"},
    };
    for (const auto& [text, shown] : cases) {
        setStringSetting(GROUP_MENU, "ManRefresh.Instruction.DownloadSuccessed", text);
        Screen::later([&] {
            EXPECT_EQ(popups(), Lines{shown + " (OK | )"});
            Screen::press({Qt::Key_F1});
        });
        mView->showDlg(ManRefreshView::State::DOWN_SUCCESS);
    }
}

// What integrators watch for.
TEST_F(RefreshView, LogsEachStep)
{
    for (char action : "00i2LL0R"s) {
        perform(action);
        Screen::settle();
    }
    std::string logged;
    for (const std::string& line : mLog.lines())
        logged += line.substr("(ManRefreshView:*)[~~~~vistane~~~~]"s.size()) + '\n';
    EXPECT_EQ(logged,
              R"([ManRefreshView] Incoming VtEvent of type EVENT_NOTIFY_MANUAL_REFRESH_STATUS, isHide: 0 ...
[ManRefreshView] Notify status: 0, state: 0
ManRefreshView::showErrDlg, state is 4
[ManRefreshView] Incoming VtEvent of type EVENT_NOTIFY_MANUAL_REFRESH_STATUS, isHide: 0 ...
[ManRefreshView] Notify status: 0, state: 4
[ManRefresh] state == DOWN_ERROR && mDownErr || state == CONN_ERROR && mConnErr
[ManRefreshView] Incoming VtEvent of type EVENT_INITIATE_MANUAL_REFRESH, isHide: 0 ...
[ManRefreshView] Incoming VtEvent of type EVENT_NOTIFY_MANUAL_REFRESH_STATUS, isHide: 0 ...
[ManRefreshView] Notify status: 2, state: 1
ManRefreshView::showErrDlg, state is 5
ManRefreshView::showErrDlg, mpMsgDlg != NULL
[ManRefreshView] Incoming VtEvent of type EVENT_INITIATE_MANUAL_REFRESH, isHide: 0 ...
ManRefreshView::errorLSK
[ManRefresh] the dlg is hided
[ManRefreshView] Incoming VtEvent of type EVENT_NOTIFY_MANUAL_REFRESH_STATUS, isHide: 1 ...
[ManRefreshView] Notify status: 0, state: 1
ManRefreshView::showErrDlg, state is 4
ManRefreshView::errorRSK
)");
}

TEST_F(RefreshView, FinishesBeforeItAborts)
{
    mView->showDlg(ManRefreshView::State::CONNECTING);
    Lines before = {"never finished"};
    QObject::connect(mView.get(), &ManRefreshView::finish, [&] { before = mSent.take(); });
    perform('R');
    EXPECT_EQ(before, Lines{});
}

// The service needs a moment after a failure, whatever else happens to the process meanwhile.
TEST_F(RefreshView, RetryPausesTwoSecondsThoughASignalComes)
{
    ManRefreshView::retryPause = 2;
    mView->showDlg(ManRefreshView::State::CONN_ERROR);
    signal(SIGALRM, [](int) {});
    const itimerval halfASecond = {{}, {0, 500000}};
    setitimer(ITIMER_REAL, &halfASecond, nullptr);
    QElapsedTimer pause;
    pause.start();
    perform('L');
    EXPECT_GE(pause.elapsed(), 2000);
    EXPECT_EQ(popups(), Lines{}) << "the dialog comes from the event loop";
}

// Each notice runs the event loop in which the next one comes.
TEST_F(RefreshView, LosesNoEndOfARunInAStorm)
{
    const auto repeated = [](int times, const char* part) {
        return QByteArray(part).repeated(times).toStdString();
    };
    walk(repeated(18, "1") + "q31.L.L.");
    walk(repeated(40, "3") + "41q1." + repeated(44, "L."));
    walk("qqqqqqqqqqqq33.R.R.R.1q" + repeated(12, "E."));
    walk(repeated(200, "4124019") + "31.R.");
}

} // namespace
