#pragma once

/// A host whose locale has a comma for a decimal point: what a system calls it differs.

#if defined(_WIN32)
#include "support/german_process_windows.h"
#else
#include "support/german_process_posix.h"
#endif
