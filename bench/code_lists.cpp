// Code lists of the published greatest length.
#include <memory>

#include "support/host.h"
#include "tools/literal_code_lists.h"
#include "works.h"

namespace bench {
namespace {

constexpr long kCodes = 20000;

std::wstring code_text(long number) { return L"ART" + std::to_wstring(100000 + number); }

std::wstring list_of(long count) {
  std::wstring list;
  for (long i = 0; i < count; ++i) list += (i ? L", \"" : L"\"") + code_text(i) + L"\"";
  return list;
}

class ListWork {
 public:
  explicit ListWork(long count)
      : tools_(host::create<_Outil>(L"Outil")), list_(list_of(count)), text_(list_), count_(count) {}

  [[nodiscard]] Operation count() const {
    return {[this] {
      short counted = 0;
      must(tools_->ListeCodes_NbCodes(text_, &counted), "ListeCodes_NbCodes");
      if (counted != count_) must(E_FAIL, "ListeCodes_NbCodes");
    }};
  }
  [[nodiscard]] Operation literal_count() const {
    return {[this] { literal::count_codes(list_); }};
  }

  /// The last code, taken out: the whole list is searched.
  [[nodiscard]] Operation extract() {
    return {[this] {
              must(tools_->ListeCodes_ExtractionCode(changed_.in_out(), wanted_),
                   "ListeCodes_ExtractionCode");
            },
            [this] { changed_ = host::Text(list_); }};
  }
  [[nodiscard]] Operation literal_extract() {
    return {[this] { literal::extract_code(literal_changed_, wanted_.str()); },
            [this] { literal_changed_ = list_; }};
  }

 private:
  host::ComPtr<_Outil> tools_;
  std::wstring list_;
  host::Text text_;
  long count_;
  host::Text wanted_{code_text(count_ - 1)};
  host::Text changed_;
  std::wstring literal_changed_;
};

}  // namespace

void measure_code_lists(Bench& bench) {
  ListWork work(kCodes);
  if (bench.wants("count-codes")) bench.compare("count-codes", work.count(), work.literal_count());
  if (bench.wants("extract-codes")) bench.compare("extract-codes", work.extract(), work.literal_extract());
  std::vector<std::unique_ptr<ListWork>> kept;
  const auto sized = [&kept](long size) -> ListWork& {
    kept.push_back(std::make_unique<ListWork>(size));
    return *kept.back();
  };
  bench.grow("count-codes", "`ListeCodes_NbCodes`", kCodes / 16,
             [&](long size) { return sized(size).count(); });
  bench.grow("extract-codes", "`ListeCodes_ExtractionCode`", kCodes / 16,
             [&](long size) { return sized(size).extract(); });
}

}  // namespace bench
