// The DLL itself, reached without the registry.
#pragma once

#include "support/host.h"
#include "support/library_path.h"

namespace host {

/// The DLL, loaded by its path, and its four exports.
class Library {
 public:
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] HMODULE module() const { return module_; }
  HRESULT class_object(REFCLSID clsid, REFIID iid, void** object) const;
  HRESULT can_unload() const;
  HRESULT register_server() const;
  HRESULT unregister_server() const;

  /// The class object of a class; the test fails when there is none.
  [[nodiscard]] ComPtr<IClassFactory> factory(REFCLSID clsid) const;

 private:
  HMODULE module_;
};

/// One of the classes of the catalogue.
struct CatalogueEntry {
  const wchar_t* name;
  CLSID clsid;
  IID iid;
  bool empty;  // publishes nothing
};

/// The classes a host can create, in the order of the catalogue.
const std::vector<CatalogueEntry>& catalogue();

/// Names the instance of a parameterised test after its class.
std::string class_name_of(const ::testing::TestParamInfo<CatalogueEntry>& info);
void PrintTo(const CatalogueEntry& entry, std::ostream* stream);

}  // namespace host
