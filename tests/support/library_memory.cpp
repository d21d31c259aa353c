#include "support/library_memory.h"

#include <ole2.h>
#include <oleauto.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <type_traits>
#include <unordered_set>
#include <utility>

#include "support/guard_pages.h"
#include "support/import_table.h"

namespace host {
namespace {

/// What the replacements share: they are plain functions.
struct State {
  std::mutex mutex;
  std::unordered_set<const void*> living;
  bool guarding = false;
  bool refusing = false;
  LibraryMemory::Refusal refusal = LibraryMemory::Refusal::Once;
  std::size_t first = 0;
  std::size_t asked = 0;
  const char* refused = nullptr;
};

State& state() {
  static auto* const instance = new State;  // outlives the DLL's own end
  return *instance;
}

/// Counts one allocation; true when it shall fail.
bool is_refused(const char* function) {
  State& now = state();
  const std::lock_guard lock(now.mutex);
  if (!now.refusing) return false;
  ++now.asked;
  const bool fails =
      now.refusal == LibraryMemory::Refusal::Once ? now.asked == now.first : now.asked >= now.first;
  if (fails && !now.refused) now.refused = function;
  return fails;
}

// --- the C run-time

void* allocate(std::size_t size) {
  State& now = state();
  void* block = now.guarding ? guard::allocate(size) : nullptr;
  if (!block) block = std::malloc(size);
  const std::lock_guard lock(now.mutex);
  if (block) now.living.insert(block);
  return block;
}

void release(void* block) {
  if (!block) return;
  State& now = state();
  {
    const std::lock_guard lock(now.mutex);
    now.living.erase(block);
  }
  if (guard::owns(block)) {
    guard::release(block);
  } else {
    std::free(block);
  }
}

void* __cdecl replaced_malloc(std::size_t size) { return is_refused("malloc") ? nullptr : allocate(size); }

void* __cdecl replaced_calloc(std::size_t count, std::size_t size) {
  if (is_refused("calloc")) return nullptr;
  void* const block = allocate(count * size);
  if (block) std::memset(block, 0, count * size);
  return block;
}

void* __cdecl replaced_realloc(void* block, std::size_t size) {
  if (is_refused("realloc")) return nullptr;
  if (!block) return allocate(size);
  if (size == 0) {
    release(block);
    return nullptr;
  }
  if (!state().guarding && !guard::owns(block)) {
    void* const moved = std::realloc(block, size);
    State& now = state();
    const std::lock_guard lock(now.mutex);
    if (moved && now.living.erase(block)) now.living.insert(moved);
    return moved;
  }
  void* const moved = allocate(size);
  if (!moved) return nullptr;
  const std::size_t former = guard::owns(block) ? guard::size_of(block) : _msize(block);
  std::memcpy(moved, block, std::min(size, former));
  release(block);
  return moved;
}

void __cdecl replaced_free(void* block) { release(block); }

// --- the platform

/// The DLL's own address of each replaced function.
template <class Tag>
void* original = nullptr;

template <class Tag, class Signature>
struct Replacement;

template <class Tag, class Result, class... Arguments>
struct Replacement<Tag, Result WINAPI(Arguments...)> {
  static Result WINAPI call(Arguments... arguments) {
    if (is_refused(Tag::name)) return static_cast<Result>(Tag::refusal());
    return reinterpret_cast<Result(WINAPI*)(Arguments...)>(original<Tag>)(arguments...);
  }
};

constexpr LSTATUS kNoMemory = ERROR_OUTOFMEMORY;  // what HRESULT_FROM_WIN32 turns into E_OUTOFMEMORY

// Every import of the DLL that allocates, with the answer that says so.
#define REFUSABLE_FUNCTIONS(FUNCTION)                \
  FUNCTION(SysAllocStringLen, nullptr)               \
  FUNCTION(SysReAllocStringLen, FALSE)               \
  FUNCTION(SafeArrayCreate, nullptr)                 \
  FUNCTION(SafeArrayCreateEx, nullptr)               \
  FUNCTION(SafeArrayCreateVector, nullptr)           \
  FUNCTION(SafeArrayRedim, E_OUTOFMEMORY)            \
  FUNCTION(VariantCopy, E_OUTOFMEMORY)               \
  FUNCTION(VariantChangeTypeEx, E_OUTOFMEMORY)       \
  FUNCTION(VarBstrFromCy, E_OUTOFMEMORY)             \
  FUNCTION(VarBstrFromDate, E_OUTOFMEMORY)           \
  FUNCTION(VarBstrFromR8, E_OUTOFMEMORY)             \
  FUNCTION(VarDateFromStr, E_OUTOFMEMORY)            \
  FUNCTION(VarFormat, E_OUTOFMEMORY)                 \
  FUNCTION(GetRecordInfoFromTypeInfo, E_OUTOFMEMORY) \
  FUNCTION(LoadTypeLibEx, E_OUTOFMEMORY)             \
  FUNCTION(RegisterTypeLib, E_OUTOFMEMORY)           \
  FUNCTION(UnRegisterTypeLib, E_OUTOFMEMORY)         \
  FUNCTION(CLSIDFromProgID, E_OUTOFMEMORY)           \
  FUNCTION(CoCreateInstance, E_OUTOFMEMORY)          \
  FUNCTION(CreateErrorInfo, E_OUTOFMEMORY)           \
  FUNCTION(RegCreateKeyExW, kNoMemory)               \
  FUNCTION(RegSetValueExW, kNoMemory)                \
  FUNCTION(RegDeleteTreeW, kNoMemory)

#define TAG(function, answer)                      \
  struct function##_tag {                          \
    static constexpr const char* name = #function; \
    static auto refusal() { return answer; }       \
  };
REFUSABLE_FUNCTIONS(TAG)
#undef TAG

struct Import {
  const char* name;
  void* replacement;
  void** original;
};

template <class Function>
void* address_of(Function* function) {
  return reinterpret_cast<void*>(function);
}

const std::vector<Import>& replaced_imports() {
  static void* unused[4];
  static const std::vector<Import> list{{"malloc", address_of(replaced_malloc), &unused[0]},
                                        {"calloc", address_of(replaced_calloc), &unused[1]},
                                        {"realloc", address_of(replaced_realloc), &unused[2]},
                                        {"free", address_of(replaced_free), &unused[3]},
#define ENTRY(function, answer)                                                     \
  {#function, address_of(&Replacement<function##_tag, decltype(::function)>::call), \
   &original<function##_tag>},
                                        REFUSABLE_FUNCTIONS(ENTRY)
#undef ENTRY
  };
  return list;
}

}  // namespace

LibraryMemory::LibraryMemory(HMODULE module) : was_guarding_(state().guarding) {
  for_each_import(module, [this](const char* name, void** slot) {
    for (const Import& import : replaced_imports()) {
      if (std::strcmp(import.name, name) != 0 || *slot == import.replacement) continue;
      *import.original = *slot;
      replaced_.push_back({slot, write_import(slot, import.replacement)});
    }
  });
}

LibraryMemory::~LibraryMemory() {
  allow();
  guard(was_guarding_);
  for (const Replaced& replaced : replaced_) write_import(replaced.slot, replaced.former);
  if (replaced_.empty()) return;
  const std::lock_guard lock(state().mutex);
  state().living.clear();
}

std::size_t LibraryMemory::living() const {
  const std::lock_guard lock(state().mutex);
  return state().living.size();
}

void LibraryMemory::refuse(std::size_t first, Refusal refusal) {
  State& now = state();
  const std::lock_guard lock(now.mutex);
  now.refusing = true;
  now.refusal = refusal;
  now.first = first;
  now.asked = 0;
  now.refused = nullptr;
}

void LibraryMemory::allow() {
  const std::lock_guard lock(state().mutex);
  state().refusing = false;
}

std::size_t LibraryMemory::asked() const { return state().asked; }

std::string LibraryMemory::refused() const { return state().refused ? state().refused : ""; }

void LibraryMemory::guard(bool guarded) { state().guarding = guarded; }

std::vector<std::string> LibraryMemory::refusable() {
  std::vector<std::string> names;
  for (const Import& import : replaced_imports()) {
    if (std::strcmp(import.name, "free") != 0) names.emplace_back(import.name);
  }
  return names;
}

std::vector<std::string> LibraryMemory::imports_of(HMODULE module) {
  std::vector<std::string> names;
  for_each_import(module, [&](const char* name, void**) { names.emplace_back(name); });
  return names;
}

}  // namespace host
