// The platform's headers, in the one order in which they compile.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <oleauto.h>
