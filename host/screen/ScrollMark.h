#pragma once

#include <QWidget>

class QAbstractScrollArea;

// The thin mark at the edge of whatever scrolls: where the visible part stands in the whole. It is not there
// when everything is in sight.
class ScrollMark : public QWidget
{
    Q_OBJECT

public:
    // Becomes a child of `area`, whose own scroll bars are to be switched off.
    explicit ScrollMark(QAbstractScrollArea* area);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();

    QAbstractScrollArea* mArea;
};
