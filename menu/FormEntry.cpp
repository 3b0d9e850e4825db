#include "FormEntry.h"

bool FormEntry::isChange(int i) const
{
    const int count = optionCount();
    return i < count && (count == 1 || i != currentIndex());
}
