// Bon.RazTabApp: an array of equipment items lets its objects go and becomes unallocated.
#include "documents/object_array.h"
#include "support/arguments.h"

namespace {

using host::Objects;
using Counts = std::vector<long>;

class RazTabApp : public ::testing::Test {
 protected:
  host::ComPtr<_Bon> orders_ = host::create<_Bon>(L"Bon");
  SAFEARRAY* array_ = nullptr;
};

TEST_F(RazTabApp, LeavesAnArrayThatWasNeverDimensioned) {
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ(nullptr, array_);
}

TEST_F(RazTabApp, ErasesAnArrayWithoutMemory) {
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptor(1, &array_));
  array_->cbElements = sizeof(IDispatch*);
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ(nullptr, array_);
}

TEST_F(RazTabApp, ReleasesEachObjectOnceAndErasesTheArray) {
  for (const bool marked : {true, false}) {
    Objects objects(3);
    array_ = objects.array_of({{3, 0}}, marked);
    ASSERT_EQ((Counts{2, 2, 2}), objects.references());
    ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
    EXPECT_EQ((Counts{1, 1, 1}), objects.references()) << marked;
    EXPECT_EQ(nullptr, array_);
  }
}

TEST_F(RazTabApp, ReleasesTheObjectsOfTwoDimensions) {
  for (const bool marked : {true, false}) {
    Objects objects(6);
    array_ = objects.array_of({{2, 0}, {3, 0}}, marked);
    ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
    EXPECT_EQ((Counts{1, 1, 1, 1, 1, 1}), objects.references()) << marked;
    EXPECT_EQ(nullptr, array_);
  }
}

TEST_F(RazTabApp, ReleasesAsOftenAsAnObjectStandsInTheArray) {
  Objects objects(2);
  array_ = objects.array_of({{4, 0}});
  host::element<IDispatch*>(array_, 2) = objects.hand_over(0);
  host::element<IDispatch*>(array_, 3) = objects.hand_over(0);
  ASSERT_EQ((Counts{4, 2}), objects.references());
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ((Counts{1, 1}), objects.references());
}

TEST_F(RazTabApp, PassesOverPlacesWithoutObject) {
  Objects objects(1);
  array_ = objects.array_of({{3, 0}});
  std::swap(host::element<IDispatch*>(array_, 0), host::element<IDispatch*>(array_, 2));
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ(Counts{1}, objects.references());
  EXPECT_EQ(nullptr, array_);
}

TEST_F(RazTabApp, UsesNoMemberOfTheObjects) {
  const auto object = host::FakeObject::make();
  SAFEARRAYBOUND bound{1, 0};
  array_ = SafeArrayCreate(VT_DISPATCH, 1, &bound);
  host::element<IDispatch*>(array_, 0) = host::ComPtr<IDispatch>::copy(object.get()).detach();
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ(std::vector<std::wstring>{}, object->log);
}

TEST_F(RazTabApp, ErasesAnArrayOfNoElement) {
  Objects objects(0);
  array_ = objects.array_of({{0, 0}});
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ(nullptr, array_);
}

TEST_F(RazTabApp, OfALockedArrayFailsAndLosesNothing) {
  Objects objects(2);
  array_ = objects.array_of({{2, 0}});
  SafeArrayLock(array_);
  EXPECT_TRUE(host::is_fault(orders_->RazTabApp(&array_), 10, L"Bon"));
  SafeArrayUnlock(array_);
  ASSERT_NE(nullptr, array_);
  EXPECT_EQ(objects.at(0), host::element<IDispatch*>(array_, 0));
  EXPECT_EQ(objects.at(1), host::element<IDispatch*>(array_, 1));
  EXPECT_EQ((Counts{2, 2}), objects.references());
  host::free_objects(array_, 2);
}

TEST_F(RazTabApp, OfAFixedArrayFailsAndLosesNothing) {
  Objects objects(2);
  array_ = objects.array_of({{2, 0}}, false);
  array_->fFeatures |= FADF_FIXEDSIZE;
  EXPECT_TRUE(host::is_fault(orders_->RazTabApp(&array_), 10, L"Bon"));
  array_->fFeatures = static_cast<USHORT>(array_->fFeatures & ~FADF_FIXEDSIZE);
  EXPECT_EQ((Counts{2, 2}), objects.references());
  host::free_objects(array_, 2);
}

TEST_F(RazTabApp, OfElementsOfAnotherSizeFailsAndLosesNothing) {
  Objects objects(1);
  SAFEARRAYBOUND bound{1, 0};
  SAFEARRAY* variants = array_ = SafeArrayCreate(VT_VARIANT, 1, &bound);
  host::element<VARIANT>(array_, 0) = host::object_value(objects.at(0)).detach();
  EXPECT_TRUE(host::is_fault(orders_->RazTabApp(&array_), 13, L"Bon"));
  EXPECT_EQ(variants, array_);
  EXPECT_EQ(Counts{2}, objects.references());
  SafeArrayDestroy(std::exchange(array_, nullptr));
}

TEST_F(RazTabApp, FromAnotherLowerBoundFailsAndLosesNothing) {
  Objects objects(2);
  array_ = objects.array_of({{2, 1}});
  EXPECT_TRUE(host::is_fault(orders_->RazTabApp(&array_), 9, L"Bon"));
  EXPECT_EQ((Counts{2, 2}), objects.references());
  host::free_objects(array_, 2);
}

TEST_F(RazTabApp, FromBelowZeroReleasesAllObjects) {
  Objects objects(3);
  array_ = objects.array_of({{3, -1}});
  ASSERT_EQ(S_OK, orders_->RazTabApp(&array_));
  EXPECT_EQ((Counts{1, 1, 1}), objects.references());
}

TEST_F(RazTabApp, OfALockedArrayWithoutMemoryFailsAndKeepsIt) {
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptor(1, &array_));
  array_->cbElements = sizeof(IDispatch*);
  array_->cLocks = 1;
  EXPECT_TRUE(host::is_fault(orders_->RazTabApp(&array_), 10, L"Bon"));
  ASSERT_NE(nullptr, array_);
  array_->cLocks = 0;
  SafeArrayDestroy(std::exchange(array_, nullptr));
}

TEST_F(RazTabApp, AnswersALateBoundCall) {
  Objects objects(2);
  array_ = objects.array_of({{2, 0}});
  ASSERT_EQ(S_OK, host::call(orders_.get(), L"RazTabApp",
                             host::arguments(host::by_reference(VT_ARRAY | VT_DISPATCH, &array_)), nullptr));
  EXPECT_EQ((Counts{1, 1}), objects.references());
  EXPECT_EQ(nullptr, array_);
}

TEST_F(RazTabApp, RefusesANullPointer) { EXPECT_EQ(E_POINTER, orders_->RazTabApp(nullptr)); }

}  // namespace
