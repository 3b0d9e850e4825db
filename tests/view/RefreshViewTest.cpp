#include "LogCapture.h"
#include "ManRefreshView.h"
#include "NR_Constants.h"
#include "RefreshScreen.h"
#include "Screen.h"
#include "SettingHelper.h"
#include "TestStore.h"
#include "UApplication.h"
#include "UPopup.h"
#include "Vt_Event.h"

#include <QElapsedTimer>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <malloc.h>
#include <sys/time.h>

namespace {

using Popups = std::vector<std::string>;

class RefreshView : public testing::Test
{
protected:
    RefreshView() { ManRefreshView::retryPause = 0; }
    ~RefreshView() override
    {
        ManRefreshView::retryPause = 2;
        emit UApplication::instance()->askReturnToIdle(0);
        Screen::settle();
    }

    void report(int status)
    {
        mView->handleEvent(Vt_Event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, status));
    }

    // Lets the screen come to rest and then does this, also where that is inside a notice's event loop.
    static void atRest(std::function<void()> action, int turns = 25)
    {
        Screen::later([=] { turns > 0 ? atRest(action, turns - 1) : action(); });
    }

    TestStore mStore{RefreshScreen::pack};
    LogCapture mLog;
    std::unique_ptr<ManRefreshView> mView = std::make_unique<ManRefreshView>();
};

// Code generated from the interface goes by these names and their order.
TEST_F(RefreshView, HasItsSlotsInOrder)
{
    const QMetaObject& meta = ManRefreshView::staticMetaObject;
    EXPECT_STREQ(meta.className(), "ManRefreshView");
    std::vector<std::string> methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.push_back(meta.method(i).methodSignature().toStdString());
    EXPECT_EQ(methods, (std::vector<std::string>{"finish()", "rightSoftKey()", "leftSoftKey()",
                                                 "showDlg(State)", "slotKeyPress(int)"}));
}

TEST_F(RefreshView, FillsTheFiguresIntoTheSuccessText)
{
    struct Case
    {
        const char* text;
        int items;
        int bytes;
        const char* shown;
    };
    const Case cases[] = {
        {"%1 stories, %2 KB", 7, 0, "7 stories, 0 KB"},
        {"%1 stories, %2 KB", 7, 1023, "7 stories, 0 KB"},
        {"%1 stories, %2 KB", 7, 1536, "7 stories, 1 KB"},
        {"%1 stories, %2 KB", 7, -1536, "7 stories, -1 KB"},
        {"%1 stories, %2 KB", -7, -1, "-7 stories, 0 KB"},
        {"%1 stories, %2 KB", 1234567, 2147483647, "1234567 stories, 2097151 KB"},
        {"%5 KB after %2", 7, 2048, "2 KB after 7"},
        {"Done", 7, 2048, "Done"},
        {"%1, %2, %3", 7, 2048, "7, 2, %3"},
        {"%1 and %1", 7, 2048, "7 and 7"},
        {"Done.\\n%1\\n%2", 7, 2048, "Done.\n7\n2"},
        {"Done.\\n", 7, 2048, "Done.\n"},
        {"C:\\news \\\\n", 7, 2048, "C:\news \\\n"},
        {"100 % up to date", 7, 2048, "100 % up to date"},
        {"", 7, 2048, ""},
    };
    for (const Case& c : cases) {
        setStringSetting(GROUP_MENU, "ManRefresh.Instruction.DownloadSuccessed", c.text);
        setIntSetting(GROUP_DCD, "RuntimeValues.ItemsDownloaded", c.items);
        setIntSetting(GROUP_DCD, "RuntimeValues.BytesDownloaded", c.bytes);
        Popups shown;
        atRest([&] {
            shown = RefreshScreen::popups();
            Screen::press({Qt::Key_F1});
        });
        mView->showDlg(ManRefreshView::State::DOWN_SUCCESS);
        const std::string text = c.shown;
        EXPECT_EQ(shown, Popups{text + " (OK | )"}) << c.text;
    }
}

TEST_F(RefreshView, FinishesBeforeItAborts)
{
    report(STATUS_CONNECTING);
    Screen::settle();
    SentRequests sent;
    Popups before = {"never finished"};
    QObject::connect(mView.get(), &ManRefreshView::finish, [&] { before = sent.names(); });
    Screen::press({Qt::Key_F2});
    EXPECT_EQ(before, Popups{});
    EXPECT_EQ(sent.names(), Popups{NR_Constants::EVENT_ABORT_MANUAL_REFRESH});
}

