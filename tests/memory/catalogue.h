// One call after another: every method of every class once with success and once with a fault, with arguments
// in the host's own memory. Other tests take each call and make it a thousand times, with memory that runs
// out, on guard pages.
//
//   contracts.succeeds("NbrCadFact", [](Scene& scene, _ContratDoc& object) {
//     auto contract = billed_contract();
//     const auto watch = scene.watch(contract);
//     short count = 0;
//     return object.NbrCadFact(contract, &count);
//   });
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "automation/fault.h"
#include "memory/watch.h"
#include "support/arguments.h"
#include "support/fake_object.h"
#include "support/records.h"

namespace host {

using velmosav::Fault;

/// What a call is made in: what it changes is noted where that matters.
class Scene {
 public:
  explicit Scene(bool watching) : watching_(watching) {}

  /// Notes until the end of the block what becomes of the values: records, texts, numbers, VARIANTs, grids.
  template <class... Values>
  [[nodiscard]] Watch watch(Values&... values) {
    Watch watch(changes);
    if (watching_) (watch.add(values), ...);
    return watch;
  }

  /// The fields and arguments that the call changed, as "TabCadFact: 3 / 4 elements".
  std::vector<std::string> changes;

 private:
  bool watching_;
};

/// A late-bound call by name; of a failed method the code that it failed with.
HRESULT call_by_name(IDispatch& object, const wchar_t* name, std::vector<Variant> arguments = {});

/// One call of the catalogue.
struct CatalogueCall {
  std::wstring class_name;
  std::string method;  // "(variables)" for the class's public variables
  bool late = false;
  HRESULT outcome = S_OK;
  std::function<HRESULT(Scene&, IDispatch&)> make;
  /// When memory runs out, arguments that the call changes may have been changed already.
  bool partial = false;
  /// The call passes over failures of the host's objects; the failure itself needs memory it can do without.
  bool skips_failures = false;
  unsigned repetitions = 1000;

  /// "ContratDoc_NbrCadFact_late_800A0009_3".
  [[nodiscard]] std::string title() const;
};

using Calls = std::vector<CatalogueCall>;

/// Adds the calls of one class.
template <class Interface>
class CallsOf {
 public:
  CallsOf(Calls& calls, const wchar_t* class_name) : calls_(calls), class_name_(class_name) {}

  /// `make(Scene&, Interface&)` returns what the method answered.
  template <class Make>
  CallsOf& succeeds(const char* method, Make make) {
    return add(method, S_OK, std::move(make));
  }
  template <class Make>
  CallsOf& fails(const char* method, HRESULT outcome, Make make) {
    return add(method, outcome, std::move(make));
  }
  template <class Make>
  CallsOf& fails(const char* method, Fault fault, Make make) {
    return add(method, velmosav::fault_code(fault), std::move(make));
  }

  // About the call added last.
  /// See CatalogueCall::partial.
  CallsOf& changing_step_by_step() {
    calls_.back().partial = true;
    return *this;
  }
  CallsOf& skipping_failures() {
    calls_.back().skips_failures = true;
    return *this;
  }
  /// For calls of some milliseconds: made a hundred times instead of a thousand.
  CallsOf& slow() {
    calls_.back().repetitions = 100;
    return *this;
  }

 private:
  template <class Make>
  CallsOf& add(const char* method, HRESULT outcome, Make make) {
    CatalogueCall call{class_name_, method, false, outcome, {}};
    if constexpr (std::is_invocable_v<Make&, Scene&, IDispatch&>) {
      call.late = true;
      call.make = std::move(make);
    } else {
      call.make = [make = std::move(make)](Scene& scene, IDispatch& object) mutable {
        return make(scene, static_cast<Interface&>(object));
      };
    }
    calls_.push_back(std::move(call));
    return *this;
  }

  Calls& calls_;
  const wchar_t* class_name_;
};

/// The calls subject by subject.
void add_contract_calls(Calls& calls);
void add_site_calls(Calls& calls);
void add_date_calls(Calls& calls);
void add_document_calls(Calls& calls);
void add_amount_calls(Calls& calls);
void add_tool_calls(Calls& calls);
void add_control_calls(Calls& calls);
void add_invoicing_calls(Calls& calls);
void add_environment_calls(Calls& calls);
void add_variable_calls(Calls& calls);

/// All of them.
Calls all_calls();

}  // namespace host
