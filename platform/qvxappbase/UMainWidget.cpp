#include "UMainWidget.h"

#include "Look.h"
#include "PhoneKeys.h"
#include "PhoneScreen.h"
#include "USoftKey.h"

#include <QKeyEvent>
#include <QPainter>

UMainWidget::UMainWidget(QWidget* parent, const char* name, int flags)
    : QWidget(parent, Qt::WindowFlags::fromInt(flags))
{
    setObjectName(QString::fromLatin1(name));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

UMainWidget::~UMainWidget()
{
    close(false);
}

void UMainWidget::setMainWidgetTitle(const QString& title)
{
    mTitle = Look::oneLine(title);
    setAccessibleName(mTitle);
    if (mContent)
        mContent->setAccessibleName(mTitle);
    update();
}

void UMainWidget::setContentWidget(QWidget* content)
{
    mContent = content;
    content->setParent(this);
    setFocusProxy(content);
    arrange();
}

void UMainWidget::setCSTWidget(USoftKey* softKey)
{
    mSoftKeyBar = softKey;
    softKey->setParent(this);
    arrange();
}

void UMainWidget::show()
{
    PhoneScreen::instance()->put(this, PhoneScreen::Layer::Page);
}

bool UMainWidget::close(bool alsoDelete)
{
    if (PhoneScreen* screen = PhoneScreen::instance())
        screen->take(this);
    if (alsoDelete)
        delete this;
    return true;
}

void UMainWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Look::page);
    const QRect bar(0, 0, width(), Look::titleHeight);
    painter.fillRect(bar, Look::bar);
    const QRect area = bar.adjusted(Look::margin, 0, -Look::margin, 0);
    painter.setFont(Look::font(Look::Text::Title));
    painter.setPen(Look::barText);
    painter.drawText(area, Qt::AlignLeading | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(mTitle, Qt::ElideRight, area.width()));
}

void UMainWidget::resizeEvent(QResizeEvent* /*event*/)
{
    arrange();
}

void UMainWidget::keyPressEvent(QKeyEvent* event)
{
    const std::optional<PhoneKeys::SoftKey> key = PhoneKeys::softKey(*event);
    if (!key || !mSoftKeyBar) {
        event->ignore();
        return;
    }
    // Accepted first: the key may delete this page.
    event->accept();
    if (!PhoneKeys::isHeld(*event))
        mSoftKeyBar->press(*key);
}

void UMainWidget::arrange()
{
    const int barHeight = mSoftKeyBar ? int(Look::softKeyHeight) : 0;
    if (mSoftKeyBar)
        mSoftKeyBar->setGeometry(0, height() - barHeight, width(), barHeight);
    if (mContent)
        mContent->setGeometry(0, Look::titleHeight, width(), height() - Look::titleHeight - barHeight);
}
