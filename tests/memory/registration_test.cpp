// Memory runs out while the library is registered or removed: the answer is E_OUTOFMEMORY, nothing is leaked,
// and both work afterwards.
//
// All classes are written alike, some forty allocations each. The allocations of the type library and of the
// first classes are refused one by one, of the later ones each at another place of its class.
#include "frame/library.h"
#include "memory/figures.h"
#include "memory/library_under_test.h"

namespace {

using namespace host;
using Refusal = LibraryMemory::Refusal;

/// However a test ends, the library is registered afterwards.
class RegistrationWithoutMemory : public ::testing::TestWithParam<Refusal> {
 protected:
  ~RegistrationWithoutMemory() override { EXPECT_EQ(S_OK, library_.register_server()); }

  [[nodiscard]] static bool is_registered(const wchar_t* class_name) {
    CLSID clsid;
    return SUCCEEDED(CLSIDFromProgID((L"VelmoSAV_DLL14." + std::wstring(class_name)).c_str(), &clsid));
  }
  [[nodiscard]] static bool is_registered() {
    return is_registered(L"Adresses") && is_registered(L"ApiGeneral");
  }

  /// One by one at first, then in steps that meet every place of a class.
  static std::size_t after(std::size_t number) { return number < 150 ? number + 1 : number + 43; }

  /// `act` with every allocation refused in turn; `repair` makes what it needs.
  template <class Act, class Repair>
  void refuse_all(Act act, Repair repair) {
    for (std::size_t number = 1;; number = after(number)) {
      repair();
      const std::size_t before = memory_.living();
      memory_.refuse(number, GetParam());
      const HRESULT code = act();
      memory_.allow();
      SetErrorInfo(0, nullptr);
      EXPECT_EQ(before, memory_.living()) << number;
      if (memory_.refused().empty()) {
        EXPECT_EQ(S_OK, code);
        return;
      }
      ++figures().cold_refusals;
      ASSERT_EQ(E_OUTOFMEMORY, code) << number << ", " << memory_.refused();
      ASSERT_GT(20000U, number);
    }
  }

  Library library_;
  LibraryMemory memory_{registered_library()};
};

TEST_P(RegistrationWithoutMemory, Registering_FailsAndWorksAgain) {
  refuse_all([&] { return library_.register_server(); }, [] {});
  EXPECT_TRUE(is_registered());
}

TEST_P(RegistrationWithoutMemory, Removing_FailsAndWorksAgain) {
  refuse_all([&] { return library_.unregister_server(); },
             [&] { EXPECT_EQ(S_OK, library_.register_server()); });
  EXPECT_FALSE(is_registered());
}

/// A registration that fails for want of memory leaves no half: it is undone.
TEST_P(RegistrationWithoutMemory, AFailedRegistrationIsUndone) {
  ASSERT_EQ(S_OK, library_.unregister_server());
  memory_.refuse(1'000'000, GetParam());
  ASSERT_EQ(S_OK, library_.register_server());
  const std::size_t last = memory_.asked();
  memory_.allow();
  ASSERT_EQ(S_OK, library_.unregister_server());
  memory_.refuse(last - 5, GetParam());
  EXPECT_EQ(E_OUTOFMEMORY, library_.register_server());
  memory_.allow();
  // Without any memory at all the platform removes no keys.
  EXPECT_EQ(GetParam() == Refusal::FromThenOn, is_registered(L"Adresses"));
  EXPECT_FALSE(is_registered(L"ApiGeneral"));
}

INSTANTIATE_TEST_SUITE_P(Memory, RegistrationWithoutMemory,
                         ::testing::Values(Refusal::Once, Refusal::FromThenOn), [](const auto& instance) {
                           return instance.param == Refusal::Once ? "OneRefused" : "AllRefusedFromThenOn";
                         });

}  // namespace
