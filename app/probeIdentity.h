#pragma once

// True when the subscriber identity (IMSI) can be read and is not empty. A missing telephone number (MSISDN) is
// only logged.
bool probeIdentity();
