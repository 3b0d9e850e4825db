#pragma once

// The telephony client. A program that needs the subscriber's identity brackets its run with these two. On
// this host there is no modem to hold on to; both only say in the log that they were called.

// Both arguments mean nothing on this host. Returns 0.
extern "C" int TAPI_CLIENT_Init(int client, int flags);
extern "C" int TAPI_CLIENT_Fini();
