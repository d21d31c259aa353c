// Periodicite.RenseignerChampBinaire: a file goes into a binary field in chunks of 50000 bytes.
#include "dates/recurrence_fixture.h"
#include "dates/sample_file.h"
#include "support/fake_object.h"
#include "support/import_table.h"

namespace {

using namespace host;

/// A field that keeps what it is given.
struct BinaryField {
  BinaryField() {
    object->on_get(L"AppendChunk", [this](const FakeObject::Arguments& arguments) {
      EXPECT_EQ(1U, arguments.size());
      const VARIANT& chunk = arguments.at(0);
      EXPECT_EQ(VT_ARRAY | VT_UI1, chunk.vt);
      if (chunk.vt != (VT_ARRAY | VT_UI1)) return Variant();
      EXPECT_EQ(1, chunk.parray->cDims);
      const auto* data = static_cast<const BYTE*>(chunk.parray->pvData);
      sizes.push_back(chunk.parray->rgsabound[0].cElements);
      bytes.insert(bytes.end(), data, data + sizes.back());
      return Variant();
    });
  }

  ComPtr<FakeObject> object = FakeObject::make();
  std::vector<unsigned long> sizes;
  std::vector<BYTE> bytes;
};

HRESULT load(IDispatch* field, const std::wstring& path, VARIANT_BOOL& result) {
  Text file(path);
  result = 7;
  return Recurrence()->RenseignerChampBinaire(&field, file.in_out(), &result);
}

/// The sizes of the chunks in which a file of `size` bytes arrives.
std::vector<unsigned long> chunks_of(std::size_t size) {
  const SampleFile file(size);
  BinaryField field;
  VARIANT_BOOL result;
  EXPECT_EQ(S_OK, load(field.object.get(), file.path, result));
  EXPECT_EQ(VARIANT_TRUE, result);
  EXPECT_EQ(file.bytes, field.bytes);
  EXPECT_TRUE(file.is_closed());
  return field.sizes;
}

using Sizes = std::vector<unsigned long>;

TEST(Periodicite, RenseignerChampBinaire_OneByteIsOneChunk) { EXPECT_EQ(Sizes({1}), chunks_of(1)); }

TEST(Periodicite, RenseignerChampBinaire_ExactChunkIsPassedOnce) {
  EXPECT_EQ(Sizes({50000}), chunks_of(50000));
}

TEST(Periodicite, RenseignerChampBinaire_OneByteMoreIsAChunkOfItsOwn) {
  EXPECT_EQ(Sizes({50000, 1}), chunks_of(50001));
}

TEST(Periodicite, RenseignerChampBinaire_LastChunkIsShorter) {
  EXPECT_EQ(Sizes({50000, 50000, 20000}), chunks_of(120000));
}

TEST(Periodicite, RenseignerChampBinaire_EmptyFileIsFalseAndIsClosed) {
  const SampleFile file(0);
  BinaryField field;
  VARIANT_BOOL result;
  ASSERT_EQ(S_OK, load(field.object.get(), file.path, result));
  EXPECT_EQ(VARIANT_FALSE, result);
  EXPECT_TRUE(field.object->log.empty());
  EXPECT_TRUE(file.is_closed());
}

TEST(Periodicite, RenseignerChampBinaire_NoObjectIsFalse) {
  const SampleFile file(10);
  VARIANT_BOOL result;
  ASSERT_EQ(S_OK, load(nullptr, file.path, result));
  EXPECT_EQ(VARIANT_FALSE, result);
}

TEST(Periodicite, RenseignerChampBinaire_NoObjectDoesNotLookForTheFile) {
  VARIANT_BOOL result;
  ASSERT_EQ(S_OK, load(nullptr, L"Z:\\missing folder\\missing file", result));
  EXPECT_EQ(VARIANT_FALSE, result);
}

TEST(Periodicite, RenseignerChampBinaire_BlankNameIsFalse) {
  BinaryField field;
  for (const wchar_t* name : {L"", L"   "}) {
    VARIANT_BOOL result;
    ASSERT_EQ(S_OK, load(field.object.get(), name, result));
    EXPECT_EQ(VARIANT_FALSE, result);
  }
  EXPECT_TRUE(field.object->log.empty());
}

TEST(Periodicite, RenseignerChampBinaire_MissingFileIsFault53) {
  const SampleFile file(1);
  BinaryField field;
  VARIANT_BOOL result;
  EXPECT_TRUE(is_fault(load(field.object.get(), file.path + L".missing", result), 53, L"Periodicite"));
  EXPECT_EQ(VARIANT_FALSE, result);
  EXPECT_TRUE(field.object->log.empty());
}

TEST(Periodicite, RenseignerChampBinaire_MissingFileIsNotCreated) {
  const SampleFile file(1);
  BinaryField field;
  VARIANT_BOOL result;
  (void)load(field.object.get(), file.path + L".missing", result);
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW((file.path + L".missing").c_str()));
}

TEST(Periodicite, RenseignerChampBinaire_MissingFolderIsFault76) {
  BinaryField field;
  VARIANT_BOOL result;
  EXPECT_TRUE(
      is_fault(load(field.object.get(), L"C:\\missing folder\\sub\\file.bin", result), 76, L"Periodicite"));
}

