#include "Marquee.h"

#include "Look.h"

namespace {

constexpr int restMs = 1200;
constexpr int tickMs = 40;
constexpr Look::Length pixelsPerSecond{45};
constexpr int runs = 2;

} // namespace

void Marquee::start(int length)
{
    stop();
    mLength = length;
    mTimer.start(restMs, this);
}

void Marquee::stop()
{
    mTimer.stop();
    mRunning.invalidate();
    setOffset(0);
}

void Marquee::timerEvent(QTimerEvent* /*event*/)
{
    if (!mRunning.isValid()) {
        mRunning.start();
        mTimer.start(tickMs, this);
        return;
    }
    const qint64 moved = mRunning.elapsed() * pixelsPerSecond / 1000;
    if (moved >= qint64{runs} * mLength)
        stop();
    else
        setOffset(static_cast<int>(moved % mLength));
}

void Marquee::setOffset(int offset)
{
    if (offset == mOffset)
        return;
    mOffset = offset;
    emit moved();
}
