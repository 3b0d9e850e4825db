#include "USingleSelectDlg.h"

#include "Look.h"
#include "PhoneKeys.h"
#include "TextBlock.h"
#include "UListBox.h"
#include "UListItem.h"

#include <QMouseEvent>
#include <QVBoxLayout>

#include <utility>

USingleSelectDlg::USingleSelectDlg(const QString& caption, const QString& instruction, QWidget* parent,
                                   const char* name, bool modal, int flags, int)
    : UPopup(caption, parent, name, modal, flags), mListBox(new UListBox(QString(), this))
{
    if (!instruction.isEmpty()) {
        content()->addWidget(
            new TextBlock(instruction, Look::Text::Body, Look::quiet, this, Look::instructionLines()));
    }
    mListBox->setRadio(true);
    mListBox->enableMarquee(0, true);
    content()->addWidget(mListBox);
    setKeyReceiver(mListBox);
    setSoftkeyTextLeft(UPopup::tr("TXT_RID_SOFTKEY_OK", "OK"));
    setSoftkeyTextRight(UPopup::tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"));
    connect(mListBox, &UListBox::selected, this, [this](int row) { mListBox->checkItem(row, true); });
}

void USingleSelectDlg::keyPressEvent(QKeyEvent* event)
{
    const std::optional<int> row = PhoneKeys::row(*event);
    if (!row)
        return UPopup::keyPressEvent(event);
    event->accept();
    if (*row >= mListBox->count() || PhoneKeys::isHeld(*event))
        return;
    mListBox->setCurrentItem(*row, true);
    press(PhoneKeys::Left);
}

void USingleSelectDlg::mousePressEvent(QMouseEvent* event)
{
    mPressedBeside = isBeside(event->position());
}

void USingleSelectDlg::mouseReleaseEvent(QMouseEvent* event)
{
    if (std::exchange(mPressedBeside, false) && isBeside(event->position()))
        press(PhoneKeys::Right);
}

bool USingleSelectDlg::mayConfirm()
{
    const int row = mListBox->currentRow();
    const UListItem* choice = mListBox->item(row);
    if (!choice || !choice->isSelectable())
        return false;
    mListBox->checkItem(row, true);
    return true;
}
