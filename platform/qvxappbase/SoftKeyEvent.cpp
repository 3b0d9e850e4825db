#include "SoftKeyEvent.h"

#include "UKeyObject.h"
#include "USoftKey.h"

QEvent::Type SoftKeyEvent::type()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

int SoftKeyEvent::code() const
{
    return mKey == USoftKey::Left ? UKeyObject::leftSoftKey : UKeyObject::rightSoftKey;
}
