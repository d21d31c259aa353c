// What all generated calls share: the library's classes, texts, numbers that are no addresses of objects, a
// window.
#pragma once

#include <vector>

#include "misuse/interface_table.h"
#include "misuse/odd_texts.h"

namespace misuse {

/// A member of one of the classes.
struct Target {
  std::size_t class_index = 0;
  const Member* member = nullptr;
};

class Surroundings {
 public:
  Surroundings();
  ~Surroundings();
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;

  /// The member that a call is made to: methods more often than properties.
  [[nodiscard]] const Target& target(Dice& dice) const;
  /// Any other member of the same class, a method as often as not.
  [[nodiscard]] const Member& neighbour(Dice& dice, std::size_t class_index) const;

  /// A new instance by its early-bound interface.
  [[nodiscard]] ComPtr<IDispatch> create(std::size_t class_index) const;

  /// A number that is no address of an object: nothing readable, no table of code, or not even aligned.
  [[nodiscard]] long wrong_address(Dice& dice) const;

  struct RecordType {
    const velmosav::RecordLayout* layout;
    ComPtr<IRecordInfo> info;
  };

  OddTexts texts;
  HWND window = nullptr;
  std::vector<RecordType> records;

 private:
  std::vector<ComPtr<IClassFactory>> factories_;
  std::vector<Target> methods_, properties_;
  std::vector<std::vector<const Member*>> methods_of_class_;
  std::vector<long> addresses_;
  void* page_ = nullptr;
};

}  // namespace misuse
