#pragma once

#include <QWidget>

class SoftKeyButton;

// The soft key bar at the bottom edge: the texts of the phone's two soft keys. The left key is on the left in
// every language, because that is where it is on the phone.
class USoftKey : public QWidget
{
    Q_OBJECT

public:
    enum Key { Left = 0, Right = 1 };

    // `type` is the phone's and unused. `receiver` is whose slots the keys call; it is not owned.
    USoftKey(const char* type, QWidget* parent, QObject* receiver = nullptr);

    // An empty text leaves the key blank. `priority` is the phone's and unused.
    void setText(int key, const QString& text, int priority = 0);
    QString text(int key) const;

    // Calls `slot` of the receiver, as in SLOT(), when the key is pressed, instead of what it called before.
    void setClickedSlot(int key, const char* slot);

    // What pressing the phone's key, or tapping its text, does. The bar may be gone afterwards.
    void press(int key);

signals:
    void pressed(int key);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    SoftKeyButton* mKeys[2];
    QObject* mReceiver;
    QMetaObject::Connection mSlots[2];
};
