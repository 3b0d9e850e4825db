#include "TextScroll.h"

#include "FingerScroll.h"
#include "Look.h"
#include "PhoneScreen.h"
#include "ScrollMark.h"
#include "TextBlock.h"

#include <QScrollBar>

TextScroll::TextScroll(const QString& text, QWidget* parent)
    : QScrollArea(parent), mBlock(new TextBlock(text, Look::Text::Body, Look::text, this))
{
    // As wide from the start as they will be, so that a long text is broken into lines only once.
    const QSize screen = PhoneScreen::instance()->size();
    resize(screen);
    viewport()->resize(screen);
    mBlock->resize(screen);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(mBlock);
    new ScrollMark(this);
    new FingerScroll(this);
}

QSize TextScroll::sizeHint() const
{
    const int width = PhoneScreen::instance()->width();
    return {width, mBlock->heightForWidth(width)};
}

void TextScroll::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    verticalScrollBar()->setSingleStep(QFontMetrics(Look::font(Look::Text::Body)).height());
}

// What scrolls in is painted whole, because lines without room were left out.
void TextScroll::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    mBlock->update();
}
