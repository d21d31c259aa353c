// The documents that the catalogue's calls are made on: small, with texts where the methods read and write.
#pragma once

#include "support/fake_object.h"
#include "support/records.h"

namespace host {

/// A contract of the year 2025 in four quarterly rows, the first transferred, with a VAT split and amounts.
Record<Type_Contrat> billed_contract();
/// A contract with five interventions on three sites, and their schedule with one work order.
Record<Type_Contrat> visited_contract();
/// A work order with two technicians, who have time slots, two pieces of equipment and two articles.
Record<Type_Bon> full_work_order();
/// An intervention of a contract with equipment, resources and a coverage of two lines.
Record<Type_Intervention> full_intervention();
/// A technician with two time slots of two hours each.
void add_slots(Type_LigneRessource& technician);

/// Holds a lock on an array, as a host does that reads it.
class LockedArray {
 public:
  explicit LockedArray(SAFEARRAY* array) : array_(array) { EXPECT_EQ(S_OK, SafeArrayLock(array_)); }
  ~LockedArray() { EXPECT_EQ(S_OK, SafeArrayUnlock(array_)); }
  LockedArray(const LockedArray&) = delete;
  LockedArray& operator=(const LockedArray&) = delete;

 private:
  SAFEARRAY* array_;
};

}  // namespace host
