#pragma once

#include <QObject>
#include <QSet>

// Watches the soft keys of a pop-up and takes those it was told of before the pop-up gets them.
//
// The watcher is no child of the pop-up, so that either can be deleted by whoever the signal reaches. A pop-up
// that leaves the screen by the return to idle counts as its right key.
class UKeyObject : public QObject
{
    Q_OBJECT

public:
    // The phone's own codes of the keys.
    static constexpr int leftSoftKey = 4152;
    static constexpr int rightSoftKey = 4154;

    // `watched` is not owned. `receiver` is the phone's and unused.
    explicit UKeyObject(QWidget* watched, QObject* receiver = nullptr, const char* name = nullptr);

    // Takes this key from now on; a false `grab` leaves it to the pop-up again.
    void addKey(int code, bool grab);

signals:
    // Emitted last: the watcher and the pop-up may both be gone when it returns.
    void keyPressed(int code);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void report(int code);

    QSet<int> mCodes;
};
