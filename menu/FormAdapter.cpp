#include "FormAdapter.h"

bool FormAdapter::hasValue() const
{
    mForm->reload();
    return mForm->optionCount() > 1;
}

std::string FormAdapter::valueText() const
{
    const std::string text = mForm->optionLabel(mForm->currentIndex());
    return text.starts_with(FormEntry::disabledMark) ? std::string() : text;
}
