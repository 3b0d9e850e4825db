#pragma once

#include "ApiOptionForm.h"

// The operator profile under which the service runs. A choice in the dialog is confirmed first; once one is made, this
// entry, the other forms and the page of details are disabled.
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
