#include "RowDelegate.h"

#include "Look.h"

#include <QAbstractItemView>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

// Between a text that runs through and its next coming.
constexpr Look::Length marqueeGap{40};

struct RowColors
{
    QColor background;
    QColor text;
    QColor quiet;
};

RowColors colors(bool highlighted, bool enabled)
{
    if (highlighted)
        return enabled ? RowColors{Look::highlight, Look::highlightText, Look::highlightQuiet}
                       : RowColors{Look::highlightGreyed, Look::highlightGreyedText, Look::highlightGreyedText};
    return enabled ? RowColors{Look::page, Look::text, Look::quiet}
                   : RowColors{Look::page, Look::greyed, Look::greyed};
}

// The first line is what the row is about, the others say more in a smaller hand.
QFont lineFont(qsizetype line)
{
    return Look::font(line == 0 ? Look::Text::Row : Look::Text::Value);
}

void drawRadioMark(QPainter& painter, const QRect& area, const QColor& color, bool checked)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal unit = area.width() / 16.0;
    const QRectF circle = QRectF(area).adjusted(unit, unit, -unit, -unit);
    painter.setPen(QPen(color, 1.6 * unit));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(circle);
    if (checked) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(circle.adjusted(4 * unit, 4 * unit, -4 * unit, -4 * unit));
    }
    painter.restore();
}

// Draws one line, elided when it rests, twice with a gap between when it runs through.
void drawLine(QPainter& painter, const QRect& area, const QString& text, int offset)
{
    const Qt::LayoutDirection direction = painter.layoutDirection();
    const int width = painter.fontMetrics().horizontalAdvance(text);
    const Qt::Alignment alignment = Qt::AlignLeading | Qt::AlignVCenter;
    if (width <= area.width() || offset == 0 || offset >= width + marqueeGap) {
        painter.drawText(area, int(alignment) | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
        return;
    }
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    const int sign = direction == Qt::RightToLeft ? 1 : -1;
    for (int start : {offset, offset - width - marqueeGap}) {
        QRect run = area.translated(sign * start, 0);
        if (direction == Qt::RightToLeft)
            run.setLeft(run.right() - width);
        else
            run.setWidth(width + 1);
        painter.drawText(run, int(alignment) | Qt::TextSingleLine, text);
    }
    painter.restore();
}

} // namespace

RowDelegate::RowDelegate(QAbstractItemView* list, LookOf lookOf)
    : QStyledItemDelegate(list), mList(list), mLookOf(std::move(lookOf))
{
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!isWhollyVisible(option.rect))
        return;
    const RowLook look = mLookOf(index);
    const RowColors color = colors(look.isHighlighted, look.isEnabled);

    painter->save();
    painter->setLayoutDirection(option.direction);
    painter->fillRect(option.rect, color.background);
    if (!look.isHighlighted)
        painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1), Look::line);

    QRect area = textArea(option.rect, look.radio.has_value());
    if (look.radio) {
        QRect mark(0, 0, Look::radioSize, Look::radioSize);
        mark.moveCenter(option.rect.center());
        mark.moveLeft(Look::margin);
        drawRadioMark(*painter, QStyle::visualRect(option.direction, option.rect, mark), color.text,
                      *look.radio);
    }

    int top = option.rect.top() + Look::rowPadding;
    const QStringList& lines = look.lines;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        painter->setFont(lineFont(i));
        painter->setPen(i == 0 ? color.text : color.quiet);
        const int height = painter->fontMetrics().height();
        drawLine(*painter, QRect(area.left(), top, area.width(), height), lines[i], look.offset);
        top += height + Look::lineGap;
    }
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const
{
    const qsizetype lines = std::max<qsizetype>(1, mLookOf(index).lines.size());
    // Asked for every row of a list, and the same for all until the screen changes.
    static int asOf = 0, first = 0, further = 0;
    if (const int now = Look::shorterSide(); std::exchange(asOf, now) != now) {
        first = QFontMetrics(lineFont(0)).height();
        further = QFontMetrics(lineFont(1)).height() + Look::lineGap;
    }
    return {Look::margin, 2 * Look::rowPadding + first + static_cast<int>(lines - 1) * further};
}

bool RowDelegate::isWhollyVisible(const QRect& row) const
{
    const int height = mList->viewport()->height();
    return row.top() >= 0 && (row.bottom() < height || row.height() > height);
}

int RowDelegate::runLength(const QModelIndex& index) const
{
    if (!index.isValid())
        return 0;
    const RowLook look = mLookOf(index);
    int widest = 0;
    for (qsizetype i = 0; i < look.lines.size(); ++i)
        widest = std::max(widest, QFontMetrics(lineFont(i)).horizontalAdvance(look.lines[i]));
    return widest > textArea(mList->visualRect(index), look.radio.has_value()).width() ? widest + marqueeGap
                                                                                       : 0;
}

QRect RowDelegate::textArea(const QRect& row, bool hasRadio) const
{
    const int mark = hasRadio ? Look::radioSize + Look::margin : 0;
    const QRect area = row.adjusted(Look::margin + mark, 0, -Look::margin, 0);
    return QStyle::visualRect(mList->layoutDirection(), row, area);
}
