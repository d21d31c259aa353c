// The contract's two menus over a button of the screen.
#pragma once

#include "menus/component.h"
#include "menus/menu_user.h"
#include "menus/screen_button.h"

namespace host {

using Lines = std::vector<std::wstring>;

class ContractMenus : public ::testing::Test {
 protected:
  /// The answer; the test fails when the call does.
  IndMenuPop open_interventions(bool list = true, bool create = true, bool remove = true) {
    IndMenuPop choice = kUntouched;
    EXPECT_EQ(S_OK, try_interventions(button_.object().get(), choice, list, create, remove));
    return choice;
  }
  IndMenuPop open_sites(bool list = true, bool add = true, bool replace = true, bool exclude = true) {
    IndMenuPop choice = kUntouched;
    EXPECT_EQ(S_OK, try_sites(button_.object().get(), choice, list, add, replace, exclude));
    return choice;
  }

  HRESULT try_interventions(IDispatch* button, IndMenuPop& choice, bool list = true, bool create = true,
                            bool remove = true) {
    return contracts_->OpenPopupMenu_CttInterv(&button, flag(list), flag(create), flag(remove), &choice);
  }
  HRESULT try_sites(IDispatch* button, IndMenuPop& choice, bool list = true, bool add = true,
                    bool replace = true, bool exclude = true) {
    return contracts_->OpenPopupMenu_CttSite(&button, flag(list), flag(add), flag(replace), flag(exclude),
                                             &choice);
  }

  static VARIANT_BOOL flag(bool value) { return velmosav::to_variant_bool(value); }

  static constexpr auto kUntouched = static_cast<IndMenuPop>(7);
  const ComPtr<_ContratDoc> contracts_ = create<_ContratDoc>(L"ContratDoc");
  const ScreenButton button_;
};

}  // namespace host
