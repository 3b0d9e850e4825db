#include "UProgressDlg.h"

#include "Look.h"

#include <QPainter>
#include <QProgressBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Qt's progress bar, for those who listen to a screen, in the phone's look.
class ProgressBar : public QProgressBar
{
public:
    explicit ProgressBar(QWidget* parent) : QProgressBar(parent)
    {
        setTextVisible(false);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return {0, Look::progressHeight + 2 * Look::rowPadding}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const QRect groove = rect().adjusted(Look::margin, Look::rowPadding, -Look::margin, -Look::rowPadding);
        QRect done = groove;
        done.setWidth(groove.width() * value() / std::max(1, maximum()));
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const qreal radius = groove.height() / 2.0;
        painter.setBrush(Look::line);
        painter.drawRoundedRect(groove, radius, radius);
        painter.setBrush(Look::highlight);
        painter.drawRoundedRect(QStyle::visualRect(layoutDirection(), groove, done), radius, radius);
    }
};

} // namespace

UProgressDlg::UProgressDlg(const QString& caption, const QString& text, int total, int, QWidget* parent,
                           const char* name, bool modal, int flags)
    : UPopup(caption, parent, name, modal, flags), mBar(new ProgressBar(this))
{
    addText(text);
    content()->addWidget(mBar);
    mBar->setRange(0, total);
    setSoftkeyTextLeft(UPopup::tr("TXT_RID_SOFTKEY_HIDE", "Hide"));
    setSoftkeyTextRight(UPopup::tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"));
}

void UProgressDlg::setProgress(int progress)
{
    mBar->setValue(std::clamp(progress, mBar->minimum(), mBar->maximum()));
}

int UProgressDlg::progress() const
{
    return mBar->value();
}
