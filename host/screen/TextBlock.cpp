#include "TextBlock.h"

#include "Look.h"

#include <QPainter>

TextBlock::TextBlock(const QString& text, const QFont& font, const QColor& color, QWidget* parent, int maxLines)
    : QWidget(parent), mText(text, font, maxLines), mColor(color)
{
    setAccessibleName(text);
    setContentsMargins(Look::margin, 0, Look::margin, 0);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int TextBlock::heightForWidth(int width) const
{
    mText.wrap(width - 2 * Look::margin);
    return mText.height();
}

void TextBlock::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(mColor);
    mText.wrap(contentsRect().width());
    // A line that has no room to the last pixel is left out.
    const QRect visible = visibleRegion().boundingRect();
    mText.draw(painter, contentsRect().topLeft(), visible.top(), visible.bottom() + 1);
}
