#pragma once

#include "Look.h"

#include <QTextLayout>

// A plain text in lines of a given width: broken at words where it can be, anywhere where it must, and at its
// line feeds. Nothing in the text is markup. It keeps its own direction but stands at the screen's leading
// edge.
class WrappedText
{
public:
    // With `maxLines` above 0, what does not fit into as many lines is elided.
    WrappedText(const QString& text, Look::Text kind, int maxLines = 0);

    // Breaks the text anew; cheap when the width and the font are the last ones.
    void wrap(int width);

    // Pixels, as of the last wrap().
    int height() const;

    // Draws the lines that lie wholly between `top` and `bottom`, the first line's upper edge being at
    // `position`.
    void draw(QPainter& painter, const QPointF& position, qreal top, qreal bottom) const;

private:
    QString mText;
    Look::Text mKind;
    int mMaxLines;
    int mWidth = -1;
    QTextLayout mLayout;
};
