#pragma once

#include <QObject>

#include <optional>

class QKeyEvent;

// Which key of the phone a key of a keyboard stands for.
namespace PhoneKeys {

enum SoftKey { Left = 0, Right = 1 };

// The one Qt::Key that stands for all keys of keyboards and phones which mean the same: F1 and F2 the soft keys, Return
// the key in the middle, End the red one, PageUp and PageDown, 0 to 9, Asterisk and NumberSign. Every other key is
// itself.
int meaning(const QKeyEvent& event);

// The soft key, if it is one.
std::optional<SoftKey> softKey(const QKeyEvent& event);

// The row of a list that the digits 1 to 9 choose, counted from 0.
std::optional<int> row(const QKeyEvent& event);

// Comes from a key that is held down: such a press opens and confirms nothing.
bool isHeld(const QKeyEvent& event);

// The key in the middle, which opens or confirms.
bool isSelect(const QKeyEvent& event);

} // namespace PhoneKeys

// Sees what the keyboard and the pointer do before any layer does, as an event filter of the screen's window. There is
// one while there is a screen.
class KeyFilter : public QObject
{
    Q_OBJECT

public:
    KeyFilter();
    ~KeyFilter() override;

    // Takes no tap, and of the keys only the red one, until the event loop has caught up: what a person did while
    // the program was busy was meant for what was on the screen before.
    void dropEarlyInput();

    // Whether the keyboard released this key at the very moment of its press.
    bool isReleasedNow(const QKeyEvent& press) const;

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    bool isBesideAnother(const QKeyEvent& press);

    quint32 mReleasedCode = 0; // of the key that was released last
    quint64 mReleasedAt = 0;
    quint32 mDownCode = 0; // of the key that opens or answers and was pressed first, until a key is released
    bool mDropsInput = false;
};
