#include "FormViewer.h"

#include "FormEntry.h"
#include "ListText.h"
#include "UListBox.h"
#include "UListBoxItem.h"
#include "UMessageDlg.h"

namespace vtmenu {

FormViewer::FormViewer(FormEntry* form, QWidget* parent, const QString& caption, const QString& instruction)
    : USingleSelectDlg(caption, instruction, parent, nullptr, true, 0, 0), mForm(form)
{
}

void FormViewer::show()
{
    UListBox* list = getListBox();
    list->clear();
    const int count = mForm->optionCount();
    for (int i = 0; i < count; ++i) {
        auto* item = new UListBoxItem(list, QString());
        const std::string choice = mForm->optionLabel(i);
        const bool available = !ListText::isDisabled(choice);
        item->appendSubItem(1, QString::fromUtf8(ListText::label(choice)), false, QPixmap());
        item->setEnabled(available);
        item->setSelectable(available);
        list->insertItem(item, -1, true);
    }
    list->checkItem(mForm->currentIndex(), true);
    UPopup::show();
}

bool FormViewer::close(bool alsoDelete)
{
    if (mWarning)
        mWarning->close(false);
    return USingleSelectDlg::close(alsoDelete);
}

void FormViewer::applyChoice()
{
    const int choice = getListBox()->radioItemChecked();
    if (mForm->needsWarning(choice)) {
        const QString label = QString::fromUtf8(mForm->warningLabel());
        const QString text = QString::fromUtf8(mForm->warningText());
        UMessageDlg warning(label, text, 0, 0, nullptr, nullptr);
        mWarning = &warning;
        const bool accepted = warning.exec() == 1;
        mWarning = nullptr;
        if (!accepted)
            return;
    }
    if (mForm->setValue(choice))
        emit valueChanged();
}

} // namespace vtmenu
