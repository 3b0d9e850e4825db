#pragma once

#include "TableForm.h"

// The speed at which the headlines scroll.
class ScrollingForm : public TableForm<int>
{
public:
    ScrollingForm();
};
