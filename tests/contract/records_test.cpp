// The records: fields, types and memory layout, in the type library and in the generated C++ header alike.
#include <algorithm>
#include <charconv>

#include "contract/published.h"
#include "support/type_library.h"

namespace contract {
namespace {

constexpr std::size_t kPacking = 4;
/// Bytes stand anywhere, 16-bit fields on 2 bytes, all others on 4.
struct Extent {
  std::size_t size;
  std::size_t alignment;
};

std::size_t aligned(std::size_t offset, std::size_t alignment) {
  return (offset + alignment - 1) / alignment * alignment;
}

const Record* find_record(const std::string& name) {
  const auto found = std::find_if(records().begin(), records().end(),
                                  [&](const Record& record) { return utf8(record.name) == name; });
  return found == records().end() ? nullptr : &*found;
}

bool is_enumeration(const std::string& name) {
  return std::any_of(enumerations().begin(), enumerations().end(),
                     [&](const Enumeration& enumeration) { return utf8(enumeration.name) == name; });
}

/// "table of 100 Type_LigneRepartTVA": the count, and where the element's name begins.
std::size_t table_count(const std::string& type, std::size_t& element) {
  constexpr std::string_view kHead = "table of ";
  if (type.compare(0, kHead.size(), kHead) != 0) return 0;
  std::size_t count = 0;
  const auto [end, error] = std::from_chars(type.data() + kHead.size(), type.data() + type.size(), count);
  element = static_cast<std::size_t>(end - type.data()) + 1;
  return error == std::errc() ? count : 0;
}

Extent extent_of(const std::string& type);

/// The offset of each field, and at the end the size of the whole.
std::vector<std::size_t> expected_offsets(const Record& record) {
  std::vector<std::size_t> offsets;
  std::size_t offset = 0, widest = 1;
  for (const Field& field : record.fields) {
    const Extent extent = extent_of(field.type);
    offset = aligned(offset, extent.alignment);
    offsets.push_back(offset);
    offset += extent.size;
    widest = std::max(widest, extent.alignment);
  }
  offsets.push_back(aligned(offset, widest));
  return offsets;
}

Extent extent_of(const std::string& type) {
  if (type == "UI1") return {1, 1};
  if (type == "I2" || type == "BOOL") return {2, 2};
  if (type == "I4" || type == "BSTR" || type == "DISPATCH" || is_enumeration(type)) return {4, 4};
  if (type == "R8" || type == "CY") return {8, kPacking};
  if (type.rfind("array of ", 0) == 0) return {sizeof(SAFEARRAY*), 4};
  std::size_t element = 0;
  if (const std::size_t count = table_count(type, element)) {
    const Extent one = extent_of(type.substr(element));
    return {count * one.size, one.alignment};
  }
  const Record* record = find_record(type);
  EXPECT_NE(nullptr, record) << type;
  return record ? Extent{expected_offsets(*record).back(), kPacking} : Extent{0, 1};
}

class EachRecord : public ::testing::TestWithParam<Record> {
 protected:
  void SetUp() override {
    info_ = type_named(TKIND_RECORD, GetParam().name);
    ASSERT_TRUE(info_);
    const UINT count = attributes_of(info_)->cVars;
    for (UINT i = 0; i < count; ++i) fields_.push_back(variable_of(info_, i));
    ASSERT_EQ(GetParam().fields.size(), fields_.size());
    offsets_ = expected_offsets(GetParam());
  }

  ComPtr<ITypeInfo> info_;
  std::vector<Held<VARDESC>> fields_;
  std::vector<std::size_t> offsets_;
};

TEST_P(EachRecord, Fields_StandInTheirOrderWithTheirTypes) {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const Field& expected = GetParam().fields[i];
    EXPECT_EQ(VAR_PERINSTANCE, fields_[i]->varkind) << utf8(expected.name);
    EXPECT_EQ(expected.name, name_of(info_, fields_[i]->memid));
    EXPECT_EQ(expected.type, type_text(info_, fields_[i]->elemdescVar.tdesc)) << utf8(expected.name);
  }
}

TEST_P(EachRecord, Offsets_InTheLibrary_ArePackedOnFourBytes) {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    EXPECT_EQ(offsets_[i], fields_[i]->oInst) << utf8(GetParam().fields[i].name);
  }
}

TEST_P(EachRecord, Offsets_InTheHeader_ArePackedOnFourBytes) {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const Field& field = GetParam().fields[i];
    EXPECT_EQ(offsets_[i], field.header_offset) << utf8(field.name);
    EXPECT_EQ(extent_of(field.type).size, field.header_size) << utf8(field.name);
  }
}

TEST_P(EachRecord, Size_IsTheSameForLibraryHeaderAndRecordInformation) {
  EXPECT_EQ(offsets_.back(), attributes_of(info_)->cbSizeInstance);
  EXPECT_EQ(offsets_.back(), GetParam().header_size);
  ComPtr<IRecordInfo> information;
  ASSERT_EQ(S_OK, GetRecordInfoFromTypeInfo(info_.get(), information.receive()));
  ULONG size = 0;
  ASSERT_EQ(S_OK, information->GetSize(&size));
  EXPECT_EQ(offsets_.back(), size);
}

TEST_P(EachRecord, Alignment_IsFourBytes) { EXPECT_EQ(kPacking, attributes_of(info_)->cbAlignment); }

TEST_P(EachRecord, RecordInformation_IsFoundByItsIdentifier) {
  const GUID id = attributes_of(info_)->guid;
  ComPtr<IRecordInfo> information;
  ASSERT_EQ(S_OK, GetRecordInfoFromGuids(LIBID_VelmoSAV_DLL14, 1, 0, 0, id, information.receive()));
  Bstr name;
  ASSERT_EQ(S_OK, information->GetName(name.receive()));
  EXPECT_EQ(GetParam().name, name.view());
  GUID found{};
  ASSERT_EQ(S_OK, information->GetGuid(&found));
  EXPECT_TRUE(IsEqualGUID(id, found));
}

INSTANTIATE_TEST_SUITE_P(, EachRecord, ::testing::ValuesIn(records()), name_of_case<Record>);

/// The rule above once more, without its code.
TEST(RecordSizes, OfFiveRecords_AreThoseWorkedOutByHand) {
  const std::pair<const char*, std::size_t> cases[] = {
      {"Type_LigneRepartTVA", 40}, {"Type_RepartTVA", 4008},     {"Type_AdresseTiers", 92},
      {"Type_PreavisCourrier", 8}, {"Type_LigneCouverture", 52},
  };
  for (const auto& [name, size] : cases) {
    const Record* record = find_record(name);
    ASSERT_NE(nullptr, record) << name;
    EXPECT_EQ(size, expected_offsets(*record).back()) << name;
  }
}

}  // namespace
}  // namespace contract
