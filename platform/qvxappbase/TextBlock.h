#pragma once

#include <QTextLayout>
#include <QWidget>

// A plain text, wrapped at the widget's width: at words where it can, anywhere where it must. Line feeds break lines;
// nothing in the text is markup. The text keeps its own direction but stands at the screen's leading edge.
class TextBlock : public QWidget
{
    Q_OBJECT

public:
    // With `maxLines` above 0, what does not fit into as many lines is elided.
    TextBlock(const QFont& font, const QColor& color, QWidget* parent, int maxLines = 0);

    void setText(const QString& text);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void wrap(int width) const;

    QFont mFont;
    QColor mColor;
    int mMaxLines;
    QString mText;
    mutable QTextLayout mLayout;
    mutable int mWrappedWidth = -1;
};
