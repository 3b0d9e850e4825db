#pragma once

#include <QObject>
#include <QTimer>

#include <utility>

namespace vtmenu {

// The life of a viewer that is made with new: it closes once, and deletes itself from the event loop when no call of its
// own is on the stack any more. A member of the viewer, which has a slot deleteMe().
class ViewerLife
{
public:
    explicit ViewerLife(QObject& viewer) : mViewer(viewer) {}

    // Held by every call of the viewer that may run a nested event loop. A return to idle inside that loop asks for the
    // viewer's deletion; it must not come before the call has returned.
    class Nesting
    {
    public:
        explicit Nesting(ViewerLife& life) : mLife(life) { ++mLife.mNesting; }
        ~Nesting()
        {
            if (--mLife.mNesting == 0 && mLife.mDeleteUnwound)
                mLife.deleteSoon();
        }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        ViewerLife& mLife;
    };

    // True the first time that it is called.
    bool beginsToClose() { return !std::exchange(mClosing, true); }

    // Has deleteMe() called from the event loop.
    void deleteSoon() { QTimer::singleShot(0, &mViewer, SLOT(deleteMe())); }

    // To be asked by deleteMe(): when it is false, deleteMe() is called again later.
    bool mayBeDeleted()
    {
        mDeleteUnwound = mNesting > 0;
        return !mDeleteUnwound;
    }

private:
    QObject& mViewer;
    int mNesting = 0;
    bool mDeleteUnwound = false;
    bool mClosing = false;
};

} // namespace vtmenu
