#include "memory/library_under_test.h"

namespace host {

HMODULE registered_library() {
  static const HMODULE module = [] {
    const auto object = create_dispatch(L"General");
    HMODULE found = nullptr;
    EXPECT_TRUE(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"VelmoSAV_DLL14.dll", &found));
    return found;
  }();
  return module;
}

CatalogueTest::CatalogueTest() = default;

CatalogueTest::~CatalogueTest() {
  object_ = nullptr;
  SetErrorInfo(0, nullptr);
}

HRESULT CatalogueTest::make(Scene& scene) {
  const HRESULT code = call_.make(scene, *object_.get());
  SetErrorInfo(0, nullptr);
  return code;
}

std::string call_title(const ::testing::TestParamInfo<std::size_t>& info) {
  static const Calls calls = all_calls();
  const std::string title = calls[info.param].title();
  std::size_t number = 1;
  for (std::size_t i = 0; i < info.param; ++i) number += calls[i].title() == title;
  return number == 1 ? title : title + "_" + std::to_string(number);
}

}  // namespace host
