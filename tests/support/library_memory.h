// The memory that the DLL asks for: its imports of the C run-time's allocator and of every platform function
// that allocates are replaced in its import table, so that they can be counted, refused and placed on guard
// pages. What the test itself allocates goes its own way.
//
//   LibraryMemory memory(GetModuleHandleW(L"VelmoSAV_DLL14.dll"));
//   memory.refuse(3, LibraryMemory::Refusal::Once);
//   HRESULT code = object->Method(...);   its third allocation fails
//   memory.allow();
#pragma once

#include "automation/platform.h"

#include <cstddef>
#include <string>
#include <vector>

namespace host {

/// Several at one time share what they count and refuse.
class LibraryMemory {
 public:
  explicit LibraryMemory(HMODULE module);
  /// The import table is as before; blocks that the DLL still holds stay where they are, so those on guard
  /// pages must have been freed.
  ~LibraryMemory();
  LibraryMemory(const LibraryMemory&) = delete;
  LibraryMemory& operator=(const LibraryMemory&) = delete;

  /// Blocks of the C run-time that the DLL allocated since the replacement and has not freed yet.
  [[nodiscard]] std::size_t living() const;

  enum class Refusal { Once, FromThenOn };
  /// The allocation number `first`, from 1, counted from this call on, fails.
  void refuse(std::size_t first, Refusal refusal);
  void allow();
  /// Allocations, counted from the last refuse() on, refused ones included.
  [[nodiscard]] std::size_t asked() const;
  /// The function that was refused first since then; empty when none was.
  [[nodiscard]] std::string refused() const;

  /// Places the DLL's blocks of the C run-time on guard pages from now on or no longer.
  void guard(bool guarded);

  /// The functions that can be refused.
  static std::vector<std::string> refusable();
  /// The functions that the DLL imports from other DLLs.
  static std::vector<std::string> imports_of(HMODULE module);

 private:
  struct Replaced {
    void** slot;
    void* former;
  };
  std::vector<Replaced> replaced_;
  bool was_guarding_;
};

}  // namespace host
