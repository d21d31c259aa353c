// Every call of the catalogue with each block of the platform's allocator and of the DLL at the end of a page
// that nothing accessible follows, and freed blocks out of reach: an overrun or a use after free ends the
// program at the instruction that does it.
#include "support/guard_pages.h"

#include <cstring>

#include "memory/figures.h"
#include "memory/library_under_test.h"

namespace {

using namespace host;

/// While it lives, blocks of the platform's allocator are placed on guard pages.
class Guarded {
 public:
  Guarded() : former_(Allocations::guard(true)) {}
  ~Guarded() { Allocations::guard(former_); }
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;

 private:
  bool former_;
};

class GuardedCalls : public CatalogueTest {};

TEST_P(GuardedCalls, StayInsideTheirBlocks) {
  constexpr int kCalls = 10;
  const Guarded guarded;
  memory_.guard(true);
  const std::size_t before = guard::count();
  object_ = create_dispatch(call_.class_name);
  EXPECT_LT(before, guard::count()) << "the object itself stands on guard pages";
  for (int i = 0; i < kCalls; ++i) EXPECT_EQ(call_.outcome, make());
  object_ = nullptr;
  figures().guarded_calls += kCalls;
  figures().guarded_blocks += guard::count() - before;
}

INSTANTIATE_FOR_CATALOGUE(GuardedCalls);

// What would prove nothing if it let everything pass.

/// Notes an access that faults inside the guarded range and makes the page accessible, so that it goes on.
struct Faults {
  Faults() : handler(AddVectoredExceptionHandler(1, note)) { count = 0; }
  ~Faults() { RemoveVectoredExceptionHandler(handler); }
  Faults(const Faults&) = delete;
  Faults& operator=(const Faults&) = delete;

  static LONG CALLBACK note(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    auto* const touched = reinterpret_cast<void*>(record.ExceptionInformation[1]);
    if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION || !guard::owns(touched)) {
      return EXCEPTION_CONTINUE_SEARCH;
    }
    count = count + 1;
    page = touched;
    VirtualAlloc(touched, 1, MEM_COMMIT, PAGE_READWRITE);
    return EXCEPTION_CONTINUE_EXECUTION;
  }

  void* handler;
  // Set behind the compiler's back.
  static inline volatile int count = 0;
  static inline void* volatile page = nullptr;
};

/// Reads and writes a byte whatever the compiler thinks of it.
void touch(char* address) {
  volatile char* const place = address;
  *place = static_cast<char>(*place + 1);
}

int faults_of_touching(char* address) {
  const Faults faults;
  touch(address);
  if (Faults::count) VirtualFree(Faults::page, 1, MEM_DECOMMIT);
  return Faults::count;
}

TEST(GuardPages, TheLastByteOfABlockCanBeTouchedTheNextCannot) {
  for (const std::size_t size : {8, 64, 4096, 10000}) {
    auto* const block = static_cast<char*>(guard::allocate(size));
    EXPECT_EQ(0, faults_of_touching(block + size - 1)) << size;
    EXPECT_EQ(1, faults_of_touching(block + size)) << size;
    guard::release(block);
  }
}

TEST(GuardPages, AFreedBlockCannotBeTouched) {
  auto* const block = static_cast<char*>(guard::allocate(100));
  guard::release(block);
  EXPECT_EQ(1, faults_of_touching(block));
}

TEST(GuardPages, ATextOfThePlatformEndsAtItsPagesEnd) {
  const Guarded guarded;
  const BSTR text = SysAllocStringLen(nullptr, 5);  // with its length and its end, 16 bytes
  EXPECT_TRUE(guard::owns(text));
  EXPECT_EQ(0, faults_of_touching(reinterpret_cast<char*>(text + 5)));
  EXPECT_EQ(1, faults_of_touching(reinterpret_cast<char*>(text + 6)));
  SysFreeString(text);
  EXPECT_EQ(1, faults_of_touching(reinterpret_cast<char*>(text)));
}

TEST(GuardPages, AnArrayThatGrowsKeepsItsElements) {
  const Guarded guarded;
  SAFEARRAYBOUND small{3, 0};
  SAFEARRAY* array = SafeArrayCreate(VT_I4, 1, &small);
  std::memset(array->pvData, 7, 12);
  SAFEARRAYBOUND bound{2000, 0};
  ASSERT_EQ(S_OK, SafeArrayRedim(array, &bound));
  EXPECT_TRUE(guard::owns(array->pvData));
  EXPECT_EQ(0x07070707L, static_cast<long*>(array->pvData)[2]);
  EXPECT_EQ(0L, static_cast<long*>(array->pvData)[3]);
  EXPECT_EQ(S_OK, SafeArrayDestroy(array));
}

}  // namespace
