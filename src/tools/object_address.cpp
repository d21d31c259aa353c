#include "tools/object_address.h"

#include <cstdint>

#include "automation/fault.h"

namespace velmosav {
namespace {

constexpr DWORD kReadable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                            PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
constexpr DWORD kExecutable =
    PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
constexpr std::size_t kDispatchSlots = 7;

/// Whether `size` bytes at an address are committed memory with one of the protections.
bool has_access(const void* address, std::size_t size, DWORD protections) {
  MEMORY_BASIC_INFORMATION region;
  if (VirtualQuery(address, &region, sizeof region) == 0) return false;
  if (region.State != MEM_COMMIT || (region.Protect & PAGE_GUARD) || !(region.Protect & protections))
    return false;
  const auto end = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
  return static_cast<std::size_t>(end - static_cast<const char*>(address)) >= size;
}

bool looks_like_object(const void* address) {
  if (!has_access(address, sizeof(void*), kReadable)) return false;
  const auto* const* vtable = *static_cast<const void* const* const*>(address);
  if (!has_access(vtable, kDispatchSlots * sizeof(void*), kReadable)) return false;
  for (std::size_t i = 0; i < kDispatchSlots; ++i) {
    if (!has_access(vtable[i], 1, kExecutable)) return false;
  }
  return true;
}

}  // namespace

ComPtr<IDispatch> object_at(long address) {
  if (address == 0) return nullptr;
  auto* object =
      reinterpret_cast<IDispatch*>(static_cast<std::uintptr_t>(static_cast<unsigned long>(address)));
  if (address % static_cast<long>(sizeof(void*)) != 0 || !looks_like_object(object))
    raise(Fault::ObjectNotSet);
  return ComPtr<IDispatch>::copy(object);
}

}  // namespace velmosav
