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

/// The same through the interface of the class itself.
bool use_early_bound(IDispatch* object, const host::CatalogueEntry& entry);

/// One proxy of everything that several threads of the shared apartment ask for: Wine 8 frees a proxy that
/// one thread gives back as the last while another is handed it anew, and the process ends.
struct KeptProxies {
  std::vector<host::ComPtr<IUnknown>> interfaces;
  std::vector<host::ComPtr<ITypeInfo>> information;
};

/// Those of an object of each class; `failures` counts the objects that lack one.
KeptProxies keep_proxies(const std::vector<host::ComPtr<IDispatch>>& objects, int& failures);

}  // namespace life
