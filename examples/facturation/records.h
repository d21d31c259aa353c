// The document records that this host owns: filled here, changed in place by the library, freed here.
//
// The platform's record functions are not used: they mishandle records that hold records or arrays.
#pragma once

#include <windows.h>
#include <ole2.h>
#include <VelmoSAV_DLL14.h>

#include <new>
#include <span>
#include <stdexcept>
#include <string_view>

namespace facturation {

/// A contract with its sites and its schedule.
struct Contrat : Type_Contrat {
  Contrat() : Type_Contrat{} {}
  ~Contrat();
  Contrat(const Contrat&) = delete;
  Contrat& operator=(const Contrat&) = delete;
};

/// A work order with its articles.
struct Bon : Type_Bon {
  Bon() : Type_Bon{} {}
  ~Bon();
  Bon(const Bon&) = delete;
  Bon& operator=(const Bon&) = delete;
};

struct AdresseTiers : Type_AdresseTiers {
  AdresseTiers() : Type_AdresseTiers{} {}
  ~AdresseTiers();
  AdresseTiers(const AdresseTiers&) = delete;
  AdresseTiers& operator=(const AdresseTiers&) = delete;
};

/// Replaces a text of a record.
void assign(BSTR& field, std::string_view utf8);
void assign(BSTR& field, std::wstring_view text);

/// An array of zeroed elements, without record information.
SAFEARRAY* new_array(std::size_t element_size, std::size_t count);

template <class Record>
SAFEARRAY* new_array(std::size_t count) {
  return new_array(sizeof(Record), count);
}

/// The elements of a one-dimensional array; none for an array that was never dimensioned.
template <class Record>
std::span<Record> elements(SAFEARRAY* array) {
  if (!array) return {};
  if (array->cDims != 1 || array->cbElements != sizeof(Record))
    throw std::runtime_error("tableau d'enregistrements inattendu");
  return {static_cast<Record*>(array->pvData), array->rgsabound[0].cElements};
}

}  // namespace facturation
