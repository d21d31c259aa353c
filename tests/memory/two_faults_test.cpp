// Two threads fail at once: wherever the run-time's look-up of one exception is interrupted, the other
// thread's fault comes to its end too, at once or after waiting for the first.
#include <atomic>
#include <thread>

#include "automation/fault.h"
#include "memory/event.h"
#include "memory/fresh_library.h"
#include "support/import_table.h"

namespace {

using namespace host;

/// The first thread stops behind one of the locks that it gives back, until the second is done or waits for
/// it.
struct Encounter {
  static inline std::atomic<DWORD> first_thread;
  static inline unsigned stop_at;
  static inline std::atomic<unsigned> given_back;
  static inline std::atomic<bool> was_awaited;
  static inline const Event* stopped;
  static inline const Event* resumed;

  static void WINAPI give_back(SRWLOCK* lock) {
    ReleaseSRWLockExclusive(lock);
    if (GetCurrentThreadId() != first_thread || ++given_back != stop_at) return;
    stopped->set();
    EXPECT_TRUE(resumed->comes()) << "the second thread neither ends nor waits";
  }
  static BOOL WINAPI wait(CONDITION_VARIABLE* condition, SRWLOCK* lock, DWORD time, ULONG flags) {
    was_awaited = true;
    resumed->set();
    return SleepConditionVariableSRW(condition, lock, time, flags);
  }
};

class TwoFaults : public ::testing::Test {
 protected:
  /// A text that is no date, with an instance of the calling thread's own.
  [[nodiscard]] HRESULT fail() const {
    ComPtr<_ContratDoc> contracts;
    EXPECT_EQ(S_OK, library_.create<::ContratDoc>(contracts));
    Text result;
    const HRESULT code = contracts->CadFactPeriod_GetEndFromNextStart(Text(L"bientôt"), &result);
    EXPECT_NE(L"", take_error().description);
    return code;
  }

  /// Both faults, the first one stopped at its lock of that number; false when it has not so many.
  bool meet_at(unsigned number) {
    const Event stopped, resumed;
    Encounter::stopped = &stopped;
    Encounter::resumed = &resumed;
    Encounter::stop_at = number;
    Encounter::given_back = 0;
    HRESULT first_code = S_OK, second_code = S_OK;
    std::thread first([&] {
      Encounter::first_thread = GetCurrentThreadId();
      first_code = fail();
      Encounter::first_thread = 0;
      stopped.set();
    });
    std::thread second([&] {
      EXPECT_TRUE(stopped.comes());
      second_code = fail();
      resumed.set();
    });
    first.join();
    second.join();
    EXPECT_EQ(velmosav::fault_code(velmosav::Fault::TypeMismatch), first_code) << number;
    EXPECT_EQ(velmosav::fault_code(velmosav::Fault::TypeMismatch), second_code) << number;
    return Encounter::given_back >= number;
  }

 private:
  const LibraryCopy copy_;
  const FreshLibrary library_{copy_};
  const ReplacedImport give_back_{library_.module(), "ReleaseSRWLockExclusive", Encounter::give_back};
  const ReplacedImport wait_{library_.module(), "SleepConditionVariableSRW", Encounter::wait};
};

TEST_F(TwoFaults, WhereverTheFirstIsInterrupted_BothAreAnswered) {
  ASSERT_EQ(velmosav::fault_code(velmosav::Fault::TypeMismatch), fail());  // sets up what is set up once
  Encounter::was_awaited = false;
  unsigned number = 1;
  while (meet_at(number) && !HasFailure()) ++number;
  EXPECT_GT(number, 10U) << "the exception is looked up without locks";
  EXPECT_TRUE(Encounter::was_awaited) << "no place where the second had to wait";
}

}  // namespace
