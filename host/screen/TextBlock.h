#pragma once

#include "WrappedText.h"

#include <QWidget>

// A plain text as a widget that is as high as its lines.
class TextBlock : public QWidget
{
    Q_OBJECT

public:
    // With `maxLines` above 0, what does not fit into as many lines is elided.
    TextBlock(const QString& text, Look::Text kind, const QColor& color, QWidget* parent, int maxLines = 0);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return {width(), heightForWidth(width())}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    mutable WrappedText mText;
    QColor mColor;
};
