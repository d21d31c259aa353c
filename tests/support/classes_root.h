// HKEY_CLASSES_ROOT of this process turned to an empty key, for what a registration writes and nothing else.
#pragma once

#include "support/host.h"

namespace host {

class EmptyClassesRoot : public ::testing::Test {
 protected:
  static constexpr wchar_t kKey[] = L"Software\\VelmoSAV_DLL14 essai";

  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                             &key_, nullptr));
    ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, key_));
  }
  void TearDown() override {
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
  }

  [[nodiscard]] HKEY root() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace host
