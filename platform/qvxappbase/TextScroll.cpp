#include "TextScroll.h"

#include "Look.h"
#include "PhoneScreen.h"
#include "ScrollMark.h"
#include "TextBlock.h"

TextScroll::TextScroll(const QString& text, QWidget* parent)
    : QScrollArea(parent), mBlock(new TextBlock(text, Look::font(Look::Text::Body), Look::text, this))
{
    setWidget(mBlock);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new ScrollMark(this);
}

QSize TextScroll::sizeHint() const
{
    const int width = PhoneScreen::instance()->width();
    return {width, mBlock->heightForWidth(width)};
}
