#pragma once

#include "Vt_EventHandler.h"

#include <QObject>
#include <QTimer>

#include <set>
#include <string>

namespace vtmenu {

// Watches whether what the pages show is still so. A change of what the menu reads, by any process, and the service's
// reports on its work are told to all pages, which then ask for their texts anew: once for many changes that come together,
// and never while a person answers a pop-up of a menu, which stands for what was on the page when it came up.
class LivePages : public QObject, public Vt_EventHandler
{
    Q_OBJECT

public:
    // Lives as long as the process. Before start(), nothing but the end of an update is heard of.
    static LivePages* instance();
    void start();

    // While one lives, the pages are left as they are; what changes meanwhile is told later.
    class Hold
    {
    public:
        Hold();
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
    };

    void handleEvent(const Vt_Event& event) override;

signals:
    // What a page shows may be out of date.
    void changed();

private:
    LivePages();
    bool isWatched(const std::string& name);
    void schedule();
    void tell();

    std::set<std::string> mWatched; // names, filled when the first change comes
    QTimer mDue;
    int mDelay; // milliseconds before the pages are told
    int mHolds = 0;
    bool mIsLate = false; // a change was held back
};

} // namespace vtmenu
