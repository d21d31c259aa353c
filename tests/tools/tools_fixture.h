// The tools class as a host holds it.
#pragma once

#include "support/arguments.h"

namespace host {

class ToolsTest : public ::testing::Test {
 protected:
  ComPtr<_Outil> tools_ = create<_Outil>(L"Outil");
};

/// An array of VARIANT from 0, as the fields of a duration are named.
inline SAFEARRAY* variant_array(std::vector<Variant> cells, long lower = 0) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(cells.size()), lower};
  SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 1, &bound);
  for (std::size_t i = 0; i < cells.size(); ++i) static_cast<VARIANT*>(array->pvData)[i] = cells[i].detach();
  return array;
}

inline SAFEARRAY* unit_array(const std::vector<std::wstring>& units, long lower = 0) {
  std::vector<Variant> cells;
  for (const auto& unit : units) cells.push_back(text_value(unit));
  return variant_array(std::move(cells), lower);
}

}  // namespace host
