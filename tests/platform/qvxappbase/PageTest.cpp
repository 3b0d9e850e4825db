#include "PhoneScreen.h"
#include "Screen.h"
#include "UApplication.h"
#include "UKbMainWidget.h"
#include "UListBox.h"
#include "UMessageDlg.h"
#include "USoftKey.h"

#include <QCloseEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Page : UKbMainWidget
{
    USoftKey* keys = new USoftKey("CST_2A", this, this);
    QSignalSpy pressed{keys, &USoftKey::pressed};

    Page()
    {
        setContentWidget(new UListBox(QString(), this));
        setCSTWidget(keys);
    }
};

TEST(Page, OnlyTheTopmostHasTheKeysAndTheyGoBackWhenItCloses)
{
    Page below;
    below.show();
    {
        Page above;
        above.show();
        Screen::press({Qt::Key_F2, Qt::Key_Tab, Qt::Key_F2});
        EXPECT_EQ(above.pressed.size(), 2) << "Tab does not lead below";
        EXPECT_EQ(below.pressed.size(), 0);
    }
    Screen::press({Qt::Key_F2});
    EXPECT_EQ(below.pressed.size(), 1) << "deleted without being closed, a page still gives the keys back";
    below.close(false);
    Screen::press({Qt::Key_F2});
    EXPECT_EQ(below.pressed.size(), 1);
}

TEST(Page, SoftKeysHaveTheirKeysAndTapsAndDoNotRepeat)
{
    Page page;
    page.show();
    Screen::press({Qt::Key_F1, Qt::Key_F9, Qt::Key_F2, Qt::Key_F11, Qt::Key_Escape});
    QTest::mouseClick(page.keys->childAt(20, 10), Qt::LeftButton);
    QTest::mouseClick(page.keys->childAt(220, 10), Qt::LeftButton);
    Screen::repeat(Qt::Key_F1, 10);

    QList<int> keys;
    for (const QList<QVariant>& press : page.pressed)
        keys += press[0].toInt();
    EXPECT_EQ(keys, (QList<int>{0, 0, 1, 1, 1, 0, 1}));
}

TEST(Page, OfTwoKeysPressedTogetherTheSecondDoesNotCount)
{
    auto send = [time = quint64(1000)](QEvent::Type type, Qt::Key key, quint32 code) mutable {
        QKeyEvent event(type, key, Qt::NoModifier, code, 0, 0);
        event.setTimestamp(time += 100);
        QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &event);
    };
    Page page;
    page.show();
    UMessageDlg popup(QString(), QString(), 0, 0);
    Screen::later([&] {
        send(QEvent::KeyPress, Qt::Key_F1, 67);
        send(QEvent::KeyPress, Qt::Key_F2, 68);
    });
    EXPECT_EQ(popup.exec(), 1);
    EXPECT_EQ(page.pressed.size(), 0);
    send(QEvent::KeyRelease, Qt::Key_F2, 68);
    send(QEvent::KeyRelease, Qt::Key_F1, 67);
    send(QEvent::KeyPress, Qt::Key_F2, 68);
    EXPECT_EQ(page.pressed.size(), 1);
    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &lost);
    send(QEvent::KeyPress, Qt::Key_F1, 67);
    EXPECT_EQ(page.pressed.size(), 2) << "the release went to another window";
    send(QEvent::KeyRelease, Qt::Key_F1, 67);
}

TEST(Page, WhatWasTypedAheadIsDroppedButForTheRedKey)
{
    QSignalSpy idle(UApplication::instance(), &UApplication::askReturnToIdle);
    Page page;
    page.show();
    const auto pressAndTap = [&] {
        Screen::press({Qt::Key_F1, Qt::Key_F2, Qt::Key_End});
        QTest::mouseClick(PhoneScreen::instance()->windowHandle(), Qt::LeftButton, {},
                          {20, page.height() - 10});
    };
    UApplication::instance()->dropEarlyInput();
    pressAndTap();
    EXPECT_EQ(page.pressed.size(), 0);
    EXPECT_EQ(idle.size(), 1);
    QTest::qWait(100);
    pressAndTap();
    EXPECT_EQ(page.pressed.size(), 3);
}

TEST(Page, TheRedKeyAsksForTheIdleScreenFromEverywhere)
{
    QSignalSpy idle(UApplication::instance(), &UApplication::askReturnToIdle);
    Page page;
    page.show();
    Screen::press({Qt::Key_End});
    UMessageDlg popup(QString(), QString(), 0, 0);
    popup.show();
    Screen::press({Qt::Key_End});
    EXPECT_EQ(idle, (QList<QList<QVariant>>{{0}, {0}}));
    EXPECT_FALSE(PhoneScreen::instance()->isOnTop(&popup));
}

// Pages outlive the screen when a program ends with its menus open. A process has one screen, so another has
// its own.
TEST(Page, TheScreenLetsGoOfWhatIsStillThere)
{
    EXPECT_EXIT(
        {
            Page shown;
            Page closed;
            {
                PhoneScreen other;
                other.put(&shown, PhoneScreen::Layer::Page);
                other.put(&closed, PhoneScreen::Layer::Page);
                other.take(&closed);
            }
            _exit(shown.parent() || closed.parent() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(Page, QuittingIsNeverRefused)
{
    Page page;
    page.show();
    UMessageDlg popup(QString(), QString(), 0, 0);
    popup.show();
    Screen::later([] { QCoreApplication::quit(); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

// What ends the program is the menu's answer to that, not the window's going.
TEST(Page, ClosingTheWindowAsksForTheIdleScreenAndEndsNothing)
{
    QSignalSpy idle(UApplication::instance(), &UApplication::askReturnToIdle);
    Page page;
    page.show();
    Screen::later([] {
        QCloseEvent close;
        QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &close);
        QTimer::singleShot(50, [] { QCoreApplication::exit(7); });
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
    EXPECT_EQ(idle, QList<QList<QVariant>>{{0}});
}

} // namespace
