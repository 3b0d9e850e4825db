#include "ScrollMark.h"

#include "Look.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

ScrollMark::ScrollMark(QAbstractScrollArea* area) : QWidget(area), mArea(area)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    area->installEventFilter(this);
    connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, &ScrollMark::follow);
    connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollMark::follow);
    follow();
}

void ScrollMark::paintEvent(QPaintEvent* /*event*/)
{
    const QScrollBar* bar = mArea->verticalScrollBar();
    const int range = bar->maximum() - bar->minimum();
    if (range <= 0) // the list has just lost its range and has not told of it yet
        return;
    const int whole = range + bar->pageStep();
    const int length = std::max(height() * bar->pageStep() / whole, 4 * Look::scrollMarkWidth);
    const int top = (height() - length) * (bar->value() - bar->minimum()) / range;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Look::quiet);
    painter.drawRoundedRect(0, top, width(), length, width() / 2.0, width() / 2.0);
}

bool ScrollMark::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        follow();
    return QWidget::eventFilter(watched, event);
}

void ScrollMark::follow()
{
    const QScrollBar* bar = mArea->verticalScrollBar();
    setVisible(bar->maximum() > bar->minimum());
    const int gap = Look::scaled(3);
    const QRect edge(mArea->width() - Look::scrollMarkWidth - gap + 1, gap, Look::scrollMarkWidth,
                     mArea->height() - 2 * gap);
    setGeometry(QStyle::visualRect(mArea->layoutDirection(), mArea->rect(), edge));
    update();
}
