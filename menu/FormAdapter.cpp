#include "FormAdapter.h"

#include "ListText.h"

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
