#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

// Moves a text that is too long for its place through that place: it rests, runs through twice, and rests for
// good. Nothing ticks while it rests, but for one shot that ends the first rest.
class Marquee : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Starts anew. One run moves the text by `length` pixels, after which it stands where it stood.
    void start(int length);
    void stop();

    // Pixels by which the text is moved now, 0 to the length.
    int offset() const { return mOffset; }

signals:
    void moved();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void setOffset(int offset);

    QBasicTimer mTimer;
    QElapsedTimer mRunning; // valid once the first rest is over
    int mLength = 0;
    int mOffset = 0;
};
