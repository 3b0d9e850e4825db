#include "UKeyObject.h"

#include "SoftKeyEvent.h"
#include "UPopup.h"
#include "USoftKey.h"

UKeyObject::UKeyObject(QWidget* watched, QObject* /*receiver*/, const char* name)
{
    setObjectName(QString::fromLatin1(name));
    watched->installEventFilter(this);
    if (auto* popup = qobject_cast<UPopup*>(watched))
        connect(popup, &UPopup::dismissed, this, [this] { report(rightSoftKey); });
}

void UKeyObject::addKey(int code, bool grab)
{
    if (grab)
        mCodes.insert(code);
    else
        mCodes.remove(code);
}

bool UKeyObject::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() != SoftKeyEvent::type())
        return false;
    const int code = static_cast<SoftKeyEvent*>(event)->key() == USoftKey::Left ? leftSoftKey : rightSoftKey;
    if (!mCodes.contains(code))
        return false;
    report(code);
    return true;
}

void UKeyObject::report(int code)
{
    if (mCodes.contains(code))
        emit keyPressed(code);
}
