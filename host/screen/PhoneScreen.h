#pragma once

#include "PhoneKeys.h"
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

    // Brings the window before all others, where there is one yet. A compositor may want to see the token.
    void bringToFront(const QByteArray& token);

    // Whether there is no layer at all.
    bool isEmpty() const { return mLayers.isEmpty(); }

    // Whether the widget is the topmost layer or a part of it.
    bool isOnTop(const QWidget* widget) const;

    // What the window's keys and touches go through first.
    KeyFilter& keys() { return mKeys; }

signals:
    void redKeyPressed();
    void closedByPerson(); // the window manager's way to close a window

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Entry
    {
        QWidget* widget;
        Layer kind;
    };

    void arrange();

    QList<Entry> mLayers; // bottom to top
    KeyFilter mKeys;
};
