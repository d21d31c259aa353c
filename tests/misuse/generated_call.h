// One generated call: an instance, a member, arguments, and what is looked at afterwards. The seed and the
// number say all of it.
#pragma once

#include "misuse/contents.h"
#include "misuse/findings.h"
#include "misuse/generator.h"

namespace misuse {

class GeneratedCall final : public ObjectHost {
 public:
  GeneratedCall(const Surroundings& surroundings, Findings& findings, std::uint64_t seed,
                std::uint64_t number);
  GeneratedCall(const GeneratedCall&) = delete;
  GeneratedCall& operator=(const GeneratedCall&) = delete;

  void run();
  /// Every call to the library, those from inside objects included.
  [[nodiscard]] std::uint64_t calls() const { return calls_; }
  /// Whether a second of the clock was not enough: for others that use the machine, or for a call that waits.
  [[nodiscard]] bool was_slow() const { return was_slow_; }

  Dice& dice() override { return dice_; }
  IDispatch* new_object() { return generator_.object(); }
  VARIANT plausible_value(std::wstring_view name) override { return generator_.member_value(name); }
  VARIANT odd_value() override { return generator_.variant(L"", 1); }
  void disturb() override;
  void report(const char* finding) override { add_finding(finding); }

 private:
  /// A parameter's variable in the host's memory.
  struct Variable {
    const Parameter* parameter = nullptr;
    VARIANT value{};
    void* record = nullptr;
    Variable* shared = nullptr;  // stands for that variable of an outer call
    std::optional<Contents> before;
    bool converted = false;  // the call gets another variable, which may be of another type
  };
  using Variables = std::deque<Variable>;

  void call(const Member& member);
  HRESULT call_early(const Member& member, Variables& variables);
  HRESULT call_late(const Member& member, Variables& variables);

  void prepare(const Member& member, Variables& variables);
  void share(Variable& variable);
  VARIANT early_argument(Variable& variable);
  VARIANT late_argument(Variable& variable);
  void prepare_result(const Member& member, VARIANT& result, std::vector<char>& record);
  void check_result(const Member& member, HRESULT code, VARIANT& result, std::vector<char>& record);
  void check_error_information(HRESULT code);
  void check_exception(HRESULT code, EXCEPINFO& exception, bool wanted);
  void check_variables(const Variables& variables);
  static void remember(Variables& variables);
  void check_unchanged(const Variables& variables);
  void drop_objects(Variables& variables);
  void drop_objects(const velmosav::RecordLayout& layout, void* record);
  static void scrap_variables(Variables& variables);
  void add_finding(const std::string& what);

  const Surroundings& surroundings_;
  Findings& findings_;
  std::uint64_t number_;
  Dice dice_;
  Target target_;
  Generator generator_;
  ComPtr<IDispatch> object_;
  std::vector<Variables*> running_;  // of the calls in progress, the outermost first
  const Member* member_ = nullptr;   // of the innermost
  std::uint64_t calls_ = 0;
  bool was_slow_ = false;
  std::uint64_t disturbances_ = 0;  // by objects that change variables during a call
};

}  // namespace misuse
