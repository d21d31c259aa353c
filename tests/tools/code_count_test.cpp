// Outil.ListeCodes_NbCodes: counting, the 16-bit limit, and cost in step with the length of the list.
#include <chrono>
#include <functional>

#include "tools/tools_fixture.h"

namespace {

using host::Text;
using namespace std::chrono_literals;

class ListeCodesNbCodes : public host::ToolsTest {
 protected:
  HRESULT run(std::wstring_view list) { return tools_->ListeCodes_NbCodes(Text(list), &count_); }
  short count(std::wstring_view list) {
    count_ = 77;
    EXPECT_EQ(S_OK, run(list)) << host::utf8(list.substr(0, 80));
    return count_;
  }

  static std::wstring list_of(int codes) {
    std::wstring list;
    for (int i = 0; i < codes; ++i) {
      if (i > 0) list += L", ";
      list += L"\"C" + std::to_wstring(100000 + i) + L"\"";
    }
    return list;
  }

  /// The shortest of three runs.
  static std::chrono::duration<double> time_of(const std::function<void()>& work) {
    auto best = std::chrono::duration<double>::max();
    for (int i = 0; i < 3; ++i) {
      const auto start = std::chrono::steady_clock::now();
      work();
      best = std::min<std::chrono::duration<double>>(best, std::chrono::steady_clock::now() - start);
    }
    return best;
  }

  short count_ = 77;
};

TEST_F(ListeCodesNbCodes, IsZeroForTheEmptyText) { EXPECT_EQ(0, count(L"")); }

TEST_F(ListeCodesNbCodes, CountsWhatTheTokenReaderTakes) {
  const struct {
    const wchar_t* list;
    short expected;
  } cases[] = {{LR"("A")", 1},   {LR"("")", 1},        {LR"("A", "B")", 2},    {LR"("A","B")", 2},
               {LR"("A", )", 1}, {LR"("A",)", 1},      {LR"("a""b")", 2},      {LR"("A)", 1},
               {LR"(")", 1},     {LR"("A", "B" )", 2}, {LR"("A",    "B")", 2}, {LR"("""""")", 3}};
  for (const auto& [list, expected] : cases) EXPECT_EQ(expected, count(list)) << host::utf8(list);
}

TEST_F(ListeCodesNbCodes, LeavesTheCallersText) {
  Text list(LR"("A", "B")");
  ASSERT_EQ(S_OK, tools_->ListeCodes_NbCodes(list, &count_));
  EXPECT_EQ(LR"("A", "B")", list.str());
}

TEST_F(ListeCodesNbCodes, OverflowsForATextThatIsNoList) {
  for (const wchar_t* list : {L"A", L" ", LR"( "A")", L",", LR"("A"x)", LR"("A"; "B")", LR"("A" , "B")",
                              LR"("A" )", LR"("A",, "B")", LR"("A", B)"}) {
    count_ = 77;
    EXPECT_TRUE(host::is_fault(run(list), 6, L"Outil")) << host::utf8(list);
    EXPECT_EQ(0, count_) << "a partial count of " << host::utf8(list);
  }
}

TEST_F(ListeCodesNbCodes, CountsUpTo32767Codes) { EXPECT_EQ(32767, count(list_of(32767))); }

TEST_F(ListeCodesNbCodes, OverflowsFor32768Codes) {
  EXPECT_TRUE(host::is_fault(run(list_of(32768)), 6, L"Outil"));
}

TEST_F(ListeCodesNbCodes, AnswersALongTextThatIsNoListInBoundedTime) {
  constexpr std::size_t kCharacters = 524288;  // 1 MB
  const std::wstring texts[] = {std::wstring(kCharacters, L'x'), std::wstring(kCharacters, L' '),
                                std::wstring(kCharacters, L'"'), L"\"A\"" + std::wstring(kCharacters, L' '),
                                L"\"A\"," + std::wstring(kCharacters, L' ') + L"x"};
  for (std::size_t i = 0; i < std::size(texts); ++i) {
    HRESULT outcome = S_OK;
    const auto time = time_of([&] { outcome = run(texts[i]); });
    EXPECT_TRUE(host::is_fault(outcome, 6, L"Outil")) << "text " << i;
    EXPECT_LT(time, 1s) << "text " << i;
  }
}

TEST_F(ListeCodesNbCodes, AnswersLongBlanksBehindUnseparatedCodesInBoundedTime) {
  std::wstring list;
  for (int i = 0; i < 16000; ++i) list += L"\"\"";
  list.append(524288, L' ');
  HRESULT outcome = S_OK;
  const auto time = time_of([&] { outcome = run(list); });
  EXPECT_TRUE(host::is_fault(outcome, 6, L"Outil"));
  EXPECT_LT(time, 1s);
}

// Sixteen times the codes: a walk in step takes sixteen times as long, a quadratic one 256 times. So far
// apart the cost of fresh memory does not look like a second factor.
constexpr double kMostRatio = 100;

TEST_F(ListeCodesNbCodes, CostsInStepWithTheNumberOfCodes) {
  const std::wstring small = list_of(1250), large = list_of(20000);
  const auto repeated = [&](const std::wstring& list) {
    return time_of([&] {
      for (int i = 0; i < 10; ++i) count(list);
    });
  };
  EXPECT_LT(repeated(large) / repeated(small), kMostRatio);
}

TEST_F(ListeCodesNbCodes, ExtractionOfTheLastCodeCostsInStepWithTheNumberOfCodes) {
  const auto repeated = [&](int codes) {
    const std::wstring list = list_of(codes);
    const Text last(L"C" + std::to_wstring(100000 + codes - 1));
    return time_of([&] {
      for (int i = 0; i < 10; ++i) {
        Text text(list);
        ASSERT_EQ(S_OK, tools_->ListeCodes_ExtractionCode(text.in_out(), last));
        ASSERT_EQ(list.size() - 9, text.str().size());
      }
    });
  };
  EXPECT_LT(repeated(20000) / repeated(1250), kMostRatio);
}

TEST_F(ListeCodesNbCodes, QuotingCostsInStepWithTheNumberOfQuotes) {
  const auto repeated = [&](std::size_t quotes) {
    const Text text(std::wstring(quotes, L'"'));
    return time_of([&] {
      for (int i = 0; i < 10; ++i) {
        Text result;
        ASSERT_EQ(S_OK, tools_->SetStringForSQL(text, &result));
        ASSERT_EQ(2 * quotes + 2, result.str().size());
      }
    });
  };
  EXPECT_LT(repeated(800000) / repeated(50000), kMostRatio);
}

}  // namespace
