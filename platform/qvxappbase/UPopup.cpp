#include "UPopup.h"

#include "Look.h"
#include "PhoneKeys.h"
#include "PhoneScreen.h"
#include "SoftKeyEvent.h"
#include "TextBlock.h"
#include "TextScroll.h"
#include "UApplication.h"
#include "USoftKey.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

UPopup::UPopup(const QString& caption, QWidget* parent, const char* name, bool /*modal*/, int flags)
    : QWidget(parent, Qt::WindowFlags::fromInt(flags)),
      mPanel(new QWidget(this)),
      mContent(new QVBoxLayout(mPanel)),
      mSoftKeyBar(new USoftKey("CST_2A", this))
{
    hide();
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(caption);
    setFocusPolicy(Qt::StrongFocus);

    mPanel->setAutoFillBackground(true);
    if (!caption.isEmpty()) {
        mContent->addWidget(
            new TextBlock(caption, Look::Text::Caption, Look::text, mPanel, Look::captionLines()));
    }
    connect(mSoftKeyBar, &USoftKey::pressed, this, [this](int key) {
        SoftKeyEvent press(key);
        QCoreApplication::sendEvent(this, &press);
    });
}

UPopup::~UPopup()
{
    UPopup::close(false);
}

void UPopup::show()
{
    if (!mShown) {
        mShown = true;
        mIdleConnection =
            connect(UApplication::instance(), &UApplication::askReturnToIdle, this, &UPopup::returnToIdle);
    }
    PhoneScreen::instance()->put(this, PhoneScreen::Layer::Popup);
    arrange();
}

int UPopup::exec()
{
    QEventLoop loop;
    mLoop = &loop;
    mResult = 0;
    show();
    if (mShown)
        loop.exec();
    mLoop = nullptr;
    // Still shown when something else ended the loop, as the end of the program does.
    if (mShown)
        takeOff(0);
    disconnect(mIdleConnection);
    return mResult;
}

bool UPopup::close(bool alsoDelete)
{
    mResult = 0;
    if (mShown)
        takeOff(0);
    if (alsoDelete)
        delete this;
    return true;
}

void UPopup::setSoftkeyTextLeft(const QString& text)
{
    mSoftKeyBar->setText(USoftKey::Left, text);
}

void UPopup::setSoftkeyTextRight(const QString& text)
{
    mSoftKeyBar->setText(USoftKey::Right, text);
}

void UPopup::setKeyReceiver(QWidget* receiver)
{
    setFocusProxy(receiver);
    receiver->setAccessibleName(accessibleName());
}

void UPopup::addText(const QString& text)
{
    auto* scroll = new TextScroll(text, this);
    mContent->addWidget(scroll);
    setKeyReceiver(scroll);
}

bool UPopup::event(QEvent* event)
{
    if (event->type() != SoftKeyEvent::type())
        return QWidget::event(event);
    answer(static_cast<SoftKeyEvent*>(event)->key());
    return true;
}

void UPopup::paintEvent(QPaintEvent* /*event*/)
{
    // Once, however many pop-ups are on each other.
    if (!PhoneScreen::instance()->isOnTop(this))
        return;
    QPainter painter(this);
    painter.fillRect(rect(), Look::dim);
}

void UPopup::resizeEvent(QResizeEvent* /*event*/)
{
    arrange();
}

void UPopup::keyPressEvent(QKeyEvent* event)
{
    const std::optional<PhoneKeys::SoftKey> key =
        PhoneKeys::isSelect(*event) ? PhoneKeys::Left : PhoneKeys::softKey(*event);
    if (!key) {
        event->ignore();
        return;
    }
    // Accepted first: the key may delete this pop-up. A key that is still held from before does not answer.
    event->accept();
    if (!PhoneKeys::isHeld(*event))
        press(*key);
}

void UPopup::press(int softKey)
{
    mSoftKeyBar->press(softKey);
}

bool UPopup::isBeside(const QPointF& point) const
{
    return point.y() < mPanel->y();
}

// Signals come last: whoever gets them may delete this pop-up.
void UPopup::answer(int key)
{
    const bool confirmed = key == USoftKey::Left;
    if (!mShown || (confirmed && !mayConfirm()))
        return;
    takeOff(confirmed ? 1 : 0);
    if (confirmed)
        emit leftSoftkeyClicked();
    else
        emit cancelled();
}

// While exec() has not returned, a return to idle still turns the answer into 0, so it stays connected.
void UPopup::takeOff(int result)
{
    mShown = false;
    mResult = result;
    if (PhoneScreen* screen = PhoneScreen::instance())
        screen->take(this);
    if (mLoop)
        mLoop->quit();
    else
        disconnect(mIdleConnection);
}

void UPopup::returnToIdle()
{
    mResult = 0;
    if (!mShown)
        return;
    takeOff(0);
    emit dismissed();
}

void UPopup::arrange()
{
    const int barTop = height() - Look::softKeyHeight;
    mSoftKeyBar->setGeometry(0, barTop, width(), Look::softKeyHeight);
    mContent->setContentsMargins(0, Look::margin, 0, Look::margin);
    mContent->setSpacing(Look::rowPadding);
    mContent->invalidate();
    const int wanted = mContent->hasHeightForWidth() ? mContent->totalHeightForWidth(width())
                                                     : mContent->totalSizeHint().height();
    const int least = mContent->hasHeightForWidth() ? mContent->minimumHeightForWidth(width())
                                                    : mContent->totalMinimumSize().height();
    const int share = std::max(height() * Look::popupShare / 100 - Look::softKeyHeight, least);
    const int panelHeight = std::min({wanted, share, barTop});
    mPanel->setGeometry(0, barTop - panelHeight, width(), panelHeight);
}
