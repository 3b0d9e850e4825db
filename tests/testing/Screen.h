#pragma once

#include "PhoneScreen.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

#include <functional>
#include <vector>

// The phone in a tester's hand.
namespace Screen {

// Presses keys one after the other, as the window gets them from the keyboard.
inline void press(const std::vector<Qt::Key>& keys)
{
    for (Qt::Key key : keys)
        QTest::keyClick(PhoneScreen::instance()->windowHandle(), key);
}

// Taps the screen at a place of the window.
inline void tap(const QPoint& place)
{
    QTest::mouseClick(PhoneScreen::instance()->windowHandle(), Qt::LeftButton, {}, place);
}

// A press that returns as soon as it is dealt with: no event loop runs before.
inline void pressAtOnce(Qt::Key key, bool isHeld = false)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), isHeld);
    QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &press);
}

// What comes from a key that is held already.
inline void repeat(Qt::Key key, int repetitions)
{
    for (int i = 0; i < repetitions; ++i)
        pressAtOnce(key, true);
}

// Runs `action` as soon as a nested event loop (or the next wait()) gets to it.
inline void later(std::function<void()> action)
{
    QTimer::singleShot(0, PhoneScreen::instance(), std::move(action));
}

// Lets the event loop run until nothing is left to do.
inline void settle()
{
    for (int i = 0; i < 20; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

} // namespace Screen
