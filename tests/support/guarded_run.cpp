#include "support/guarded_run.h"

#include "support/allocations.h"
#include "support/guard_pages.h"
#include "support/library_memory.h"

namespace host {

void guard_all_memory() {
  guard::report_faults();
  const auto object = create_dispatch(L"General");
  // Kept: the DLL frees its last blocks when it goes.
  static auto* const memory = new LibraryMemory(GetModuleHandleW(L"VelmoSAV_DLL14.dll"));
  memory->guard(true);
  Allocations::guard(true);
}

}  // namespace host
