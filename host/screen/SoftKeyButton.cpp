#include "SoftKeyButton.h"

#include "Look.h"

#include <QMouseEvent>
#include <QPainter>

SoftKeyButton::SoftKeyButton(Qt::AlignmentFlag side, QWidget* parent) : QAbstractButton(parent), mSide(side)
{
    setFocusPolicy(Qt::NoFocus);
}

void SoftKeyButton::setLabel(const QString& label)
{
    mLabel = Look::oneLine(label);
    setAccessibleName(mLabel);
    update();
}

void SoftKeyButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), isDown() && !mLabel.isEmpty() ? Look::barPressed : Look::bar);
    const QRect area = rect().adjusted(Look::margin, 0, -Look::margin, 0);
    painter.setFont(Look::font(Look::Text::SoftKey));
    painter.setPen(Look::barText);
    painter.drawText(area, static_cast<int>(Qt::AlignAbsolute | mSide | Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(mLabel, Qt::ElideRight, area.width()));
}

// Answers when it is pressed, as the phone's key does: until it is released, something else may be in its
// place.
void SoftKeyButton::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton)
        click();
}

void SoftKeyButton::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
}

// The second tap was meant for what the first one took away.
void SoftKeyButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}