// The service needs a moment after a failure, whatever else happens to the process meanwhile.
TEST_F(RefreshView, RetryPausesTwoSecondsBeforeItAsksAgain)
{
    ManRefreshView::retryPause = 2;
    report(STATUS_CONNECT_FAILED);
    Screen::settle();
    SentRequests sent;

    signal(SIGALRM, [](int) {});
    const itimerval halfASecond = {{}, {0, 500000}};
    setitimer(ITIMER_REAL, &halfASecond, nullptr);
    QElapsedTimer pause;
    pause.start();
    RefreshScreen::pressAtOnce(Qt::Key_F1);
    EXPECT_GE(pause.elapsed(), 2000);
    signal(SIGALRM, SIG_DFL);

    EXPECT_EQ(RefreshScreen::popups(), Popups{}) << "the dialog comes from the event loop";
    EXPECT_EQ(sent.names(), Popups{NR_Constants::EVENT_INITIATE_MANUAL_REFRESH});
    Screen::settle();
    EXPECT_EQ(RefreshScreen::popups(), Popups{RefreshScreen::connecting});
}

// What counts after a storm is what the service said last, and the keys work at once.
TEST_F(RefreshView, StaysUsableInAStorm)
{
    struct Case
    {
        const char* what;
        std::vector<int> statuses; // over and over
    };
    const Case cases[] = {
        {"downloading", {1}},
        {"success", {3}},
        {"failures", {0, 2}},
        {"everything", {4, 1, 2, 4, 0, 1, 3, 77, -1}},
    };
    for (const Case& c : cases) {
        mView = std::make_unique<ManRefreshView>();
        Popups shown;
        int pressed = 0;
        bool done = false;
        const std::function<void()> answerAll = [&] {
            done = RefreshScreen::popups().empty();
            if (done)
                return;
            ++pressed;
            Screen::press({Qt::Key_F2});
            atRest(answerAll);
        };
        // A few at a time, as they come over the bus.
        size_t reported = 0;
        const std::function<void()> storm = [&] {
            for (int i = 0; i < 30; ++i)
                report(c.statuses[reported++ % c.statuses.size()]);
            if (reported < 5000)
                return Screen::later(storm);
            report(STATUS_DOWNLOADING);
            atRest([&] {
                shown = RefreshScreen::popups();
                answerAll();
            });
        };
        Screen::later(storm);
        for (int i = 0; i < 100 && !done; ++i)
            Screen::settle();
        ASSERT_TRUE(done) << c.what;
        ASSERT_FALSE(shown.empty()) << c.what;
        EXPECT_EQ(shown.back(), RefreshScreen::downloading) << c.what;
        EXPECT_LE(shown.size(), 10u) << c.what;
        EXPECT_EQ(pressed, static_cast<int>(shown.size())) << c.what;
    }
}

TEST_F(RefreshView, TakesEverythingWithItWhereverItEnds)
{
    struct Case
    {
        const char* what;
        std::vector<int> statuses;
        Popups shown;
    };
    using namespace RefreshScreen;
    const Case cases[] = {
        {"connecting", {4}, {connecting}},
        {"downloading", {1}, {downloading}},
        {"error", {0}, {error}},
        {"success", {3}, {success}},
        {"progress over error", {0, 1}, {error, downloading}},
        {"all of them", {3, 0, 3, 1}, {success, error, success, downloading}},
    };
    for (const Case& c : cases) {
        mView = std::make_unique<ManRefreshView>();
        QSignalSpy finished(mView.get(), &ManRefreshView::finish);
        Popups shown, left;
        for (int status : c.statuses)
            report(status);
        atRest([&] {
            shown = popups();
            finished.clear();
            mView.reset();
            left = popups();
        });
        for (int i = 0; i < 3; ++i)
            Screen::settle();
        EXPECT_EQ(shown, c.shown) << c.what;
        EXPECT_EQ(left, Popups{}) << c.what;
        EXPECT_EQ(finished.size(), 0) << c.what;
    }

    mView = std::make_unique<ManRefreshView>();
    mView->handleEvent(Vt_Event(NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR));
    atRest([&] { mView.reset(); });
    Screen::settle();
    EXPECT_EQ(popups(), Popups{});
}

TEST_F(RefreshView, ForgetsFinishedRuns)
{
    const auto run = [&](int times) {
        for (int i = 0; i < times; ++i) {
            mView->handleEvent(Vt_Event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH));
            for (int status : {4, 1, 3})
                report(status);
            atRest([] { Screen::press({Qt::Key_F1}); }, 8);
            Screen::settle();
        }
        ASSERT_EQ(RefreshScreen::popups(), Popups{});
        malloc_trim(0);
    };
    run(10);
    const size_t before = mallinfo2().uordblks;
    run(1000);
    EXPECT_LE(mallinfo2().uordblks, before + 256 * 1024);
}

} // namespace
