#include "misuse/surroundings.h"

#include "support/type_library.h"

namespace misuse {
namespace {

constexpr std::size_t kPage = 4096;

long number_of(const void* address) { return static_cast<long>(reinterpret_cast<std::uintptr_t>(address)); }

/// Data that is no object: nothing, itself, a table of data, a table with one entry of code too few.
const void* const kNothing[8]{};
const void* const kItself[]{&kItself, &kItself};
void any_code() {}
const void* const kShortTable[]{
    reinterpret_cast<const void*>(&any_code), kNothing, nullptr, nullptr, nullptr, nullptr, nullptr};
const void* const kShort[]{&kShortTable};
const void* const kDataTable[]{&kNothing, &kNothing, &kNothing, &kNothing, &kNothing, &kNothing, &kNothing};
const void* const kData[]{&kDataTable};

std::vector<Surroundings::RecordType> record_types() {
  std::vector<Surroundings::RecordType> found;
  for (const velmosav::RecordLayout* layout : velmosav::all_layouts()) {
    ComPtr<ITypeInfo> type;
    Surroundings::RecordType record{layout, nullptr};
    EXPECT_EQ(S_OK, contract::type_library()->GetTypeInfoOfGuid(layout->id, type.receive()));
    EXPECT_EQ(S_OK, GetRecordInfoFromTypeInfo(type.get(), record.info.receive()));
    found.push_back(std::move(record));
  }
  return found;
}

}  // namespace

Surroundings::Surroundings() : records(record_types()) {
  for (std::size_t i = 0; i < classes().size(); ++i) {
    CLSID clsid;
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(S_OK, CLSIDFromProgID((L"VelmoSAV_DLL14." + classes()[i].name).c_str(), &clsid));
    EXPECT_EQ(S_OK, CoGetClassObject(clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                     factory.receive_void()));
    factories_.push_back(std::move(factory));
    methods_of_class_.emplace_back();
    for (const Member& member : classes()[i].members) {
      (member.kind == INVOKE_FUNC ? methods_ : properties_).push_back({i, &member});
      if (member.kind == INVOKE_FUNC) methods_of_class_[i].push_back(&member);
    }
  }
  // Out of the display's sight: its coordinates have 16 bits, and a region beyond them ends the program
  // there.
  window =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 40, 30, HWND_MESSAGE, nullptr, nullptr, nullptr);

  // A table that would reach beyond the end of readable memory.
  page_ = VirtualAlloc(nullptr, 2 * kPage, MEM_RESERVE, PAGE_NOACCESS);
  char* page = static_cast<char*>(VirtualAlloc(page_, kPage, MEM_COMMIT, PAGE_READWRITE));
  EXPECT_NE(nullptr, page);
  char* last = page + kPage - 2 * sizeof(void*);
  *reinterpret_cast<void**>(page) = last;
  addresses_ = {0,
                -1,
                1,
                4,
                8,
                0xFFFC,
                65536,
                std::numeric_limits<long>::min(),
                -4,
                -256,
                -2,
                number_of(kNothing),
                number_of(kItself),
                number_of(kShort),
                number_of(kData),
                number_of(page),
                number_of(last),
                number_of(page + kPage),
                number_of(reinterpret_cast<const void*>(&any_code)),
                number_of(page + kPage - 2)};
}

Surroundings::~Surroundings() {
  DestroyWindow(window);
  VirtualFree(page_, 0, MEM_RELEASE);
}

const Target& Surroundings::target(Dice& dice) const {
  const Target& chosen = dice.of(dice.one_in(8) ? properties_ : methods_);
  // What creates objects of other components takes a hundred times as long: it comes up less often.
  constexpr std::wstring_view kSlow[]{L"Invoice",   L"OpenPopupMenu", L"GetValScrollSurvol", L"DLL_Init",
                                      L"SetRegion", L"ReadRepart",    L"RenseignerChamp"};
  for (const std::wstring_view part : kSlow) {
    if (chosen.member->name.find(part) != std::wstring::npos && !dice.one_in(6)) return dice.of(methods_);
  }
  return chosen;
}

const Member& Surroundings::neighbour(Dice& dice, std::size_t class_index) const {
  const auto& methods = methods_of_class_[class_index];
  if (!methods.empty() && dice.coin()) return *dice.of(methods);
  return dice.of(classes()[class_index].members);
}

ComPtr<IDispatch> Surroundings::create(std::size_t class_index) const {
  ComPtr<IDispatch> object;
  EXPECT_EQ(S_OK, factories_[class_index]->CreateInstance(nullptr, classes()[class_index].iid,
                                                          object.receive_void()));
  return object;
}

long Surroundings::wrong_address(Dice& dice) const {
  if (dice.coin()) return dice.of(addresses_);
  // Beyond the memory of a program, or not where an object can stand.
  return static_cast<long>(dice.coin() ? dice.bits() | 0xC0000000U : dice.bits() | 1U);
}

}  // namespace misuse
