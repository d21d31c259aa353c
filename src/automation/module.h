// The DLL as a whole: where it is, what keeps it loaded, its own type library.
#pragma once

#include "automation/platform.h"

#include <string>

#include "automation/com_ptr.h"

namespace velmosav::module {

/// Keeps the DLL loaded while it lives: held by every object and every class factory.
class Reference {
 public:
  Reference() noexcept;
  ~Reference();
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;
};

/// A lock that a host takes and gives back through the class factory.
void lock() noexcept;
void unlock() noexcept;

/// True when no object and no lock is left. What was cached for late-bound use is let go then.
bool can_unload() noexcept;

HINSTANCE instance() noexcept;
/// Full path of the DLL.
std::wstring path();

/// The library's own type library, from the DLL's resource (registration is not needed).
ComPtr<ITypeLib> type_library();

/// Announces that a cache is no longer empty: `release` is called when no object is left. A cache may say so
/// again. Under the CacheLock.
void on_idle(void (*release)() noexcept) noexcept;

/// Held while a cache is read or filled, so that it is not let go meanwhile.
class CacheLock {
 public:
  CacheLock() noexcept;
  ~CacheLock();
  CacheLock(const CacheLock&) = delete;
  CacheLock& operator=(const CacheLock&) = delete;
};

}  // namespace velmosav::module
