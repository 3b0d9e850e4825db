#pragma once

#include <QAbstractButton>

// One half of the soft key bar. A button of its own so that it can be tapped and that a screen reader finds it.
class SoftKeyButton : public QAbstractButton
{
    Q_OBJECT

public:
    // `side` is where the text stands: Qt::AlignLeft or Qt::AlignRight.
    SoftKeyButton(Qt::AlignmentFlag side, QWidget* parent);

    // Kept apart from the button's own text, in which "&" would make a keyboard shortcut.
    void setLabel(const QString& label);
    QString label() const { return mLabel; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    Qt::AlignmentFlag mSide;
    QString mLabel;
};
