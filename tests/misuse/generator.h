// Generated arguments: values of every type that the interfaces take, arrays and records, plausible or not.
#pragma once

#include <deque>

#include "misuse/belongings.h"
#include "misuse/odd_object.h"
#include "misuse/surroundings.h"

namespace misuse {

class Generator {
 public:
  Generator(Dice& dice, const Surroundings& surroundings, ObjectHost& host)
      : dice_(dice), surroundings_(surroundings), pool_(host) {}
  ~Generator();
  Generator(const Generator&) = delete;
  Generator& operator=(const Generator&) = delete;

  /// A value of a plain type, a text, an object or an array, for something of that name.
  VARIANT value(VARTYPE type, std::wstring_view name);
  /// A VARIANT that may hold anything.
  VARIANT variant(std::wstring_view name, int depth = 0);
  /// What a well-meaning object of the host answers for one of its members.
  VARIANT member_value(std::wstring_view name);
  IDispatch* object() { return dice_.one_in(10) ? nullptr : pool_.make(); }
  /// Fills a zeroed record.
  void fill(const velmosav::RecordLayout& layout, void* record, int depth = 0);

  /// A variable of the host that others refer to; freed with the generator's other things.
  VARIANT& variable(VARIANT value) { return variables_.emplace_back(value); }

  /// Frees the variables; what they hold of objects is then released.
  void scrap_variables();
  [[nodiscard]] const LockedArrays& locked() const { return locked_; }
  [[nodiscard]] const ObjectPool& objects() const { return pool_; }

 private:
  BSTR text(std::wstring_view name) { return surroundings_.texts.text(dice_, name); }
  VARIANT likely(std::wstring_view name);
  VARIANT grid();
  VARIANT reference(std::wstring_view name, int depth);
  VARIANT record_value();
  VARIANT array_value(std::wstring_view name, int depth);

  SAFEARRAY* array(Holding holding, const velmosav::RecordLayout* layout, std::wstring_view name, int depth);
  SAFEARRAY* right_array(Holding holding, const velmosav::RecordLayout* layout, int depth);
  SAFEARRAY* wrong_array(Holding holding, const velmosav::RecordLayout* layout);
  SAFEARRAY* allocated(VARTYPE type, const velmosav::RecordLayout* layout, std::size_t rows);
  SAFEARRAY* untyped(std::size_t element_size, std::size_t rows, bool with_data);
  void restrict_use(SAFEARRAY* array);
  std::vector<SAFEARRAYBOUND> bounds(std::size_t rows);
  void fill_elements(SAFEARRAY* array, Holding holding, const velmosav::RecordLayout* layout,
                     std::wstring_view name, int depth);

  Dice& dice_;
  const Surroundings& surroundings_;
  ObjectPool pool_;
  std::deque<VARIANT> variables_;
  LockedArrays locked_;
};

}  // namespace misuse
