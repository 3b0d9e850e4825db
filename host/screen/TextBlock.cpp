#include "TextBlock.h"

#include "Look.h"

#include <QPainter>

TextBlock::TextBlock(const QString& text, Look::Text kind, const QColor& color, QWidget* parent, int maxLines)
    : QWidget(parent), mText(text, kind, maxLines), mColor(color)
{
    setAccessibleName(text);
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
    mText.wrap(width() - 2 * Look::margin);
    // A line that has no room to the last pixel is left out.
    const QRect visible = visibleRegion().boundingRect();
    mText.draw(painter, QPointF(Look::margin, 0), visible.top(), visible.bottom() + 1);
}
