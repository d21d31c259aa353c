#include "frame/library.h"

#include <ostream>

namespace host {
namespace {

template <class Function>
Function exported(HMODULE module, const char* name) {
  const FARPROC address = GetProcAddress(module, name);
  EXPECT_NE(nullptr, address) << name;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

Library::Library() : module_(LoadLibraryW(library_path().c_str())) {
  EXPECT_NE(nullptr, module_) << utf8(library_path());
}

Library::~Library() { FreeLibrary(module_); }

HRESULT Library::class_object(REFCLSID clsid, REFIID iid, void** object) const {
  return exported<decltype(&DllGetClassObject)>(module_, "DllGetClassObject")(clsid, iid, object);
}

HRESULT Library::can_unload() const {
  return exported<decltype(&DllCanUnloadNow)>(module_, "DllCanUnloadNow")();
}

HRESULT Library::register_server() const {
  return exported<HRESULT(STDAPICALLTYPE*)()>(module_, "DllRegisterServer")();
}

HRESULT Library::unregister_server() const {
  return exported<HRESULT(STDAPICALLTYPE*)()>(module_, "DllUnregisterServer")();
}

ComPtr<IClassFactory> Library::factory(REFCLSID clsid) const {
  ComPtr<IClassFactory> result;
  EXPECT_EQ(S_OK, class_object(clsid, IID_IClassFactory, result.receive_void()));
  return result;
}

const std::vector<CatalogueEntry>& catalogue() {
#define ENTRY(name) \
  { L## #name, __uuidof(::name), __uuidof(::_##name), false }
#define EMPTY_ENTRY(name) \
  { L## #name, __uuidof(::name), __uuidof(::_##name), true }
  static const std::vector<CatalogueEntry> entries{
      EMPTY_ENTRY(Adresses), ENTRY(Couverture),    ENTRY(Intervention),  EMPTY_ENTRY(Preavis),
      ENTRY(Periodicite),    ENTRY(Bon),           ENTRY(Planning),      ENTRY(IntervDoc),
      ENTRY(AchatVente),     EMPTY_ENTRY(TPF),     ENTRY(FinancContrat), ENTRY(ContratDoc),
      EMPTY_ENTRY(Garantie), ENTRY(TvaRepart),     ENTRY(Article),       ENTRY(Outil),
      ENTRY(General),        ENTRY(Statistique),   ENTRY(Preference),    ENTRY(Droits),
      ENTRY(ModuleScroll),   ENTRY(ApiImpr),       ENTRY(SAVImpr),       ENTRY(SAVApiListe),
      ENTRY(ClsDLLTrad),     ENTRY(ApiSkin),       ENTRY(Reconduction),  EMPTY_ENTRY(cToolTip2),
      ENTRY(Generation),     ENTRY(InvoiceXMLLib), ENTRY(ApiGeneral)};
#undef ENTRY
#undef EMPTY_ENTRY
  return entries;
}

std::string class_name_of(const ::testing::TestParamInfo<CatalogueEntry>& info) {
  return utf8(info.param.name);
}

void PrintTo(const CatalogueEntry& entry, std::ostream* stream) { *stream << utf8(entry.name); }

}  // namespace host
