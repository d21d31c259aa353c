// The functions that a DLL imports from others: their places in its import table, and replacing one.
//
//   const ReplacedImport read(module, "ReadFile", refuse_to_read);   until the end of the scope
#pragma once

#include "automation/platform.h"

#include <functional>
#include <vector>

namespace host {

/// Calls visit(name, place) for every function that a module imports by name.
void for_each_import(HMODULE module, const std::function<void(const char* name, void** place)>& visit);

/// Puts an address into a place of an import table; the one that stood there.
void* write_import(void** place, void* address);

/// One function replaced by another of the same type.
class ReplacedImport {
 public:
  template <class Function>
  ReplacedImport(HMODULE module, const char* name, Function* replacement)
      : ReplacedImport(module, name, reinterpret_cast<void*>(replacement)) {}
  ReplacedImport(HMODULE module, const char* name, void* replacement);
  ~ReplacedImport();
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;

 private:
  std::vector<void**> places_;
  void* former_ = nullptr;
};

}  // namespace host
