#include "SoftKeyButton.h"

#include "Look.h"

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
