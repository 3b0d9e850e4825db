#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

class UDetailView;

// One group of a details page: a heading and the lines under it. Part of a page only from UDetailView::addItem
// on, which also passes the ownership.
class UDetailItem
{
public:
    // `type`, `icon` and `view` are the phone's and unused.
    UDetailItem(int /*type*/, const QString& label, QChar /*icon*/, UDetailView* /*view*/) : mLabel(label) {}

    // Adds a line; a long one wraps.
    void appendTextIconRow(const QString& text) { mRows += text; }

    const QString& label() const { return mLabel; }
    const QStringList& rows() const { return mRows; }

private:
    QString mLabel;
    QStringList mRows;
};
