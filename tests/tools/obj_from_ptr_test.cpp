// Outil.ObjFromPtr: an object from the number of its address.
#include <cstdint>

#include "support/arguments.h"
#include "support/fake_object.h"

namespace {

class ObjFromPtr : public ::testing::Test {
 protected:
  static long address_of(const void* object) {
    return static_cast<long>(reinterpret_cast<std::intptr_t>(object));
  }

  host::ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
};

TEST_F(ObjFromPtr, GivesNoObjectForZero) {
  IDispatch* object = tools_.get();  // must be overwritten
  ASSERT_EQ(S_OK, tools_->ObjFromPtr(0, &object));
  EXPECT_EQ(nullptr, object);
}

TEST_F(ObjFromPtr, GivesTheObjectAtALiveAddressWithExactlyOneMoreReference) {
  const auto host_object = host::FakeObject::make();
  host::ComPtr<IDispatch> object;
  ASSERT_EQ(S_OK, tools_->ObjFromPtr(address_of(host_object.get()), object.receive()));
  EXPECT_EQ(host_object.get(), object.get());
  EXPECT_EQ(2, host_object->references());
}

TEST_F(ObjFromPtr, LeavesTheHostsReferenceValidWhenTheResultIsReleased) {
  const auto host_object = host::FakeObject::make();
  host_object->property(L"Nom", host::text_value(L"hôte"));
  {
    host::ComPtr<IDispatch> object;
    ASSERT_EQ(S_OK, tools_->ObjFromPtr(address_of(host_object.get()), object.receive()));
  }
  EXPECT_EQ(1, host_object->references());
  host::Variant name;
  ASSERT_EQ(S_OK, host::get_property(host_object.get(), L"Nom", name.receive()));
  EXPECT_EQ(L"hôte", host::get(name.get().bstrVal));
}

TEST_F(ObjFromPtr, TakesAReferenceForEachCall) {
  const auto host_object = host::FakeObject::make();
  host::ComPtr<IDispatch> first, second;
  ASSERT_EQ(S_OK, tools_->ObjFromPtr(address_of(host_object.get()), first.receive()));
  ASSERT_EQ(S_OK, tools_->ObjFromPtr(address_of(host_object.get()), second.receive()));
  EXPECT_EQ(3, host_object->references());
}

TEST_F(ObjFromPtr, UsesNoMemberOfTheObject) {
  const auto host_object = host::FakeObject::make();
  host::ComPtr<IDispatch> object;
  ASSERT_EQ(S_OK, tools_->ObjFromPtr(address_of(host_object.get()), object.receive()));
  EXPECT_EQ(std::vector<std::wstring>{}, host_object->log);
}

TEST_F(ObjFromPtr, GivesAnObjectOfTheLibraryItself) {
  IDispatch* own = tools_.get();
  host::ComPtr<IDispatch> object;
  ASSERT_EQ(S_OK, tools_->ObjFromPtr(address_of(own), object.receive()));
  EXPECT_EQ(own, object.get());
}

TEST_F(ObjFromPtr, FailsWhereNoObjectCanBe) {
  static const void* const zeroes[16] = {};
  for (const long address : {1L, 0x10L, -1L, address_of(zeroes)}) {
    IDispatch* object = tools_.get();
    EXPECT_TRUE(FAILED(tools_->ObjFromPtr(address, &object))) << address;
    EXPECT_EQ(nullptr, object) << address;
    EXPECT_NE(L"", host::take_error().description) << address;
  }
}

TEST_F(ObjFromPtr, AnswersALateBoundCall) {
  const auto host_object = host::FakeObject::make();
  {
    host::Variant result;
    ASSERT_EQ(S_OK,
              host::call(tools_.get(), L"ObjFromPtr",
                         host::arguments(host::Variant(address_of(host_object.get()))), result.receive()));
    ASSERT_EQ(VT_DISPATCH, result.get().vt);
    EXPECT_EQ(host_object.get(), result.get().pdispVal);
    EXPECT_EQ(2, host_object->references());
  }
  EXPECT_EQ(1, host_object->references());
}

TEST_F(ObjFromPtr, AnswersALateBoundCallForZeroWithNoObject) {
  host::Variant result(5L);
  ASSERT_EQ(S_OK,
            host::call(tools_.get(), L"ObjFromPtr", host::arguments(host::Variant(0L)), result.receive()));
  EXPECT_EQ(VT_DISPATCH, result.get().vt);
  EXPECT_EQ(nullptr, result.get().pdispVal);
}

TEST_F(ObjFromPtr, RefusesANullPointer) { EXPECT_EQ(E_POINTER, tools_->ObjFromPtr(0, nullptr)); }

}  // namespace
