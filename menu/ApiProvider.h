#pragma once

#include "Vt_EventHandler.h"

// Fills the ApiRegistry, and follows the service's events for the texts that depend on them.
class ApiProvider : public Vt_EventHandler
{
public:
    // The process-wide provider, built by the first call. Call it before any menu is shown.
    static ApiProvider* instance();
    // Destroys it, if it was built: at the end of the process, after the application object is gone. What the next run
    // starts with is written then.
    static void tearDown();

    // Subscribes, registers the functions and reads "/tmp/vtmem". The functions and what they know are the
    // process's: a second provider would change the same ones.
    ApiProvider();
    // Unsubscribes and writes "/tmp/vtmem"; the functions stay registered.
    ~ApiProvider() override;

    void handleEvent(const Vt_Event& event) override;
};
