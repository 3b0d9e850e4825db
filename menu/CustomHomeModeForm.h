#pragma once

#include "TableForm.h"

// Switches the headlines on and off; off asks first.
class CustomHomeModeForm : public TableForm<std::string>
{
public:
    CustomHomeModeForm();

    std::string warningLabel() const override;
    std::string warningText() const override;
    bool needsWarning(int i) const override;
};
