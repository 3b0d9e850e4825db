#pragma once

#include <QWidget>

class QEventLoop;
class QVBoxLayout;
class USoftKey;

// A pop-up: a panel drawn over the page from the bottom edge, with a caption and two soft keys, the page dimmed
// behind it. Either shown with show() and answered through its signals, or run with exec().
//
// The maker owns it. A program's close() takes it off the screen and emits nothing; the phone's return to idle emits
// dismissed(), none of the signals that stand for a person's key.
class UPopup : public QWidget
{
    Q_OBJECT

public:
    // Every argument of the phone is accepted; whether a pop-up is modal is decided by exec() or show().
    UPopup(const QString& caption, QWidget* parent, const char* name, bool modal, int flags);
    ~UPopup() override;

    // Puts the pop-up on top of the screen, sized to what it holds. Virtual, unlike QWidget's: exec() shows
    // through it.
    virtual void show();

    // Shows the pop-up and runs an event loop until it is answered. 1 when a person confirmed it with the left
    // soft key or Enter; 0 when the right soft key or Escape was pressed, when it was closed, when the program
    // ends, or when the phone asked for its idle screen before exec() returned, even if that was after a
    // confirmation.
    int exec();

    // Takes the pop-up off the screen; with `alsoDelete` deletes it, too. Returns true.
    virtual bool close(bool alsoDelete = false);

    void setSoftkeyTextLeft(const QString& text);
    void setSoftkeyTextRight(const QString& text);

signals:
    // A person pressed the right soft key of a pop-up that is shown; it is off the screen.
    void cancelled();
    // A person pressed the left soft key, likewise.
    void leftSoftkeyClicked();
    // The return to idle took the pop-up off the screen.
    void dismissed();

protected:
    // Where a dialog puts what it shows, under the caption.
    QVBoxLayout* content() const { return mContent; }

    // Adds a text that scrolls when it is longer than its place, and gets the keys that are no soft keys.
    void addText(const QString& text);

    // What gets the keys that are no soft keys.
    void setKeyReceiver(QWidget* receiver);

    // As if a person pressed the soft key, USoftKey::Left or Right. The pop-up may be gone afterwards.
    void press(int softKey);

    // Whether a point is on the page behind.
    bool isBeside(const QPointF& point) const;

    // Asked before the left key confirms; false keeps the pop-up where it is.
    virtual bool mayConfirm() { return true; }

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void answer(int key);
    void takeOff(int result);
    void returnToIdle();
    void arrange();

    QWidget* mPanel;
    QVBoxLayout* mContent;
    USoftKey* mSoftKeyBar;
    QEventLoop* mLoop = nullptr; // of a running exec()
    QMetaObject::Connection mIdleConnection;
    int mResult = 0;
    bool mShown = false;
};
