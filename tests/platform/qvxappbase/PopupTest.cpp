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

#include <tuple>
#include <vector>

namespace {

const auto toIdle = [] { emit UApplication::instance()->askReturnToIdle(0); };

TEST(Popup, WhatExecAnswers)
{
    const std::tuple<const char*, std::function<void(UPopup&)>, int> cases[] = {
        {"Enter", [](UPopup&) { Screen::press({Qt::Key_Enter}); }, 1},
        {"right soft key", [](UPopup&) { Screen::press({Qt::Key_F2}); }, 0},
        {"Escape", [](UPopup&) { Screen::press({Qt::Key_Escape}); }, 0},
        {"closed by the program", [](UPopup& popup) { popup.close(false); }, 0},
        {"return to idle right after an accept", [](UPopup&) { Screen::press({Qt::Key_F1}), toIdle(); }, 0},
        {"closed right after an accept", [](UPopup& popup) { Screen::press({Qt::Key_F1}), popup.close(false); },
         0},
    };
    UMessageDlg popup(QString(), QString(), 0, 0);
    for (const auto& [what, action, result] : cases) {
        Screen::later([&, &action = action] { action(popup); });
        EXPECT_EQ(popup.exec(), result) << what;
        EXPECT_FALSE(PhoneScreen::instance()->isOnTop(&popup)) << what;
    }
    Screen::later([&] {
        Screen::later([] { QCoreApplication::quit(); });
        EXPECT_EQ(popup.exec(), 0);
    });
    QCoreApplication::exec();
}

TEST(Popup, OnlyAPersonsKeySignalsAndMayDeleteThePopup)
{
    QPointer popup = new UProgressDlg(QString(), QString(), 100, 200);
    QSignalSpy cancelled(popup, &UPopup::cancelled);
    QSignalSpy hidden(popup, &UPopup::leftSoftkeyClicked);
    bool shown = true;
    QObject::connect(popup, &UPopup::leftSoftkeyClicked,
                     [&] { shown = PhoneScreen::instance()->isOnTop(popup); });
    QObject::connect(popup, &UPopup::cancelled, [&] { delete popup; });
    popup->show();
    popup->close(false);
    popup->show();
    toIdle();
    popup->show();
    Screen::repeat(Qt::Key_Return, 5); // still held from what opened the pop-up
    EXPECT_EQ(cancelled.size() + hidden.size(), 0);

    Screen::press({Qt::Key_F1});
    EXPECT_EQ(hidden.size(), 1);
    EXPECT_FALSE(shown) << "off the screen before it says so";
    Screen::press({Qt::Key_F1, Qt::Key_F2});
    EXPECT_EQ(hidden.size() + cancelled.size(), 1) << "and deaf from then on";
    popup->show();
    Screen::press({Qt::Key_F2});
    EXPECT_EQ(cancelled.size(), 1);
    EXPECT_FALSE(popup);
}

TEST(KeyWatcher, ReportsEveryWayOutOnceAndSurvivesBeingDeletedByIt)
{
    const std::tuple<const char*, std::function<void()>, int> cases[] = {
        {"left", [] { Screen::press({Qt::Key_F1}); }, 4152},
        {"right", [] { Screen::press({Qt::Key_F2}); }, 4154},
        {"return to idle", toIdle, 4154},
    };
    for (const auto& [what, action, code] : cases) {
        QPointer popup = new UMessageDlg(QString(), QString(), 0, 0);
        QPointer watcher = new UKeyObject(popup);
        watcher->addKey(4152, true);
        watcher->addKey(4154, true);
        QList<int> codes;
        QObject::connect(watcher, &UKeyObject::keyPressed, [&](int reported) {
            codes += reported;
            delete popup;
            delete watcher;
        });
        popup->show();
        action();
        EXPECT_EQ(codes, QList<int>{code}) << what;
    }
}

struct Choice : USingleSelectDlg
{
    Choice() : USingleSelectDlg(QString(), QString(), nullptr, nullptr, true, 0, 0)
    {
        for (const char* text : {"Fast", "Medium", "Slow"})
            getListBox()->insertItem(new UListBoxItem(getListBox(), QLatin1String(text)), -1, true);
        getListBox()->item(1)->setEnabled(false);
        getListBox()->item(1)->setSelectable(false);
    }

    // Checks its choice no sooner than it is shown, as a form does.
    void show() override
    {
        getListBox()->checkItem(2, true);
        UPopup::show();
    }
};

TEST(SingleSelect, OpensOnTheCheckedChoiceAndConfirmsTheHighlightedOne)
{
    const std::tuple<const char*, std::vector<Qt::Key>, int, int> cases[] = {
        {"at once", {Qt::Key_Return}, 1, 2},
        {"another one", {Qt::Key_Up, Qt::Key_Up, Qt::Key_F1}, 1, 0},
        {"moving alone checks nothing", {Qt::Key_Up, Qt::Key_Up, Qt::Key_F2}, 0, 2},
        {"a greyed one does nothing", {Qt::Key_Up, Qt::Key_Return, Qt::Key_F1, Qt::Key_F2}, 0, 2},
    };
    for (const auto& [what, keys, result, checked] : cases) {
        Choice dialog;
        Screen::later([&keys = keys] { Screen::press(keys); });
        EXPECT_EQ(dialog.exec(), result) << what;
        EXPECT_EQ(dialog.getListBox()->radioItemChecked(), checked) << what;
    }
}

} // namespace
