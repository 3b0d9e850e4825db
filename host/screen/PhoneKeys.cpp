#include "PhoneKeys.h"

#include <QKeyEvent>
#include <QTimer>

#include <algorithm>

namespace {

// In milliseconds. What a person did before may come in several turns of the event loop; nobody reads and answers a new
// dialog within so little time.
constexpr int catchUpTime = 50;

KeyFilter* theFilter = nullptr;

struct Key
{
    quint32 key; // a Qt::Key, or a native code
    Qt::Key meaning;
};

constexpr Key others[] = {
    {Qt::Key_F9, Qt::Key_F1},        {Qt::Key_Context1, Qt::Key_F1},   {Qt::Key_F11, Qt::Key_F2},
    {Qt::Key_Escape, Qt::Key_F2},    {Qt::Key_Context2, Qt::Key_F2},   {Qt::Key_Back, Qt::Key_F2},
    {Qt::Key_Enter, Qt::Key_Return}, {Qt::Key_Select, Qt::Key_Return}, {Qt::Key_Call, Qt::Key_Return},
    {Qt::Key_Hangup, Qt::Key_End},   {Qt::Key_Left, Qt::Key_PageUp},   {Qt::Key_Right, Qt::Key_PageDown},
};

// Keys for which Qt has no name, by the kernel's codes, to which every display adds 8.
constexpr quint32 firstDigit = 0x200 + 8;
constexpr Key nameless[] = {
    {firstDigit + 10, Qt::Key_Asterisk},
    {firstDigit + 11, Qt::Key_NumberSign},
    {0x2b8 + 8, Qt::Key_F1}, // those under a display, from left to right
    {0x2b9 + 8, Qt::Key_F2},
};

int find(const auto& keys, quint32 key, int otherwise)
{
    const auto found = std::ranges::find(keys, key, &Key::key);
    return found == std::end(keys) ? otherwise : found->meaning;
}

} // namespace

int PhoneKeys::meaning(const QKeyEvent& event)
{
    const quint32 code = event.nativeScanCode();
    if (code >= firstDigit && code <= firstDigit + 9)
        return Qt::Key_0 + static_cast<int>(code - firstDigit);
    const int key = find(nameless, code, event.key());
    return find(others, static_cast<quint32>(key), key);
}

std::optional<PhoneKeys::SoftKey> PhoneKeys::softKey(const QKeyEvent& event)
{
    switch (meaning(event)) {
    case Qt::Key_F1:
        return Left;
    case Qt::Key_F2:
        return Right;
    default:
        return std::nullopt;
    }
}

std::optional<int> PhoneKeys::row(const QKeyEvent& event)
{
    const int key = meaning(event);
    return key >= Qt::Key_1 && key <= Qt::Key_9 ? std::optional(key - Qt::Key_1) : std::nullopt;
}

// Not every display marks the repetitions of a held key; there they come as a release and a press of one
// moment.
bool PhoneKeys::isHeld(const QKeyEvent& event)
{
    return event.isAutoRepeat() || (theFilter && theFilter->isReleasedNow(event));
}

bool PhoneKeys::isSelect(const QKeyEvent& event)
{
    return meaning(event) == Qt::Key_Return;
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
        return isBesideAnother(press) ||
               (mDropsInput && event->spontaneous() && PhoneKeys::meaning(press) != Qt::Key_End);
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
    if (press.isAutoRepeat() ||
        !(PhoneKeys::softKey(press) || PhoneKeys::isSelect(press) || PhoneKeys::row(press)))
        return false;
    if (mDownCode != 0 && mDownCode != press.nativeScanCode())
        return true;
    mDownCode = press.nativeScanCode();
    return false;
}
