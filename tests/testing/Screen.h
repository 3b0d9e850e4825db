#pragma once

#include <QString>
#include <Qt>

#include <functional>
#include <vector>

class QWidget;

// The phone in a tester's hand.
namespace Screen {

// Presses keys one after the other, as the window gets them from the keyboard.
void press(const std::vector<Qt::Key>& keys);

// A press that returns as soon as it is dealt with: no event loop runs before.
void pressAtOnce(Qt::Key key);

// What comes from a key that is held already.
void repeat(Qt::Key key, int repetitions);

// A key that is held: the press, then its repetitions, then the release.
void hold(Qt::Key key, int repetitions);

// Runs `action` as soon as a nested event loop (or the next wait()) gets to it.
void later(std::function<void()> action);

// Lets the event loop run until nothing is left to do.
void settle();

// Saves what the screen shows under this name where VISTANE_PICTURES points, if it is set.
void picture(const QString& name);

} // namespace Screen
