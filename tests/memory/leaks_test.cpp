// Every call of the catalogue, a thousand times: texts, arrays and task memory of the whole process and the
// DLL's own blocks are no more afterwards than they were before.
//
// Calls of some milliseconds (XML documents, the walk over a VAT table, all variables of a class) are made a
// hundred times: a leak would show a hundred blocks.
#include <algorithm>

#include "memory/figures.h"
#include "memory/library_under_test.h"

namespace {

using namespace host;

/// Blocks in use in all heaps of the process: what the platform allocates for an object that was not released
/// shows here.
std::size_t heap_blocks() {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  std::size_t blocks = 0;
  for (DWORD i = 0; i < count && i < 64; ++i) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heaps[i]);
    while (HeapWalk(heaps[i], &entry)) blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    HeapUnlock(heaps[i]);
  }
  return blocks;
}

class Leaks : public CatalogueTest {};

TEST_P(Leaks, AThousandCallsLeaveNoBlock) {
  for (int i = 0; i < 2; ++i) ASSERT_EQ(call_.outcome, make());  // what is allocated once
  const std::size_t heaps_before = heap_blocks();
  const std::size_t own_before = memory_.living();
  const std::size_t before = allocations_.outstanding();
  for (unsigned i = 0; i < call_.repetitions; ++i) ASSERT_EQ(call_.outcome, make());
  EXPECT_EQ(before, allocations_.outstanding()) << "texts, arrays, task memory";
  EXPECT_EQ(own_before, memory_.living()) << "blocks of the DLL";
  // Caches of the platform come and go; one block a call would be a leak.
  EXPECT_LT(heap_blocks(), heaps_before + call_.repetitions / 2) << "objects of the platform";
  figures().calls += call_.repetitions;
}

INSTANTIATE_FOR_CATALOGUE(Leaks);

// What would prove nothing if it saw nothing.

TEST(LibraryMemory, ABlockThatTheDllKeepsIsCounted) {
  LibraryMemory memory(registered_library());
  const std::size_t before = memory.living();
  const auto object = create_dispatch(L"General");
  EXPECT_EQ(before + 1, memory.living());
}

TEST(LibraryMemory, EveryFunctionThatCanBeRefusedIsImported) {
  const auto imports = LibraryMemory::imports_of(registered_library());
  for (const std::string& name : LibraryMemory::refusable()) {
    EXPECT_EQ(1, std::count(imports.begin(), imports.end(), name)) << name;
  }
}

TEST(LibraryMemory, EveryAllocatingImportCanBeRefused) {
  const auto refusable = LibraryMemory::refusable();
  for (const std::string& name : LibraryMemory::imports_of(registered_library())) {
    bool allocates = false;
    for (const char* kind :
         {"SysAlloc", "SysReAlloc", "SafeArrayCreate", "SafeArrayAlloc", "SafeArrayCopy", "SafeArrayRedim",
          "CoTaskMemAlloc", "CoTaskMemRealloc", "HeapAlloc", "HeapReAlloc", "VariantCopy",
          "VariantChangeType", "VarBstrFrom", "VarFormat", "LocalAlloc", "GlobalAlloc", "VirtualAlloc",
          "CoCreateInstance", "CreateErrorInfo"}) {
      allocates = allocates || name.starts_with(kind);
    }
    for (const char* own : {"malloc", "calloc", "realloc", "_strdup", "_wcsdup"})
      allocates = allocates || name == own;
    if (allocates) {
      EXPECT_EQ(1, std::count(refusable.begin(), refusable.end(), name)) << name;
    }
  }
}

}  // namespace
