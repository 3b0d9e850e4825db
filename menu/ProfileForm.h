#pragma once

#include "ApiOptionForm.h"

// The operator profile under which the service runs. Every choice is confirmed first; once one is made, this
// form and all others are disabled.
class ProfileForm : public ApiOptionForm
{
public:
    ProfileForm();

    bool isHidden() const override;
    std::string instructText() const override;
    std::string warningLabel() const override;
    std::string warningText() const override;
    bool needsWarning(int i) const override;
};
