#pragma once

#include <QList>
#include <QWidget>

// The one window: the phone's screen. What is shown on it are layers that fill it, pages and pop-ups, stacked;
// only the topmost one has the keys and the pointer. A page hides the layers under it, a pop-up leaves the page
// in sight.
//
// The screen shows layers but never owns them: whoever made a layer deletes it, before or after it was taken
// off, and at the end the screen lets go of what is still there.
class PhoneScreen : public QWidget
{
    Q_OBJECT

public:
    enum class Layer { Page, Popup };

    // The screen of the running UApplication; null before it and after it.
    static PhoneScreen* instance();

    PhoneScreen();
    ~PhoneScreen() override;

    // Puts a layer on top, or brings one that is already there to the top, and gives it the keys: to the
    // layer's focus proxy, if it has one.
    void put(QWidget* layer, Layer kind);
    // Takes a layer off and gives the keys back to what is then on top. Harmless for one that is not there.
    void take(QWidget* layer);

    // Whether there is no layer at all.
    bool isEmpty() const { return mLayers.isEmpty(); }

    // Whether the widget is the topmost layer or a part of it.
    bool isOnTop(const QWidget* widget) const;

    // Takes no tap, and of the keys only the red one, until the event loop has caught up: what a person did while
    // the program was busy was meant for what was on the screen before.
    void dropEarlyInput();

    // Whether the keyboard released this key at the very moment of its press.
    bool isReleasedNow(const QKeyEvent& press) const;

protected:
    bool eventFilter(QObject* window, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Entry
    {
        QWidget* widget;
        Layer kind;
    };

    void arrange();
    bool isBesideAnother(const QKeyEvent& press);

    QList<Entry> mLayers;      // bottom to top
    quint32 mReleasedCode = 0; // of the key that was released last
    quint64 mReleasedAt = 0;
    quint32 mDownCode = 0; // of the soft key or select key that was pressed first, until a key is released
    bool mDropsInput = false;
};
