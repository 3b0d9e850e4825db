#include "PhoneKeys.h"

#include <QKeyEvent>
#include <QTimer>

namespace {

// In milliseconds. What a person did before may come in several turns of the event loop; nobody reads and answers a new
// dialog within so little time.
constexpr int catchUpTime = 50;

KeyFilter* theFilter = nullptr;

} // namespace

std::optional<PhoneKeys::SoftKey> PhoneKeys::softKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_F1:
    case Qt::Key_F9:
        return Left;
    case Qt::Key_F2:
    case Qt::Key_F11:
    case Qt::Key_Escape:
        return Right;
    default:
        return std::nullopt;
    }
}

// Not every display marks the repetitions of a held key; there they come as a release and a press of one
// moment.
bool PhoneKeys::isHeld(const QKeyEvent& event)
{
    return event.isAutoRepeat() || (theFilter && theFilter->isReleasedNow(event));
}

bool PhoneKeys::isSelect(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Select;
}

KeyFilter::KeyFilter()
{
    theFilter = this;
}

KeyFilter::~KeyFilter()
{
    theFilter = nullptr;
}

void KeyFilter::dropEarlyInput()
{
    mDropsInput = true;
    QTimer::singleShot(catchUpTime, this, [this] { mDropsInput = false; });
}

bool KeyFilter::isReleasedNow(const QKeyEvent& press) const
{
    return press.nativeScanCode() != 0 && press.nativeScanCode() == mReleasedCode &&
           press.timestamp() == mReleasedAt;
}

bool KeyFilter::eventFilter(QObject* /*window*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto& press = static_cast<QKeyEvent&>(*event);
        return isBesideAnother(press) || (mDropsInput && event->spontaneous() && press.key() != Qt::Key_End);
    }
    case QEvent::KeyRelease: {
        const auto& release = static_cast<QKeyEvent&>(*event);
        if (!release.isAutoRepeat())
            mDownCode = 0;
        mReleasedCode = release.nativeScanCode();
        mReleasedAt = release.timestamp();
        return false;
    }
    case QEvent::FocusOut: // the release goes to another window
        mDownCode = 0;
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        return mDropsInput;
    default:
        return false;
    }
}

// The phone takes one key at a time: of two that are pressed together, the second one must not answer what the first
// one brought up. Notes the first one, so this is to be asked once for every press.
bool KeyFilter::isBesideAnother(const QKeyEvent& press)
{
    if (press.isAutoRepeat() || !(PhoneKeys::softKey(press) || PhoneKeys::isSelect(press)))
        return false;
    if (mDownCode != 0 && mDownCode != press.nativeScanCode())
        return true;
    mDownCode = press.nativeScanCode();
    return false;
}
