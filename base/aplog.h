#pragma once

#include <cstdio>

// The platform log: one stream that every module of a registered program writes its lines to.

// The stream of the registered module, or null, in which case lines go to standard output. Owned by this
// library; a program may point it at another stream that outlives it.
extern "C" FILE* libaplog_to_module_ptr;

// Registers the program under `module` and opens its stream: the file named by VISTANE_LOG, which is appended
// to; once it has 1 MB, it is renamed to NAME.1, in place of the one before, and a new one begins. A pipe that nobody
// reads, or that is full, loses lines rather than hold up the program. Without that variable, or when the file can't be opened (said once on standard error), the stream stays
// null. Lines reach the file or standard output one by one. `flags` means nothing on this host. Always returns
// 0.
extern "C" int _aplog_init_orig(const char* module, int flags);
