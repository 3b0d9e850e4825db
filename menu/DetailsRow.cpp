#include "DetailsRow.h"

#include "ApiRegistry.h"
#include "MenuSettings.h"

std::string DetailsRow::label() const
{
    return MenuSettings::text(mLabelKey);
}

std::string DetailsRow::valueText() const
{
    return ApiRegistry::instance()->text(mApiName);
}
