// A coverage as a host holds it, with lines whose fields all differ.
#pragma once

#include <string>
#include <vector>

#include "support/records.h"

namespace host {

/// Every field of the line gets a value that depends on the code.
inline void fill_line(Type_LigneCouverture& line, std::wstring_view code) {
  double number = 0;
  for (const wchar_t letter : code) number = number * 31 + letter;
  set(line.TypeLigne, std::wstring(L"T ") + std::wstring(code));
  set(line.Code, code);
  set(line.Lib, std::wstring(L"Libellé ") + std::wstring(code));
  set(line.Unite, std::wstring(L"U ") + std::wstring(code));
  line.Qte = number + 0.25;
  line.NbDec = static_cast<BYTE>(1 + static_cast<long long>(number) % 200);
  line.Longueur = number + 0.5;
  line.Largeur = number + 0.75;
  line.Hauteur = -number;
}

/// A coverage with these lines; null stands for a line without content.
inline Record<Type_Couverture> coverage_of(const std::vector<const wchar_t*>& codes, long lower = 0) {
  Record<Type_Couverture> coverage;
  set(coverage->Couverture, L"Pièces et main d'œuvre");
  set(coverage->Condition, L"Hors casse");
  coverage->Exclure = VARIANT_TRUE;
  dimension<Type_LigneCouverture>(coverage->Liste, static_cast<unsigned long>(codes.size()), lower);
  for (unsigned long i = 0; i < codes.size(); ++i) {
    if (codes[i]) fill_line(element<Type_LigneCouverture>(coverage->Liste, i), codes[i]);
  }
  return coverage;
}

/// A two-dimensional list of 1 x 2 lines.
inline void dimension_twice(SAFEARRAY*& list, unsigned element_size) {
  EXPECT_EQ(S_OK, SafeArrayAllocDescriptor(2, &list));
  list->cbElements = element_size;
  list->rgsabound[0] = {2, 0};
  list->rgsabound[1] = {1, 0};
  EXPECT_EQ(S_OK, SafeArrayAllocData(list));
}

/// All bytes of a coverage, its list's descriptor and its lines: equal only when nothing at all was changed.
inline std::string bits_of(const Type_Couverture& coverage) {
  std::string bits(reinterpret_cast<const char*>(&coverage), sizeof coverage);
  if (const SAFEARRAY* list = coverage.Liste) {
    unsigned long size = list->cbElements;
    for (USHORT i = 0; i < list->cDims; ++i) size *= list->rgsabound[i].cElements;
    bits.append(reinterpret_cast<const char*>(list),
                sizeof *list + (list->cDims - 1u) * sizeof(SAFEARRAYBOUND));
    bits.append(static_cast<const char*>(list->pvData), list->pvData ? size : 0);
  }
  return bits;
}

}  // namespace host
