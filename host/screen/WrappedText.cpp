#include "WrappedText.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QtMath>

namespace {

// More than anybody reads on a phone; a longer text would only make every redraw slow.
constexpr int maxLength = 8000;

QTextOption textOption()
{
    const Qt::Alignment edge = QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    QTextOption option(Qt::AlignAbsolute | edge);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

// Breaks `layout`'s text into lines of `width`, at most `maxLines` of them when that is above 0, and returns
// where in the text the lines end.
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

WrappedText::WrappedText(const QString& text, Look::Text kind, int maxLines)
    : mText(Look::shortened(text, maxLength)), mKind(kind), mMaxLines(maxLines)
{
    mText.replace(QLatin1Char('\n'), QChar::LineSeparator);
    mLayout.setTextOption(textOption());
}

void WrappedText::wrap(int width)
{
    const QFont font = Look::font(mKind);
    if (width == mWidth && font.pixelSize() == mLayout.font().pixelSize())
        return;
    mWidth = width;
    mLayout.setFont(font);
    mLayout.setText(mText);
    const int end = breakLines(mLayout, width, mMaxLines);
    if (end == mText.size())
        return;
    const int start = mLayout.lineAt(mMaxLines - 1).textStart();
    const QString rest = Look::oneLine(mText.mid(start));
    mLayout.setText(mText.left(start) + QFontMetrics(mLayout.font()).elidedText(rest, Qt::ElideRight, width));
    breakLines(mLayout, width, mMaxLines);
}

int WrappedText::height() const
{
    return qCeil(mLayout.boundingRect().height());
}

void WrappedText::draw(QPainter& painter, const QPointF& position, qreal top, qreal bottom) const
{
    for (int i = 0; i < mLayout.lineCount(); ++i) {
        const QTextLine line = mLayout.lineAt(i);
        const qreal lineTop = position.y() + line.y();
        if (lineTop >= top && lineTop + line.height() <= bottom)
            line.draw(&painter, position);
    }
}
