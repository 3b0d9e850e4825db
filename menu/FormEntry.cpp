#include "FormEntry.h"

#include "ListText.h"

bool FormEntry::isChange(int i) const
{
    const int count = optionCount();
    return i < count && (count == 1 || i != currentIndex());
}

bool FormAdapter::hasValue() const
{
    mForm->reload();
    return mForm->optionCount() > 1;
}

std::string FormAdapter::valueText() const
{
    const std::string text = mForm->optionLabel(mForm->currentIndex());
    return ListText::isDisabled(text) ? std::string() : text;
}
