// Texts that are too deep, too wide, too many or too long: refused before anything grows with them.
#include <algorithm>
#include <functional>

#include "hostile/hostile_text.h"

namespace {

using hostile::End;
using hostile::good_invoice;
using hostile::repeated;

constexpr std::size_t kLevels = 256, kAttributes = 256, kParts = 2'000'000, kCharacters = 33'554'432;

std::wstring nested(std::size_t levels) {
  return L"<INVOICE>" + repeated(L"<a>", levels - 1) + repeated(L"</a>", levels - 1) + L"</INVOICE>";
}

std::wstring attributes(std::size_t number, const std::wstring& prefix = L"a") {
  std::wstring text;
  for (std::size_t i = 0; i < number; ++i) text += L" " + prefix + std::to_wstring(i) + L"=\"1\"";
  return text;
}

class DeepText : public hostile::HostileText {
 protected:
  DeepText() : HostileText("nested elements, up to 1,000,000 levels") {}

  /// On a thread whose stack is that small.
  void on_small_stack(const std::function<void()>& body) {
    struct Run {
      static DWORD WINAPI start(void* body) {
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        (*static_cast<const std::function<void()>*>(body))();
        CoUninitialize();
        return 0;
      }
    };
    constexpr SIZE_T kStack = 128 * 1024;
    auto* const argument = const_cast<std::function<void()>*>(&body);
    const HANDLE thread =
        CreateThread(nullptr, kStack, Run::start, argument, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    ASSERT_NE(nullptr, thread);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, INFINITE));
    CloseHandle(thread);
  }
  void with_own_object(const std::function<void()>& body) {
    auto other = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
    std::swap(invoices_, other);
    body();
    std::swap(invoices_, other);
  }
};

TEST_F(DeepText, UpToTheBound_IsTaken) {
  is_taken(nested(2));
  is_taken(nested(kLevels));
}

