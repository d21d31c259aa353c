// The DLL that the catalogue's calls reach, with its memory in the test's hands.
#pragma once

#include "memory/catalogue.h"
#include "support/allocations.h"
#include "support/library_memory.h"

namespace host {

/// The registered DLL, loaded through COM and kept.
HMODULE registered_library();

/// One call of the catalogue, made as a parameterised test with its class's object.
class CatalogueTest : public ::testing::TestWithParam<std::size_t> {
 protected:
  CatalogueTest();
  ~CatalogueTest() override;

  /// Makes the call and drops the thread's error information, which holds memory.
  HRESULT make() {
    Scene scene(false);
    return make(scene);
  }
  HRESULT make(Scene& scene);

  Calls calls_ = all_calls();
  CatalogueCall& call_ = calls_.at(GetParam());
  const Allocations allocations_;
  LibraryMemory memory_{registered_library()};
  ComPtr<IDispatch> object_ = create_dispatch(call_.class_name);
};

/// Names of the instances: the calls' titles, numbered where two have the same.
std::string call_title(const ::testing::TestParamInfo<std::size_t>& info);

#define INSTANTIATE_FOR_CATALOGUE(suite)                                                                 \
  INSTANTIATE_TEST_SUITE_P(Catalogue, suite, ::testing::Range(std::size_t{0}, host::all_calls().size()), \
                           host::call_title)

}  // namespace host
