#pragma once

#include <QObject>

#include <functional>

class QAbstractScrollArea;

// Scrolls an area by dragging it with a finger or the mouse. A drag is no tap: what it ends on does not get it.
// Nor does a tap count that began before something else came on top, or the second one of a double tap.
class FingerScroll : public QObject
{
    Q_OBJECT

public:
    // `step` tells how many pixels of a drag move the scroll bar by one; without it, one does. Becomes a child of
    // `area`.
    explicit FingerScroll(QAbstractScrollArea* area, std::function<int()> step = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractScrollArea* mArea;
    const std::function<int()> mStep;
    int mPressedAt = 0;
    int mPressedValue = 0;
    bool mPressed = false;
    bool mDragged = false;
};
