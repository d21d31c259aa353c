#include "tools/object_address.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "automation/fault.h"

namespace velmosav {
namespace {

constexpr DWORD kReadable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                            PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
constexpr DWORD kExecutable =
    PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
constexpr std::size_t kDispatchSlots = 7;

/// The memory around an address; asked of the platform again only for addresses outside what it told last.
class Region {
 public:
  /// Whether `size` bytes at an address are committed memory with one of the protections.
  bool has_access(const void* address, std::size_t size, DWORD protections) {
    const auto first = reinterpret_cast<std::uintptr_t>(address);
    if (first - base() >= region_.RegionSize && VirtualQuery(address, &region_, sizeof region_) == 0) {
      return false;
    }
    if (region_.State != MEM_COMMIT || (region_.Protect & PAGE_GUARD) || !(region_.Protect & protections)) {
      return false;
    }
    return region_.RegionSize - (first - base()) >= size;
  }

 private:
  [[nodiscard]] std::uintptr_t base() const { return reinterpret_cast<std::uintptr_t>(region_.BaseAddress); }

  MEMORY_BASIC_INFORMATION region_{};
};

bool looks_like_object(const void* address) {
  Region region;
  if (!region.has_access(address, sizeof(void*), kReadable)) return false;
  const auto* const* vtable = *static_cast<const void* const* const*>(address);
  if (!region.has_access(vtable, kDispatchSlots * sizeof(void*), kReadable)) return false;
  const void* slots[kDispatchSlots];
  std::copy_n(vtable, kDispatchSlots, slots);
  return std::all_of(std::begin(slots), std::end(slots),
                     [&region](const void* slot) { return region.has_access(slot, 1, kExecutable); });
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