TEST(Periodicite, RenseignerChampBinaire_FileThatSomeoneKeepsToHimselfIsFault70) {
  const SampleFile file(10);
  BinaryField field;
  VARIANT_BOOL result;
  HANDLE holder = file.open(GENERIC_READ);
  ASSERT_NE(INVALID_HANDLE_VALUE, holder);
  EXPECT_TRUE(is_fault(load(field.object.get(), file.path, result), 70, L"Periodicite"));
  CloseHandle(holder);
}

/// What reading a file comes to while the platform's function is replaced.
struct Reading {
  static inline BOOL succeeds;
  static inline DWORD error;

  static BOOL WINAPI instead(HANDLE, void*, DWORD length, DWORD* count, OVERLAPPED*) {
    *count = length - 1;
    SetLastError(error);
    return succeeds;
  }
};

void expect_unreadable(BOOL succeeds, DWORD error, int fault) {
  const SampleFile file(10);
  BinaryField field;
  const Recurrence object;  // the library stays loaded
  Reading::succeeds = succeeds;
  Reading::error = error;
  {
    const ReplacedImport read(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), "ReadFile", Reading::instead);
    VARIANT_BOOL result;
    EXPECT_TRUE(is_fault(load(field.object.get(), file.path, result), fault, L"Periodicite"));
    EXPECT_EQ(VARIANT_FALSE, result);
  }
  EXPECT_TRUE(field.object->log.empty());
  EXPECT_TRUE(file.is_closed());
}

TEST(Periodicite, RenseignerChampBinaire_PartThatSomeoneHasLockedIsFault70) {
  expect_unreadable(FALSE, ERROR_LOCK_VIOLATION, 70);
}

TEST(Periodicite, RenseignerChampBinaire_DeviceThatCannotReadIsFault57) {
  expect_unreadable(FALSE, ERROR_CRC, 57);
}

TEST(Periodicite, RenseignerChampBinaire_FileThatEndsBeforeItsSizeIsFault57) {
  expect_unreadable(TRUE, ERROR_SUCCESS, 57);
}

TEST(Periodicite, RenseignerChampBinaire_FailureOfTheFieldIsPassedOn) {
  const SampleFile file(120000);
  const auto field = FakeObject::make();
  constexpr auto kCode = static_cast<HRESULT>(0x800A0C93);
  field->on_get(L"AppendChunk", [](const FakeObject::Arguments&) -> Variant {
    throw FakeObject::Error{kCode, L"ADODB.Field", L"Opération non autorisée"};
  });
  VARIANT_BOOL result;
  EXPECT_EQ(kCode, load(field.get(), file.path, result));
  EXPECT_EQ(L"Opération non autorisée", take_error().description);
  EXPECT_EQ(1U, field->log.size());
  EXPECT_EQ(VARIANT_FALSE, result);
  EXPECT_TRUE(file.is_closed());
}

TEST(Periodicite, RenseignerChampBinaire_FailureAtTheSecondChunkIsPassedOn) {
  const SampleFile file(120000);
  const auto field = FakeObject::make();
  int calls = 0;
  field->on_get(L"AppendChunk", [&calls](const FakeObject::Arguments&) -> Variant {
    if (++calls == 2) throw FakeObject::Error{E_ACCESSDENIED, L"ADODB.Field", L"refus"};
    return Variant();
  });
  VARIANT_BOOL result;
  EXPECT_EQ(E_ACCESSDENIED, load(field.get(), file.path, result));
  EXPECT_EQ(2, calls);
}

TEST(Periodicite, RenseignerChampBinaire_ObjectWithoutAppendChunkIsFault438) {
  const SampleFile file(10);
  VARIANT_BOOL result;
  EXPECT_TRUE(is_fault(load(FakeObject::make().get(), file.path, result), 438, L"Periodicite"));
}

TEST(Periodicite, RenseignerChampBinaire_FieldIsNotKept) {
  const SampleFile file(10);
  BinaryField field;
  VARIANT_BOOL result;
  const Recurrence object;
  Text path(file.path);
  IDispatch* target = field.object.get();
  ASSERT_EQ(S_OK, object->RenseignerChampBinaire(&target, path.in_out(), &result));
  EXPECT_EQ(1, field.object->references());
  EXPECT_EQ(field.object.get(), target);
}

TEST(Periodicite, RenseignerChampBinaire_LateBoundAnswersTheSame) {
  const SampleFile file(50001);
  BinaryField field;
  Variant result;
  ASSERT_EQ(S_OK, call(create_dispatch(L"Periodicite").get(), L"RenseignerChampBinaire",
                       arguments(object_value(field.object.get()), text_value(file.path)), result.receive()));
  EXPECT_EQ(VT_BOOL, result.get().vt);
  EXPECT_EQ(VARIANT_TRUE, result.get().boolVal);
  EXPECT_EQ(Sizes({50000, 1}), field.sizes);
  EXPECT_EQ(file.bytes, field.bytes);
}

TEST(Periodicite, RenseignerChampBinaire_LateBoundScriptVariables) {
  const SampleFile file(3);
  BinaryField field;
  Variant object = object_value(field.object.get());
  Variant path = text_value(file.path);
  Variant result;
  ASSERT_EQ(S_OK, call(create_dispatch(L"Periodicite").get(), L"RenseignerChampBinaire",
                       arguments(by_reference(object.get()), by_reference(path.get())), result.receive()));
  EXPECT_EQ(VARIANT_TRUE, result.get().boolVal);
  EXPECT_EQ(Sizes({3}), field.sizes);
}

}  // namespace
