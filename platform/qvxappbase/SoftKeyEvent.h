#pragma once

#include <QEvent>

// A soft key of a pop-up, pressed by whatever means. It is sent to the pop-up as an event so that a key watcher
// can take it first.
class SoftKeyEvent : public QEvent
{
public:
    static QEvent::Type type()
    {
        static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
        return type;
    }

    // `key` is USoftKey::Left or USoftKey::Right.
    explicit SoftKeyEvent(int key) : QEvent(type()), mKey(key) {}

    int key() const { return mKey; }

private:
    int mKey;
};
