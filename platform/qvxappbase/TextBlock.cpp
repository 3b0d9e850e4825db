#include "TextBlock.h"

#include "Look.h"

#include <QFontMetrics>
#include <QPainter>
#include <QtMath>

namespace {

// More than anybody reads on a phone; a longer text would only make every redraw slow.
constexpr int maxLength = 8000;

QSizePolicy blockPolicy()
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    return policy;
}

// Breaks `layout`'s text into lines of `width`, at most `maxLines` of them when that is above 0, and returns where in
// the text the lines end.
int breakLines(QTextLayout& layout, int width, int maxLines)
{
    int end = 0;
    qreal bottom = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, bottom});
        bottom += line.height();
        end = line.textStart() + line.textLength();
        if (layout.lineCount() == maxLines)
            break;
    }
    layout.endLayout();
    return end;
}

} // namespace

TextBlock::TextBlock(const QFont& font, const QColor& color, QWidget* parent, int maxLines)
    : QWidget(parent), mFont(font), mColor(color), mMaxLines(maxLines)
{
    setContentsMargins(Look::margin, 0, Look::margin, 0);
    setSizePolicy(blockPolicy());
    mLayout.setFont(mFont);
    mLayout.setCacheEnabled(true);
    QTextOption option(Qt::AlignAbsolute |
                       (layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft));
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    mLayout.setTextOption(option);
}

void TextBlock::setText(const QString& text)
{
    mText = text.left(maxLength);
    mText.replace(QLatin1Char('\n'), QChar::LineSeparator);
    setAccessibleName(text);
    mWrappedWidth = -1;
    updateGeometry();
    update();
}

int TextBlock::heightForWidth(int width) const
{
    wrap(width);
    return qCeil(mLayout.boundingRect().height());
}

QSize TextBlock::sizeHint() const
{
    const int wide = width();
    return {wide, heightForWidth(wide)};
}

void TextBlock::paintEvent(QPaintEvent* /*event*/)
{
    wrap(width());
    QPainter painter(this);
    painter.setPen(mColor);
    mLayout.draw(&painter, contentsRect().topLeft());
}

// Keeps the lines of the last width: a text is measured far more often than it changes.
void TextBlock::wrap(int width) const
{
    if (width == mWrappedWidth)
        return;
    mWrappedWidth = width;
    const int lineWidth = width - contentsMargins().left() - contentsMargins().right();
    mLayout.setText(mText);
    const int end = breakLines(mLayout, lineWidth, mMaxLines);
    if (end == mText.size())
        return;
    const int start = mLayout.lineAt(mMaxLines - 1).textStart();
    mLayout.setText(mText.left(start) +
                    QFontMetrics(mFont).elidedText(Look::oneLine(mText.mid(start)), Qt::ElideRight, lineWidth));
    breakLines(mLayout, lineWidth, mMaxLines);
}
