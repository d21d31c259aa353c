// What the component writes into the registry, and its removal.
//
// The component stands in where the host's own is not installed. A ProgID that already leads to another class
// stays as it is: registering then writes nothing and answers S_FALSE, which regsvr32 and installers take as
// success. Removal takes away the component's class, and the ProgID only when it leads to that class.
#pragma once

#include "automation/platform.h"

namespace popupmenu {

/// {57F0AA60-D385-429C-A9FB-8D5D18AAACD4}, fixed once.
inline constexpr CLSID kClass{0x57f0aa60, 0xd385, 0x429c, {0xa9, 0xfb, 0x8d, 0x5d, 0x18, 0xaa, 0xac, 0xd4}};

/// Writes CLSID, ProgID, server path and apartment model; a failure undoes what was written.
HRESULT register_component() noexcept;

/// Keys that are missing already are no failure.
HRESULT unregister_component() noexcept;

}  // namespace popupmenu
