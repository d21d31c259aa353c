// Defines the identifiers that the contract's header declares (LIBID_..., IID_..., CLSID_...).
#include "automation/platform.h"

#include <initguid.h>

#include <VelmoSAV_DLL14.h>
