#pragma once

#include "USoftKey.h"

#include <optional>

class QKeyEvent;

// Which key of the phone a key of a keyboard stands for.
namespace PhoneKeys {

// The soft key, if it is one: F1 and F9 the left one; F2, F11 and Escape the right one.
std::optional<USoftKey::Key> softKey(const QKeyEvent& event);

// Comes from a key that is held down: such a press opens and confirms nothing.
bool isHeld(const QKeyEvent& event);

// The key in the middle, which opens or confirms.
bool isSelect(const QKeyEvent& event);

} // namespace PhoneKeys
