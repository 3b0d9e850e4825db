#include "PhoneScreen.h"
#include "Screen.h"
#include "UApplication.h"
#include "UKbMainWidget.h"
#include "UKeyObject.h"
#include "UListBox.h"
#include "UListBoxItem.h"
#include "UMessageDlg.h"
#include "UProgressDlg.h"
#include "USingleSelectDlg.h"

#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

namespace {

const auto toIdle = [] { emit UApplication::instance()->askReturnToIdle(0); };

TEST(Popup, WhatExecAnswers)
{
    struct Case
    {
        const char* what;
        std::function<void(UPopup&)> action;
        int result;
    };
    const Case cases[] = {
        {"left soft key", [](UPopup&) { Screen::press({Qt::Key_F1}); }, 1},
        {"Enter", [](UPopup&) { Screen::press({Qt::Key_Enter}); }, 1},
        {"right soft key", [](UPopup&) { Screen::press({Qt::Key_F2}); }, 0},
        {"Escape", [](UPopup&) { Screen::press({Qt::Key_Escape}); }, 0},
        {"both soft keys",
         [](UPopup&) {
             Screen::press({Qt::Key_F2, Qt::Key_F1});
         },
         0},
        {"closed by the program", [](UPopup& popup) { popup.close(false); }, 0},
        {"return to idle", [](UPopup&) { toIdle(); }, 0},
        {"return to idle right after an accept", [](UPopup&) { Screen::press({Qt::Key_F1}), toIdle(); }, 0},
        {"closed right after an accept", [](UPopup& popup) { Screen::press({Qt::Key_F1}), popup.close(false); },
         0},
    };
    for (const Case& c : cases) {
        UMessageDlg popup(QStringLiteral("caption"), QStringLiteral("text"), 0, 0);
        Screen::later([&] { c.action(popup); });
        EXPECT_EQ(popup.exec(), c.result) << c.what;
        EXPECT_FALSE(PhoneScreen::instance()->isOnTop(&popup)) << c.what;
    }
}

TEST(Popup, RunsAgainAndEndsWithTheProgram)
{
    UMessageDlg popup(QString(), QString(), 0, 0);
    Screen::later([] { Screen::press({Qt::Key_F1}); });
    EXPECT_EQ(popup.exec(), 1);
    Screen::later([&] {
        Screen::later([] { QCoreApplication::quit(); });
        EXPECT_EQ(popup.exec(), 0);
    });
    QCoreApplication::exec();
}

// A key that is still held from opening the pop-up must not answer it.
TEST(Popup, AHeldKeyDoesNotAnswer)
{
    UMessageDlg popup(QString(), QString(), 0, 0);
    popup.show();
    QSignalSpy confirmed(&popup, &UPopup::leftSoftkeyClicked);
    Screen::repeat(Qt::Key_Return, 5);
    EXPECT_EQ(confirmed.size(), 0);
}

TEST(Popup, OnlyAPersonsKeySignals)
{
    UProgressDlg popup(QStringLiteral("Refresh"), QStringLiteral("Connecting"), 100, 200);
    QSignalSpy cancelled(&popup, &UPopup::cancelled);
    QSignalSpy hidden(&popup, &UPopup::leftSoftkeyClicked);

    popup.show();
    popup.close(false);
    popup.show();
    toIdle();
    EXPECT_EQ(cancelled.size() + hidden.size(), 0);

    bool shown = true;
    QObject::connect(&popup, &UPopup::leftSoftkeyClicked,
                     [&] { shown = PhoneScreen::instance()->isOnTop(&popup); });
    popup.show();
    Screen::press({Qt::Key_F1});
    EXPECT_EQ(hidden.size(), 1);
    EXPECT_FALSE(shown) << "off the screen before it says so";
    Screen::press({Qt::Key_F1, Qt::Key_F2});
    EXPECT_EQ(hidden.size() + cancelled.size(), 1) << "and deaf from then on";
    popup.show();
    Screen::press({Qt::Key_F2});
    EXPECT_EQ(cancelled.size(), 1);
}

TEST(Popup, MayBeDeletedByWhoGetsItsSignal)
{
    QPointer popup = new UProgressDlg(QString(), QString(), 100, 200);
    QObject::connect(popup, &UPopup::cancelled, [&] { delete popup; });
    popup->show();
    Screen::press({Qt::Key_F2});
    EXPECT_FALSE(popup);
}

TEST(KeyWatcher, ReportsEveryWayOutOnceAndSurvivesBeingDeletedByIt)
{
    struct Case
    {
        const char* what;
        std::function<void()> action;
        int code;
    };
    const Case cases[] = {
        {"left", [] { Screen::press({Qt::Key_F1}); }, 4152},
        {"Enter", [] { Screen::press({Qt::Key_Return}); }, 4152},
        {"right", [] { Screen::press({Qt::Key_F2}); }, 4154},
        {"return to idle", toIdle, 4154},
    };
    for (const Case& c : cases) {
        QPointer popup = new UMessageDlg(QString(), QString(), 0, 0);
        QPointer watcher = new UKeyObject(popup);
        watcher->addKey(4152, true);
        watcher->addKey(4154, true);
        QList<int> codes;
        QObject::connect(watcher, &UKeyObject::keyPressed, [&](int code) {
            codes += code;
            delete popup;
            delete watcher;
        });
        popup->show();
        c.action();
        EXPECT_EQ(codes, QList<int>{c.code}) << c.what;
    }
}

struct Choice : USingleSelectDlg
{
    Choice()
        : USingleSelectDlg(QStringLiteral("Scrolling"), QStringLiteral("How fast?"), nullptr, nullptr, true, 0,
                           0)
    {
        for (const char* text : {"Fast", "Medium", "Slow"})
            getListBox()->insertItem(new UListBoxItem(getListBox(), QLatin1String(text)), -1, true);
        getListBox()->item(1)->setEnabled(false);
        getListBox()->item(1)->setSelectable(false);
        getListBox()->checkItem(2, true);
    }
};

TEST(SingleSelect, OpensOnTheCheckedChoiceAndConfirmsTheHighlightedOne)
{
    struct Case
    {
        const char* what;
        std::initializer_list<Qt::Key> keys;
        int result;
        int checked;
    };
    const Case cases[] = {
        {"at once", {Qt::Key_Return}, 1, 2},
        {"another one", {Qt::Key_Up, Qt::Key_Up, Qt::Key_F1}, 1, 0},
        {"moving alone checks nothing", {Qt::Key_Up, Qt::Key_Up, Qt::Key_F2}, 0, 2},
        {"a greyed one does nothing", {Qt::Key_Up, Qt::Key_Return, Qt::Key_F1, Qt::Key_F2}, 0, 2},
    };
    for (const Case& c : cases) {
        Choice dialog;
        Screen::later([&] { Screen::press(c.keys); });
        EXPECT_EQ(dialog.exec(), c.result) << c.what;
        EXPECT_EQ(dialog.getListBox()->radioItemChecked(), c.checked) << c.what;
    }
}

TEST(SingleSelect, IsShownThroughItsVirtualShow)
{
    struct Filled : Choice
    {
        bool filled = false;
        void show() override
        {
            filled = true;
            UPopup::show();
        }
    };
    Filled dialog;
    Screen::later([] { Screen::press({Qt::Key_F2}); });
    dialog.exec();
    EXPECT_TRUE(dialog.filled);
}

} // namespace
