// Late binding and object creation.
#include <cstdint>

#include "support/records.h"
#include "works.h"

namespace bench {
namespace {

using host::ComPtr;

DISPID id_of(IDispatch* object, const wchar_t* name) {
  auto* text = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  must(object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
  return id;
}

ComPtr<ITypeInfo> description_of(IDispatch* object) {
  ComPtr<ITypeInfo> description;
  must(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, description.receive()), "GetTypeInfo");
  return description;
}

void measure_property(Bench& bench) {
  if (!bench.wants("late-get")) return;
  const auto object = host::create<_ContratDoc>(L"ContratDoc");
  const auto description = description_of(object.get());
  const DISPID id = id_of(object.get(), L"PC_NbMaxLigInt");
  DISPPARAMS none{};
  VARIANT result;
  VariantInit(&result);
  bench.compare("late-get", {[&] {
                  object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &result,
                                 nullptr, nullptr);
                }},
                {[&] {
                  description->Invoke(object.get(), id, DISPATCH_PROPERTYGET, &none, &result, nullptr,
                                      nullptr);
                }});
}

void measure_names(Bench& bench) {
  if (!bench.wants("names")) return;
  const auto object = host::create<_ContratDoc>(L"ContratDoc");
  const auto description = description_of(object.get());
  wchar_t name[] = L"SetDateByDuree";
  LPOLESTR names[] = {name};
  DISPID id = DISPID_UNKNOWN;
  bench.compare("names", {[&] { object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id); }},
                {[&] { DispGetIDsOfNames(description.get(), names, 1, &id); }});
}

void measure_record_argument(Bench& bench) {
  if (!bench.wants("late-record")) return;
  const auto object = host::create<_ContratDoc>(L"ContratDoc");
  const DISPID id = id_of(object.get(), L"NbrCadFact");
  host::Record<Type_Contrat> contract;
  host::dimension<Type_CadencierFact>(contract->TabCadFact, 12);
  ComPtr<ITypeLib> library;
  UINT index = 0;
  must(description_of(object.get())->GetContainingTypeLib(library.receive(), &index), "GetContainingTypeLib");
  ComPtr<ITypeInfo> record_type;
  MEMBERID member = MEMBERID_NIL;
  USHORT found = 1;
  wchar_t name[] = L"Type_Contrat";
  must(library->FindName(name, 0, record_type.receive(), &member, &found), "FindName");
  ComPtr<IRecordInfo> info;
  must(GetRecordInfoFromTypeInfo(record_type.get(), info.receive()), "GetRecordInfoFromTypeInfo");
  VARIANT argument;
  VariantInit(&argument);
  argument.vt = VT_RECORD | VT_BYREF;
  argument.pvRecord = &*contract;
  argument.pRecInfo = info.get();
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  VARIANT result;
  VariantInit(&result);
  short rows = 0;
  bench.compare("late-record", {[&] {
                  object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &result,
                                 nullptr, nullptr);
                }},
                {[&] { object->NbrCadFact(contract, &rows); }});
  if (result.vt != VT_I2 || result.iVal != rows || rows != 12) must(E_FAIL, "NbrCadFact");
}

ComPtr<IClassFactory> factory_of(const wchar_t* prog_id) {
  CLSID id;
  must(CLSIDFromProgID(prog_id, &id), "CLSIDFromProgID");
  ComPtr<IClassFactory> factory;
  must(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.receive_void()),
       "CoGetClassObject");
  return factory;
}

Operation creation(const ComPtr<IClassFactory>& factory) {
  return {[&factory] {
    IUnknown* object = nullptr;
    factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&object));
    object->Release();
  }};
}

void measure_creation(Bench& bench) {
  if (!bench.wants("create")) return;
  const auto plain = factory_of(L"VelmoSAV_DLL14.Adresses");
  const auto general = factory_of(L"VelmoSAV_DLL14.General");
  const auto contracts = factory_of(L"VelmoSAV_DLL14.ContratDoc");
  bench.compare("create-general", creation(general), creation(plain));
  bench.compare("create-contratdoc", creation(contracts), creation(plain));
}

}  // namespace

void measure_binding(Bench& bench) {
  measure_property(bench);
  measure_names(bench);
  measure_record_argument(bench);
  measure_creation(bench);
}

}  // namespace bench
