#pragma once

#include "TableForm.h"

// When the service may download content.
class DownloadForm : public TableForm<int>
{
public:
    DownloadForm();

    // The key of the label of a stored option; null when there is no such option.
    static const char* labelKey(int option);
};
