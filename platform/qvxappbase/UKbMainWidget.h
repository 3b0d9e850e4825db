#pragma once

#include "UMainWidget.h"

// A main window for phones with a keypad; on this host there is no other kind.
class UKbMainWidget : public UMainWidget
{
    Q_OBJECT

public:
    using UMainWidget::UMainWidget;
};
