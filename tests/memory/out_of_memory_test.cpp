// Memory runs out inside the DLL: for every call of the catalogue its first allocation is refused, then its
// second, and so on until the call needs no more; once that one alone, once with all that follow. The call
// answers E_OUTOFMEMORY (with a text where there is memory for one), the record is as before, nothing is
// leaked, and the next call works.
#include <algorithm>

#include "memory/figures.h"
#include "memory/library_under_test.h"

namespace {

using namespace host;
using Refusal = LibraryMemory::Refusal;

/// "TabCadFact(2).DateFin: a / b" is the change of "TabCadFact(2).DateFin", that of a grid's cell one of the
/// grid.
std::string place_of(const std::string& change) { return change.substr(0, change.find_first_of(":,")); }

class OutOfMemory : public CatalogueTest {
 protected:
  /// Makes the call with the memory that is left; what it leaves must be in order.
  void refuse(std::size_t number, Refusal refusal) {
    const std::size_t own_before = memory_.living();
    const std::size_t before = allocations_.outstanding();
    Scene scene(true);
    memory_.refuse(number, refusal);
    take_error();
    const HRESULT code = call_.make(scene, *object_.get());
    memory_.allow();
    refused_ = memory_.refused();
    const std::wstring text = take_error().description;
    if (refused_.empty()) {
      EXPECT_EQ(call_.outcome, code);
      return;
    }
    if (code == E_OUTOFMEMORY) {
      ++figures().answered_no_memory;
      // A late-bound call has its text in the exception.
      EXPECT_TRUE(!text.empty() || call_.late || refusal == Refusal::FromThenOn ||
                  refused_ == "CreateErrorInfo")
          << "no text, although there is memory for it";
    } else {
      EXPECT_TRUE(can_do_without(refused_)) << refused_;
      EXPECT_EQ(call_.outcome, code) << refused_;
      ++figures().did_without;
    }
    for (const std::string& change : scene.changes) EXPECT_TRUE(may_change(change, code)) << change;
    EXPECT_EQ(call_.outcome, make()) << "the next call";
    EXPECT_EQ(before, allocations_.outstanding()) << "texts, arrays, task memory";
    EXPECT_EQ(own_before, memory_.living()) << "blocks of the DLL";
    (refusal == Refusal::Once ? figures().refused_once : figures().refused_onwards) += 1;
  }

  /// Until the call needs no further allocation.
  void refuse_all(Refusal refusal) {
    for (std::size_t number = 1; number < 20000; ++number) {
      refuse(number, refusal);
      if (refused_.empty()) return;
      if (HasFailure()) FAIL() << "allocation " << number << ", " << refused_;
    }
    FAIL() << "no end";
  }

  /// A failure that is on its way goes out without error information where none can be made.
  [[nodiscard]] bool can_do_without(const std::string& function) const {
    return (FAILED(call_.outcome) || call_.skips_failures) && function == "CreateErrorInfo";
  }

  /// A call that changes its arguments step by step may have begun, and a fault leaves what it leaves.
  [[nodiscard]] bool may_change(const std::string& change, HRESULT code) const {
    return (call_.partial || code == call_.outcome) &&
           std::any_of(full_changes_.begin(), full_changes_.end(),
                       [&](const std::string& full) { return place_of(full) == place_of(change); });
  }

  /// What the call changes when there is memory.
  void note_changes() {
    ASSERT_EQ(call_.outcome, make());
    Scene scene(true);
    ASSERT_EQ(call_.outcome, make(scene));
    full_changes_ = scene.changes;
  }

  std::vector<std::string> full_changes_;
  std::string refused_;
};

TEST_P(OutOfMemory, EachAllocationRefusedOnce) {
  note_changes();
  refuse_all(Refusal::Once);
}

TEST_P(OutOfMemory, EachAllocationAndAllThatFollowRefused) {
  note_changes();
  refuse_all(Refusal::FromThenOn);
}

INSTANTIATE_FOR_CATALOGUE(OutOfMemory);

}  // namespace
