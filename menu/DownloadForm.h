#pragma once

#include "TableForm.h"

// When the service may download content.
class DownloadForm : public TableForm<int>
{
public:
    DownloadForm();
};
