#pragma once

#include <QScrollArea>

class TextBlock;

// A text that may be longer than its place: it scrolls, by key, wheel and scroll mark.
class TextScroll : public QScrollArea
{
    Q_OBJECT

public:
    TextScroll(const QString& text, QWidget* parent);

    // As high as the whole text.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    TextBlock* mBlock;
};