TEST_F(DeepText, BeyondTheBound_IsRefused) {
  for (const std::size_t levels :
       {kLevels + 1, std::size_t{1000}, std::size_t{10'000}, std::size_t{1'000'000}}) {
    is_refused(nested(levels), std::to_string(levels));
  }
}

TEST_F(DeepText, NeverClosed_IsRefused) {
  is_refused(repeated(L"<INVOICE>", 10'000));
  is_refused(repeated(L"<INVOICE>", 1'000'000));
}

TEST_F(DeepText, InOnlyEmptyElementsAtTheBound_IsRefused) {
  is_refused(L"<INVOICE>" + repeated(L"<a>", kLevels - 1) + L"<b/>" + repeated(L"</a>", kLevels - 1) +
             L"</INVOICE>");
}

TEST_F(DeepText, ManyElementsSideBySide_AreNotDeep) {
  is_taken(L"<INVOICE>" + repeated(L"<a></a>", 1000) + L"</INVOICE>");
}

TEST_F(DeepText, ClosedMoreOftenThanOpened_IsRefused) {
  is_refused(L"<INVOICE/>" + repeated(L"</a>", 100'000));
  is_refused(repeated(L"</a>", 100'000));
}

TEST_F(DeepText, OnASmallStack_IsTakenUpToTheBoundAndRefusedBeyond) {
  on_small_stack([&] {
    with_own_object([&] {
      is_taken(nested(kLevels));
      is_refused(nested(10'000));
      is_refused(nested(1'000'000));
    });
  });
}

class WideText : public hostile::HostileText {
 protected:
  WideText() : HostileText("elements with too many attributes") {}
};

TEST_F(WideText, AsManyAttributesAsTheBound_AreTaken) {
  is_taken(L"<INVOICE" + attributes(kAttributes) + L"/>");
}

TEST_F(WideText, MoreAttributesThanTheBound_AreRefused) {
  is_refused(L"<INVOICE" + attributes(kAttributes + 1) + L"/>");
  is_refused(L"<INVOICE" + attributes(100'000) + L"/>");
  is_refused(L"<INVOICE>" + std::wstring(L"<a") + attributes(100'000) + L"></a></INVOICE>");
}

TEST_F(WideText, NamespacesCountAsAttributes) {
  is_refused(L"<INVOICE" + attributes(100'000, L"xmlns:n") + L"/>");
}

TEST_F(WideText, AttributesOfElementsAroundCount) {
  const std::wstring start = L"<a" + attributes(100) + L">";
  is_taken(L"<INVOICE>" + repeated(start, 2) + repeated(L"</a>", 2) + L"</INVOICE>");
  is_refused(L"<INVOICE>" + repeated(start, 3) + repeated(L"</a>", 3) + L"</INVOICE>");
}

TEST_F(WideText, AttributesOfElementsBeforeDoNotCount) {
  is_taken(L"<INVOICE>" + repeated(L"<a" + attributes(100) + L"></a>", 10) +
           repeated(L"<a" + attributes(100) + L"/>", 10) + L"</INVOICE>");
}

TEST_F(WideText, TheSameAttributeTwice_IsRefused) { is_refused(L"<INVOICE A=\"1\" A=\"2\"/>"); }

TEST_F(WideText, EqualSignsInValuesAndTexts_AreNoAttributes) {
  is_taken(L"<INVOICE A=\"" + std::wstring(1000, L'=') + L"\">" + std::wstring(1000, L'=') + L"</INVOICE>");
}

/// Texts of fifty megabytes.
class LongText : public hostile::HostileText {
 protected:
  LongText() : HostileText("texts of 50 MB and more") {}
  static constexpr std::size_t kUnits = 25'000'000;  // fifty million bytes

  void is_harmless(const std::wstring& text) {
    count_text();
    give(0, text);
    works_afterwards();
  }
};

TEST_F(LongText, OfOneWord_IsHarmless) {
  is_harmless(L"<INVOICE>" + std::wstring(kUnits, L'x') + L"</INVOICE>");
}

TEST_F(LongText, OfOneValue_IsHarmless) {
  is_harmless(L"<INVOICE A=\"" + std::wstring(kUnits, L'x') + L"\"/>");
}

TEST_F(LongText, OfOneName_IsHarmless) { is_harmless(L"<" + std::wstring(kUnits, L'x') + L"/>"); }

TEST_F(LongText, OfOneComment_IsHarmless) {
  is_harmless(L"<INVOICE><!--" + std::wstring(kUnits, L'x') + L"--></INVOICE>");
}

TEST_F(LongText, OfWordsInElements_IsHarmless) {
  const std::wstring word = L"<a>" + std::wstring(1000, L'x') + L"</a>";
  is_harmless(L"<INVOICE>" + repeated(word, kUnits / word.size()) + L"</INVOICE>");
}

TEST_F(LongText, OfBlanksOrNothingThatIsMarkup_IsRefused) {
  is_refused(std::wstring(kUnits, L' '));
  is_refused(std::wstring(kUnits, L'x'));
  is_refused(std::wstring(kUnits, L'<'));
}

TEST_F(LongText, BeyondTheBound_IsRefused) {
  is_refused(L"<INVOICE>" + repeated(L"<a>" + std::wstring(999'993, L'x') + L"</a>", 50) + L"</INVOICE>");
  is_refused(L"<INVOICE/>" + std::wstring(kCharacters, L' '));
}

class ManyParts : public hostile::HostileText {
 protected:
  ManyParts() : HostileText("too many elements, comments or sections") {}

  void is_refused_beyond(const wchar_t* part) {
    is_refused(L"<INVOICE>" + repeated(part, kParts) + L"</INVOICE>", host::utf8(part));
  }
};

TEST_F(ManyParts, MorePartsThanTheBound_AreRefused) {
  for (const wchar_t* part : {L"<a/>x", L"<!---->", L"<a></a>"}) is_refused_beyond(part);
}

TEST_F(ManyParts, AttributesAreParts) {
  is_refused(L"<INVOICE>" + repeated(L"<a b=\"\"/>", kParts / 2) + L"</INVOICE>");
}

TEST_F(ManyParts, EndsOfElementsAreNoParts) {
  // With the root, exactly the bound.
  const std::size_t each = 50'000;
  is_taken(L"<INVOICE>" + repeated(L"<a></a>", each) + L"</INVOICE>");
}

/// Time and memory of a hostile text, beside those of a good one of the same size.
class Cost : public hostile::HostileText {
 protected:
  Cost() : HostileText("costly texts of 400,000 characters, timed") {}
  static constexpr std::size_t kUnits = 400'000;

  /// Processor time of a call, the best of three: others use the machine too.
  double time_of(const std::wstring& text) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
      const double before = processor_time();
      give(0, text);
      best = std::min(best, processor_time() - before);
    }
    return best;
  }
  static double processor_time() {
    FILETIME created, ended, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
    const auto seconds = [](const FILETIME& time) {
      return 1e-7 * (4294967296.0 * time.dwHighDateTime + time.dwLowDateTime);
    };
    return seconds(kernel) + seconds(user);
  }

  /// At most twenty times what a good text takes.
  void costs_no_more(const std::string& what, const std::wstring& text) {
    count_text();
    static const double good = std::max(0.02, time_of(good_invoice(kUnits)));
    const double bad = time_of(text) * kUnits / std::max(kUnits, text.size());
    EXPECT_GT(20 * good, bad) << what;
  }
  static std::wstring filled(const std::wstring& part) {
    return L"<INVOICE>" + repeated(part, kUnits / part.size()) + L"</INVOICE>";
  }
};

TEST_F(Cost, OfPartsWithoutEnd_IsThatOfAGoodText) {
  for (const wchar_t* part : {L"<a/>", L"<a/>x", L"<!---->", L"<?a?>", L"<![CDATA[x]]>", L"&lt;", L"&#65;",
                              L"]]", L"<a:b xmlns:a=\"u\"/>", L"\r\n", L"<a b=\"&lt;&lt;&lt;\"/>"}) {
    costs_no_more(host::utf8(part), filled(part));
  }
}

TEST_F(Cost, OfElementsAsWideAsTheBound_IsThatOfAGoodText) {
  costs_no_more("attributes", filled(L"<a" + attributes(255) + L"/>"));
  costs_no_more("namespaces", filled(L"<a" + attributes(255, L"xmlns:n") + L"/>"));
}

TEST_F(Cost, OfElementsAsDeepAsTheBound_IsThatOfAGoodText) {
  costs_no_more("levels", filled(repeated(L"<a>", 255) + repeated(L"</a>", 255)));
  costs_no_more("namespaces", L"<INVOICE>" + repeated(L"<b" + attributes(1, L"xmlns:n") + L">", 250) +
                                  repeated(L"<n0:x/>", kUnits / 7) + repeated(L"</b>", 250) + L"</INVOICE>");
}

TEST_F(Cost, OfRefusedTexts_IsThatOfAGoodText) {
  costs_no_more("one element of attributes", L"<INVOICE" + attributes(kUnits / 11) + L"/>");
  costs_no_more("open comments", L"<INVOICE>" + repeated(L"<!--", kUnits / 4));
  costs_no_more("open sections", L"<INVOICE>" + repeated(L"<![CDATA[", kUnits / 9));
  costs_no_more("open tags", repeated(L"<", kUnits));
  costs_no_more("quotes", L"<INVOICE " + repeated(L"a='", kUnits / 3));
  costs_no_more("instructions", repeated(L"<?", kUnits / 2));
}

/// The highest memory of the process does not rise with what a bomb would hold.
TEST_F(Cost, OfABomb_IsNoMemory) {
  MEMORYSTATUS before{}, after{};
  GlobalMemoryStatus(&before);
  std::wstring declarations = L"<!ENTITY e0 \"mot\">";
  for (int level = 1; level <= 30; ++level) {
    declarations += L"<!ENTITY e" + std::to_wstring(level) + L" \"" +
                    repeated(L"&e" + std::to_wstring(level - 1) + L";", 10) + L"\">";
  }
  for (int i = 0; i < 100; ++i) {
    give(static_cast<std::size_t>(i) % kMethods,
         L"<!DOCTYPE INVOICE [" + declarations + L"]><INVOICE>&e30;</INVOICE>");
  }
  GlobalMemoryStatus(&after);
  EXPECT_GT(before.dwAvailVirtual, 16U << 20);
  EXPECT_LT(before.dwAvailVirtual - std::min(before.dwAvailVirtual, after.dwAvailVirtual), 16U << 20);
}

}  // namespace
