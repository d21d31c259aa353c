// A use of every class, such as a host makes.
#pragma once

#include <vector>

#include "frame/library.h"

namespace life {

/// An object of each class; `failures` counts those that could not be made.
std::vector<host::ComPtr<IDispatch>> create_all(int& failures);

/// Reads the name of the object's interface late-bound and, where the class has any, makes a call whose
/// answer is known. Whether all was right.
bool use(IDispatch* object, const host::CatalogueEntry& entry);

/// The same without the type information, which not every proxy passes on.
bool use_by_name(IDispatch* object, const host::CatalogueEntry& entry);

}  // namespace life
