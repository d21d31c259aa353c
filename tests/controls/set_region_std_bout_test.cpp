// Outil.SetRegionStdBout on a scripted button: what is read, and what stops the call.
#include "controls/scripted_control.h"
#include "support/arguments.h"

namespace {

using host::FakeObject;
using host::is_fault;
using host::is_refusal;
using host::Log;
using host::Variant;

class SetRegionStdBout : public ::testing::Test {
 protected:
  SetRegionStdBout() {
    button_->property(L"Container", host::object_value(container_.get()));
    container_->property(L"ScaleMode", Variant(short{1}));
    button_->property(L"Width", Variant(1500.0));
    button_->property(L"Height", Variant(375.0));
    button_->property(L"hWnd", Variant(0L));  // no window: the platform's answers are not examined
  }

  HRESULT cut() {
    IDispatch* button = button_.get();
    return tools_->SetRegionStdBout(&button);
  }

  const host::ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const host::ComPtr<FakeObject> button_ = FakeObject::make();
  const host::ComPtr<FakeObject> container_ = FakeObject::make();
};

TEST_F(SetRegionStdBout, ReadsTheContainerThenTheSizesThenTheWindow_AndSetsNothing) {
  ASSERT_EQ(S_OK, cut());
  ASSERT_LE(4U, button_->log.size());
  EXPECT_EQ(L"get Container", button_->log.front());
  EXPECT_EQ(L"get hWnd", button_->log.back());
  for (std::size_t i = 1; i + 1 < button_->log.size(); ++i) {
    EXPECT_TRUE(button_->log.at(i) == L"get Width" || button_->log.at(i) == L"get Height");
  }
  EXPECT_EQ(Log{L"get ScaleMode"}, container_->log);
}

TEST_F(SetRegionStdBout, NoButton_DoesNothing) {
  IDispatch* none = nullptr;
  EXPECT_EQ(S_OK, tools_->SetRegionStdBout(&none));
  EXPECT_EQ(nullptr, none);
}

TEST_F(SetRegionStdBout, RefusesANullPointer) { EXPECT_EQ(E_POINTER, tools_->SetRegionStdBout(nullptr)); }

TEST_F(SetRegionStdBout, AFailingScaleModeIsPassedOver) {
  refuse_get(container_, L"ScaleMode");
  host::take_error();
  EXPECT_EQ(S_OK, cut());
  EXPECT_EQ(L"", host::take_error().description);
  EXPECT_EQ(L"get hWnd", button_->log.back());
}

/// A property that every button must have.
class SetRegionStdBoutFailure : public SetRegionStdBout,
                                public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(SetRegionStdBoutFailure, AFailingPropertyStopsThereWithItsError) {
  refuse_get(button_, GetParam());
  EXPECT_TRUE(is_refusal(cut()));
  EXPECT_EQ(std::wstring(L"get ") + GetParam(), button_->log.back());
}

TEST_P(SetRegionStdBoutFailure, AMissingPropertyFails) {
  const auto bare = FakeObject::make();
  for (const wchar_t* name : {L"Container", L"Width", L"Height", L"hWnd"}) {
    if (std::wstring_view(name) != GetParam()) bare->property(name, Variant(0L));
  }
  IDispatch* button = bare.get();
  EXPECT_TRUE(is_fault(tools_->SetRegionStdBout(&button), 438, L"Outil"));
}

INSTANTIATE_TEST_SUITE_P(Properties, SetRegionStdBoutFailure,
                         ::testing::Values(L"Container", L"Width", L"Height", L"hWnd"),
                         [](const auto& property) { return host::utf8(property.param); });

TEST_F(SetRegionStdBout, ASizeThatIsNoNumberFails) {
  button_->property(L"Width", host::null_value());
  EXPECT_TRUE(is_fault(cut(), 94, L"Outil"));
  button_->property(L"Width", host::text_value(L"large"));
  EXPECT_TRUE(is_fault(cut(), 13, L"Outil"));
  button_->property(L"Width", Variant(1e300));
  EXPECT_TRUE(is_fault(cut(), 6, L"Outil"));
}

TEST_F(SetRegionStdBout, KeepsNoReference) {
  ASSERT_EQ(S_OK, cut());
  EXPECT_EQ(1, button_->references());
  EXPECT_EQ(2, container_->references());  // the test's and the button's
}

}  // namespace
