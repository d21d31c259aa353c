#include "support/temporary_file.h"

#include "automation/platform.h"

#include <gtest/gtest.h>

namespace host {

std::wstring make_temporary_file() {
  wchar_t folder[MAX_PATH], name[MAX_PATH];
  EXPECT_NE(0U, GetTempPathW(MAX_PATH, folder));
  EXPECT_NE(0U, GetTempFileNameW(folder, L"sav", 0, name));
  return name;
}

}  // namespace host
