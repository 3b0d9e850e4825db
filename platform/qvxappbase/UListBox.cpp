#include "UListBox.h"

#include "FingerScroll.h"
#include "Look.h"
#include "Marquee.h"
#include "PhoneKeys.h"
#include "RowDelegate.h"
#include "ScrollMark.h"
#include "UListItem.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

UListBox::UListBox(const QString& /*type*/, QWidget* parent, int /*flags*/, int /*skin*/)
    : QListWidget(parent),
      mRows(new RowDelegate(this, [this](const QModelIndex& index) { return lookOf(index); }))
{
    setItemDelegate(mRows);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    new ScrollMark(this);

    new FingerScroll(this, [] { return QFontMetrics(Look::font(Look::Text::Row)).height(); });

    // A drag may have put the row out of sight since it was pressed.
    connect(this, &QListWidget::clicked, this, [this](const QModelIndex& index) {
        if (isWhollyVisible(visualRect(index)))
            choose(index.row());
    });
    connect(this, &QListWidget::currentRowChanged, this, &UListBox::startMarquee);
}

UListBox::~UListBox() = default;

void UListBox::setRadio(bool radio)
{
    mRadio = radio;
    viewport()->update();
}

void UListBox::enableMarquee(int /*region*/, bool enabled)
{
    delete mMarquee;
    mMarquee = nullptr;
    if (!enabled)
        return;
    mMarquee = new Marquee(this);
    connect(mMarquee, &Marquee::moved, this, [this] { viewport()->update(visualRect(currentIndex())); });
}

void UListBox::insertItem(UListItem* item, int position, bool /*redraw*/)
{
    const int row = position < 0 || position > count() ? count() : position;
    if (row <= mChecked)
        ++mChecked;
    QListWidget::insertItem(row, item);
}

void UListBox::clear()
{
    mChecked = -1;
    QListWidget::clear();
}

void UListBox::removeItem(int row)
{
    if (!item(row))
        return;
    delete takeItem(row);
    if (mChecked == row)
        mChecked = -1;
    else if (mChecked > row)
        --mChecked;
}

UListItem* UListBox::item(int row) const
{
    return static_cast<UListItem*>(QListWidget::item(row));
}

void UListBox::setCurrentItem(int row, bool /*redraw*/)
{
    if (count() > 0)
        setCurrentRow(std::clamp(row, 0, count() - 1));
}

void UListBox::checkItem(int row, bool checked)
{
    if (row < 0 || row >= count())
        return;
    if (checked) {
        mChecked = row;
        setCurrentItem(row, true);
    } else if (mChecked == row) {
        mChecked = -1;
    }
    viewport()->update();
}

int UListBox::radioItemChecked() const
{
    return mChecked;
}

RowLook UListBox::lookOf(const QModelIndex& index) const
{
    const UListItem* row = item(index.row());
    const bool isHighlighted = index == currentIndex();
    return {.lines = row->lines(),
            .isEnabled = row->isEnabled(),
            .isHighlighted = isHighlighted,
            .radio = mRadio ? std::optional(index.row() == mChecked) : std::nullopt,
            .offset = mMarquee && isHighlighted ? mMarquee->offset() : 0};
}

bool UListBox::isWhollyVisible(const QRect& row) const
{
    return mRows->isWhollyVisible(row);
}

// As high as its rows, for whoever wants to show them all.
QSize UListBox::sizeHint() const
{
    int height = 0;
    for (int row = 0; row < count(); ++row)
        height += sizeHintForRow(row);
    return {width(), height};
}

void UListBox::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    // A key that is held must neither run in circles nor down the whole tree.
    const bool isHeld = PhoneKeys::isHeld(*event);
    switch (PhoneKeys::meaning(*event)) {
    case Qt::Key_Up:
        setCurrentItem(currentRow() == 0 && !isHeld ? count() - 1 : currentRow() - 1, true);
        return;
    case Qt::Key_Down:
        setCurrentItem(currentRow() == count() - 1 && !isHeld ? 0 : currentRow() + 1, true);
        return;
    case Qt::Key_PageUp:
        setCurrentItem(rowOnePageFrom(currentRow(), -1), true);
        return;
    case Qt::Key_PageDown:
        setCurrentItem(rowOnePageFrom(currentRow(), +1), true);
        return;
    default:
        break;
    }
    const std::optional<int> row = PhoneKeys::row(*event);
    if (mRadio || !(row || PhoneKeys::isSelect(*event)))
        return event->ignore();
    if (isHeld || (row && *row >= count()))
        return;
    if (row)
        setCurrentItem(*row, true);
    choose(currentRow());
}

// A row that is not shown cannot be meant.
void UListBox::mousePressEvent(QMouseEvent* event)
{
    if (isWhollyVisible(visualRect(indexAt(event->position().toPoint()))))
        QListWidget::mousePressEvent(event);
}

void UListBox::focusInEvent(QFocusEvent* event)
{
    QListWidget::focusInEvent(event);
    startMarquee();
}

void UListBox::focusOutEvent(QFocusEvent* event)
{
    QListWidget::focusOutEvent(event);
    startMarquee();
}

void UListBox::resizeEvent(QResizeEvent* event)
{
    QListWidget::resizeEvent(event);
    if (currentIndex().isValid())
        scrollTo(currentIndex());
    startMarquee();
}

// The row that is about a screenful further, in the direction of `step`.
int UListBox::rowOnePageFrom(int row, int step) const
{
    int height = sizeHintForRow(row);
    while (item(row + step) && height + sizeHintForRow(row + step) <= viewport()->height()) {
        row += step;
        height += sizeHintForRow(row);
    }
    return row;
}

// Room for two rows, so that there is something to choose from wherever it stands.
QSize UListBox::minimumSizeHint() const
{
    return {0, std::max(0, sizeHintForRow(0)) + std::max(0, sizeHintForRow(1))};
}

void UListBox::choose(int row)
{
    const UListItem* chosen = item(row);
    if (chosen && chosen->isSelectable())
        emit selected(row);
}

// The marquee runs only for the list that has the keys; a list under another page or a pop-up rests.
void UListBox::startMarquee()
{
    if (!mMarquee)
        return;
    const int length = hasFocus() ? mRows->runLength(currentIndex()) : 0;
    if (length > 0)
        mMarquee->start(length);
    else
        mMarquee->stop();
}
