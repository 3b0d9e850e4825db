#include "UDetailView.h"

#include "FingerScroll.h"
#include "Look.h"
#include "PhoneKeys.h"
#include "ScrollMark.h"
#include "UDetailItem.h"
#include "WrappedText.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

struct UDetailView::Line
{
    WrappedText text;
    bool isHeading;
    int top = 0;

    Line(const QString& line, bool isHeading)
        : text(line, isHeading ? Look::Text::Heading : Look::Text::Body), isHeading(isHeading)
    {
    }
};

UDetailView::UDetailView(QWidget* parent, int /*flags*/, int /*skin*/) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new ScrollMark(this);
    new FingerScroll(this);
}

UDetailView::~UDetailView() = default;

void UDetailView::addItem(UDetailItem* item)
{
    mItems.emplace_back(item);
    scheduleLayout();
}

void UDetailView::removeItem(UDetailItem* item)
{
    std::erase_if(mItems, [item](const auto& owned) { return owned.get() == item; });
    scheduleLayout();
}

void UDetailView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    const int scrolled = verticalScrollBar()->value();
    const int bottom = viewport()->height();
    for (const auto& owned : mLines) {
        const Line& line = *owned;
        const int top = line.top - scrolled;
        if (top >= bottom)
            break;
        if (top + line.text.height() <= 0)
            continue;
        painter.setPen(line.isHeading ? Look::heading : Look::text);
        line.text.draw(painter, QPointF(Look::margin, top), 0, bottom);
    }
}

void UDetailView::keyPressEvent(QKeyEvent* event)
{
    switch (PhoneKeys::meaning(*event)) {
    case Qt::Key_PageUp:
    case Qt::Key_Asterisk:
        verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
    case Qt::Key_NumberSign:
        verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void UDetailView::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

// A line that has no room to the last pixel is not shown, so what scrolls in is to be painted whole.
void UDetailView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    viewport()->update();
}

bool UDetailView::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        layOut();
    return QAbstractScrollArea::event(event);
}

// Once for any number of changes, and before the next painting: emptying the page and filling it again leaves
// it where it stood.
void UDetailView::scheduleLayout()
{
    if (!mLayoutDue)
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
    mLayoutDue = true;
}

void UDetailView::layOut()
{
    mLayoutDue = false;
    mLines.clear();
    QStringList texts;
    for (const auto& item : mItems) {
        texts += item->label();
        mLines.push_back(std::make_unique<Line>(item->label(), true));
        for (const QString& row : item->rows())
            mLines.push_back(std::make_unique<Line>(row, false));
        texts += item->rows();
    }
    setAccessibleDescription(texts.join(QLatin1Char('\n')));
    int top = 0;
    for (const auto& owned : mLines) {
        Line& line = *owned;
        line.text.wrap(viewport()->width() - 2 * Look::margin);
        top += line.isHeading ? Look::groupGap : 0;
        line.top = top;
        top += line.text.height() + Look::lineGap;
    }
    const int height = top + Look::groupGap;
    // A line that had no room at the lower edge is the first one of the next page.
    const int lineHeight = QFontMetrics(Look::font(Look::Text::Body)).height();
    verticalScrollBar()->setPageStep(std::max(lineHeight, viewport()->height() - lineHeight));
    verticalScrollBar()->setSingleStep(lineHeight * 2);
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    viewport()->update();
}
