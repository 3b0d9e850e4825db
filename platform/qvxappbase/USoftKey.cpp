#include "USoftKey.h"

#include "SoftKeyButton.h"

USoftKey::USoftKey(const char* /*type*/, QWidget* parent, QObject* receiver)
    : QWidget(parent),
      mKeys{new SoftKeyButton(Qt::AlignLeft, this), new SoftKeyButton(Qt::AlignRight, this)},
      mReceiver(receiver)
{
    setLayoutDirection(Qt::LeftToRight);
    for (int key : {Left, Right})
        connect(mKeys[key], &QAbstractButton::clicked, this, [this, key] { emit pressed(key); });
}

void USoftKey::setText(int key, const QString& text, int /*priority*/)
{
    mKeys[key]->setLabel(text);
}

QString USoftKey::text(int key) const
{
    return mKeys[key]->label();
}

void USoftKey::setClickedSlot(int key, const char* slot)
{
    disconnect(mSlots[key]);
    mSlots[key] = connect(mKeys[key], SIGNAL(clicked()), mReceiver, slot);
}

void USoftKey::press(int key)
{
    mKeys[key]->click();
}

void USoftKey::resizeEvent(QResizeEvent* /*event*/)
{
    const int half = width() / 2;
    mKeys[Left]->setGeometry(0, 0, half, height());
    mKeys[Right]->setGeometry(half, 0, width() - half, height());
}
