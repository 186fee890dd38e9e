// The headers of the system, without the macros that take names of ours.
#pragma once

#include <windows.h>

#undef far
#undef near
#undef small
