// Outil.SetLabelHauteur on a real label: a STATIC window that measures its text as a form's label does.
#include "controls/scripted_control.h"
#include "support/arguments.h"
#include "support/window.h"

namespace {

using host::FakeObject;
using host::missing;
using host::Text;
using host::Variant;

constexpr long kWidth = 150;
constexpr wchar_t kShort[] = L"Contrat";
constexpr wchar_t kLong[] =
    L"Entretien annuel de la chaudière, pièces et main-d'œuvre comprises, hors déplacement le dimanche "
    L"et les jours fériés ; le client est prévenu quinze jours avant chaque visite.";

/// In pixels. With AutoSize the window takes the height of its text at each change, wrapped or on one line.
class LabelWindow : public ::testing::Test {
 protected:
  LabelWindow() {
    label_->on_get(L"Width", [this](auto&) { return Variant(static_cast<long>(window_.size().cx)); });
    label_->on_put(L"Width", [this](const VARIANT& value) { resize(value.lVal, window_.size().cy); });
    label_->on_put(L"Height", [this](const VARIANT& value) { resize(window_.size().cx, value.lVal); });
    label_->on_put(L"WordWrap", [this](const VARIANT& value) { wraps_ = value.boolVal != VARIANT_FALSE; });
    label_->on_put(L"AutoSize", [this](const VARIANT& value) {
      grows_ = value.boolVal != VARIANT_FALSE;
      grow();
    });
    label_->on_put(L"Caption", [this](const VARIANT& value) {
      SetWindowTextW(window_.handle(), host::get(value.bstrVal).c_str());
      grow();
    });
    label_->on_put(L"ForeColor", [this](const VARIANT& value) { colour_ = value.lVal; });
    label_->on_get(L"Font", [this](auto&) { return host::object_value(font_.get()); });
    font_->on_put(L"Bold", [this](const VARIANT& value) { make_font(value.boolVal ? FW_BOLD : FW_NORMAL); });
    make_font(FW_NORMAL);
  }
  ~LabelWindow() override { DeleteObject(drawn_with_); }

  void make_font(int weight) {
    DeleteObject(drawn_with_);
    drawn_with_ = CreateFontW(-13, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                              CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"DejaVu Sans");
    SendMessageW(window_.handle(), WM_SETFONT, reinterpret_cast<WPARAM>(drawn_with_), TRUE);
    weight_ = weight;
    grow();
  }
  void resize(long width, long height) {
    SetWindowPos(window_.handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  void grow() {
    if (!grows_) return;
    const long width = window_.size().cx;
    resize(width, needed_height(width));
  }
  [[nodiscard]] std::wstring caption() const {
    wchar_t text[400];
    return {text, static_cast<std::size_t>(GetWindowTextW(window_.handle(), text, 400))};
  }
  /// Height of the label's text at a width, with the label's font.
  [[nodiscard]] long needed_height(long width) const {
    const std::wstring text = caption();
    if (text.empty()) return 0;
    const HDC device = GetDC(window_.handle());
    const HGDIOBJ former = SelectObject(device, drawn_with_);
    RECT room{0, 0, width, 0};
    DrawTextW(device, text.c_str(), -1, &room, DT_CALCRECT | (wraps_ ? DT_WORDBREAK : DT_SINGLELINE));
    SelectObject(device, former);
    ReleaseDC(window_.handle(), device);
    return room.bottom;
  }

  HRESULT fit(std::wstring_view text, const Variant& width = missing(), const Variant& colour = missing(),
              const Variant& bold = missing()) {
    return tools_->SetLabelHauteur(label_.get(), Text(text), width.get(), colour.get(), bold.get());
  }

  const host::ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const host::Window window_{L"STATIC", RECT{60, 60, 60 + kWidth, 260}};
  const host::ComPtr<FakeObject> label_ = FakeObject::make();
  const host::ComPtr<FakeObject> font_ = FakeObject::make();
  HFONT drawn_with_ = nullptr;
  bool wraps_ = false;
  bool grows_ = false;
  long colour_ = 0x123456;
  int weight_ = 0;
};

TEST_F(LabelWindow, TakesTheHeightOfItsWrappedText) {
  ASSERT_EQ(S_OK, fit(kShort));
  const long line = window_.size().cy;
  EXPECT_GT(line, 8);
  EXPECT_LT(line, 30);
  ASSERT_EQ(S_OK, fit(kLong));
  EXPECT_EQ(needed_height(kWidth), window_.size().cy);
  EXPECT_GE(window_.size().cy, 6 * line);
  EXPECT_EQ(kLong, caption());
}

TEST_F(LabelWindow, ShrinksAgainForAShorterText) {
  ASSERT_EQ(S_OK, fit(kLong));
  const long tall = window_.size().cy;
  ASSERT_EQ(S_OK, fit(kShort));
  EXPECT_LT(window_.size().cy, tall / 5);
}

TEST_F(LabelWindow, GrowsWordByWord) {
  std::wstring text;
  long height = 0;
  int growths = 0;
  for (int i = 0; i < 30; ++i) {
    text += L"visite ";
    ASSERT_EQ(S_OK, fit(text));
    EXPECT_GE(window_.size().cy, height);
    if (window_.size().cy > height) ++growths;
    height = window_.size().cy;
  }
  EXPECT_GE(growths, 8);
}

TEST_F(LabelWindow, WithoutWidth_KeepsTheLabelsWidth) {
  ASSERT_EQ(S_OK, fit(kLong));
  EXPECT_EQ(kWidth, window_.size().cx);
  ASSERT_EQ(S_OK, fit(kShort));
  EXPECT_EQ(kWidth, window_.size().cx);
}

TEST_F(LabelWindow, WithAWiderWidth_NeedsFewerLines) {
  ASSERT_EQ(S_OK, fit(kLong));
  const long narrow = window_.size().cy;
  ASSERT_EQ(S_OK, fit(kLong, Variant(4 * kWidth)));
  EXPECT_EQ(4 * kWidth, window_.size().cx);
  EXPECT_LT(window_.size().cy, narrow / 2);
}

TEST_F(LabelWindow, WithoutColourAndBoldness_KeepsBoth) {
  ASSERT_EQ(S_OK, fit(kLong));
  EXPECT_EQ(0x123456, colour_);
  EXPECT_EQ(FW_NORMAL, weight_);
}

TEST_F(LabelWindow, WithColourAndBoldness_TakesBothAndTheBoldTextsHeight) {
  ASSERT_EQ(S_OK, fit(kLong));
  const long normal = window_.size().cy;
  ASSERT_EQ(S_OK, fit(kLong, missing(), Variant(255L), Variant(true)));
  EXPECT_EQ(255, colour_);
  EXPECT_EQ(FW_BOLD, weight_);
  EXPECT_GT(window_.size().cy, normal);
}

TEST_F(LabelWindow, AnEmptyTextLeavesAFlatLabel) {
  ASSERT_EQ(S_OK, fit(kLong));
  ASSERT_EQ(S_OK, fit(L""));
  EXPECT_EQ(0, window_.size().cy);
  EXPECT_EQ(kWidth, window_.size().cx);
}

TEST_F(LabelWindow, IsFittedByALateBoundCall) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetLabelHauteur",
                             host::arguments(host::object_value(label_.get()), host::text_value(kLong),
                                             Variant(2 * kWidth)),
                             nullptr));
  EXPECT_EQ(2 * kWidth, window_.size().cx);
  EXPECT_EQ(needed_height(2 * kWidth), window_.size().cy);
}

}  // namespace
