// What the library writes into the registry, and its removal.
#pragma once

#include "automation/platform.h"

namespace velmosav {

/// Registers the type library (with the interfaces) and every class: CLSID, ProgID, server path, apartment
/// model. A failure leaves the registry as it was: an earlier registration stays, a first one leaves nothing.
HRESULT register_library() noexcept;

/// Removes what register_library wrote. Keys that are missing already are no failure.
HRESULT unregister_library() noexcept;

}  // namespace velmosav
