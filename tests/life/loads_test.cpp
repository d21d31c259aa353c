// The DLL loaded, used and unloaded over and over: nothing of the process grows with it.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "life/host_run.h"
#include "life/usage.h"
#include "support/reliability.h"

namespace {

int number_of_loads = 300;
bool is_long_run = false;

/// What a process has a limited number of.
struct Holdings {
  long handles, memory, blocks, atoms, window_classes, thread_slots, fiber_slots;
};

/// The indexes that can still be had.
template <class Index, class Take, class Give>
long free_slots(Index none, Take take, Give give) {
  std::vector<Index> taken;
  for (Index index = take(); index != none; index = take()) taken.push_back(index);
  for (const Index index : taken) give(index);
  return static_cast<long>(taken.size());
}

/// Memory of every heap and mapping: what is left of the address space, in pages.
long used_memory() {
  MEMORYSTATUS status{};
  GlobalMemoryStatus(&status);
  return static_cast<long>((status.dwTotalVirtual - status.dwAvailVirtual) >> 12);
}

/// Blocks of every heap of the process.
long living_blocks() {
  HANDLE heaps[64];
  const DWORD count = std::min(GetProcessHeaps(64, heaps), DWORD{64});
  long blocks = 0;
  for (DWORD i = 0; i < count; ++i) {
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry)) blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
  }
  return blocks;
}

/// The highest of some new handles: they fill the gaps between those that are held, then come behind them.
long highest_handle() {
  std::vector<HANDLE> taken;
  for (int i = 0; i < 64; ++i) taken.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  std::uintptr_t highest = 0;
  for (const HANDLE handle : taken) {
    highest = std::max(highest, reinterpret_cast<std::uintptr_t>(handle));
    CloseHandle(handle);
  }
  return static_cast<long>(highest);
}

Holdings holdings() {
  Holdings result{};
  result.handles = highest_handle();
  wchar_t name[256];
  for (UINT atom = 0xC000; atom < 0x10000; ++atom) {
    result.atoms += GetClipboardFormatNameW(atom, name, 256) != 0;
    result.atoms += GlobalGetAtomNameW(static_cast<ATOM>(atom), name, 256) != 0;
    WNDCLASSW description;
    result.window_classes += GetClassInfoW(nullptr, MAKEINTATOM(atom), &description) != 0;
  }
  result.thread_slots = free_slots(TLS_OUT_OF_INDEXES, TlsAlloc, TlsFree);
  result.fiber_slots = free_slots(
      FLS_OUT_OF_INDEXES, [] { return FlsAlloc(nullptr); }, FlsFree);
  result.memory = used_memory();
  result.blocks = living_blocks();
  return result;
}

/// One life of the DLL: an object is made, called early- and late-bound, released. Whether all was right.
bool load_and_unload() {
  const HMODULE module = LoadLibraryW(host::library_path().c_str());
  if (!module) return false;
  const auto entry = [&](const char* name) { return reinterpret_cast<void*>(GetProcAddress(module, name)); };
  const auto class_object = reinterpret_cast<decltype(&DllGetClassObject)>(entry("DllGetClassObject"));
  const auto can_unload = reinterpret_cast<decltype(&DllCanUnloadNow)>(entry("DllCanUnloadNow"));
  bool right = true;
  {
    host::ComPtr<IClassFactory> factory;
    host::ComPtr<_Outil> tools;
    right = SUCCEEDED(class_object(__uuidof(::Outil), IID_IClassFactory, factory.receive_void())) &&
            SUCCEEDED(factory->CreateInstance(nullptr, __uuidof(_Outil), tools.receive_void())) &&
            life::use(tools.get(), host::catalogue()[15]) && can_unload() == S_FALSE;
  }
  SetErrorInfo(0, nullptr);
  right = right && can_unload() == S_OK;
  FreeLibrary(module);
  return right && !GetModuleHandleW(L"VelmoSAV_DLL14.dll");
}

void write_figures(const Holdings& before, const Holdings& after) {
  const auto row = [](const char* what, long start, long end) {
    return std::vector<std::string>{what, std::to_string(start), std::to_string(end)};
  };
  host::write_piece(
      "60-life",
      {"Loads and unloads",
       "The DLL is loaded, an object made, used early- and late-bound and released, and the DLL unloaded, " +
           std::to_string(number_of_loads) +
           " times in one process. What the process has a limited number of is counted before and after.",
       {"What", "Before", "After"},
       {row("highest number of a handle", before.handles, after.handles),
        row("pages of the address space in use", before.memory, after.memory),
        row("blocks in the heaps", before.blocks, after.blocks), row("atoms", before.atoms, after.atoms),
        row("window classes", before.window_classes, after.window_classes),
        row("free slots of thread-local storage", before.thread_slots, after.thread_slots),
        row("free slots of fiber-local storage", before.fiber_slots, after.fiber_slots)}});
}

TEST(Loads, OverAndOver_LeaveTheProcessAsItWas) {
  CoFreeUnusedLibrariesEx(0, 0);
  ASSERT_STREQ(L"Outil", host::catalogue()[15].name);
  for (int i = 0; i < 30; ++i) ASSERT_TRUE(load_and_unload());  // what the platform sets up once
  const Holdings before = holdings();
  for (int i = 0; i < number_of_loads; ++i) ASSERT_TRUE(load_and_unload()) << i;
  const Holdings after = holdings();
  EXPECT_EQ(before.handles, after.handles);
  EXPECT_EQ(before.atoms, after.atoms);
  EXPECT_EQ(before.window_classes, after.window_classes);
  EXPECT_EQ(before.thread_slots, after.thread_slots);
  EXPECT_EQ(before.fiber_slots, after.fiber_slots);
  if (is_long_run) write_figures(before, after);
  // The platform keeps a block of its own for some of the loads, of any DLL.
  EXPECT_GT(before.blocks + number_of_loads / 2, after.blocks);
  EXPECT_GE(before.memory + std::max(64L, number_of_loads * 16L / 4096), after.memory);
}

}  // namespace

void life::run_long(int loads) {
  number_of_loads = loads;
  is_long_run = true;
}
