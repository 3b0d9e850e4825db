#include "PhoneKeys.h"

#include "PhoneScreen.h"

#include <QKeyEvent>

std::optional<USoftKey::Key> PhoneKeys::softKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_F1:
    case Qt::Key_F9:
        return USoftKey::Left;
    case Qt::Key_F2:
    case Qt::Key_F11:
    case Qt::Key_Escape:
        return USoftKey::Right;
    default:
        return std::nullopt;
    }
}

// Not every display marks the repetitions of a held key; there they come as a release and a press of one
// moment.
bool PhoneKeys::isHeld(const QKeyEvent& event)
{
    const PhoneScreen* screen = PhoneScreen::instance();
    return event.isAutoRepeat() || (screen && screen->isReleasedNow(event));
}

bool PhoneKeys::isSelect(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Select;
}
