#include "FingerScroll.h"

#include "PhoneScreen.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <cstdlib>
#include <utility>

FingerScroll::FingerScroll(QAbstractScrollArea* area, std::function<int()> step)
    : QObject(area), mArea(area), mStep(std::move(step))
{
    area->viewport()->installEventFilter(this);
}

bool FingerScroll::eventFilter(QObject* /*watched*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        mPressed = true;
        mDragged = false;
        mPressedAt = static_cast<QMouseEvent*>(event)->position().toPoint().y();
        mPressedValue = mArea->verticalScrollBar()->value();
        return false;
    case QEvent::MouseButtonDblClick:
        mPressed = false;
        return true;
    case QEvent::MouseMove: {
        const int moved = static_cast<QMouseEvent*>(event)->position().toPoint().y() - mPressedAt;
        mDragged = mDragged || std::abs(moved) >= QApplication::startDragDistance();
        if (mPressed && mDragged)
            mArea->verticalScrollBar()->setValue(mPressedValue - moved / (mStep ? mStep() : 1));
        return true;
    }
    case QEvent::MouseButtonRelease:
        return !std::exchange(mPressed, false) || mDragged || !PhoneScreen::instance()->isOnTop(mArea);
    default:
        return false;
    }
}
