// Calls of Outil on controls of the screen, played by scripted objects.
#include "controls/scripted_control.h"
#include "invoicing/invoice_fixture.h"
#include "memory/catalogue.h"

namespace host {
namespace {

using Controls = CallsOf<_Outil>;

ComPtr<FakeObject> numeric_field() {
  auto field = FakeObject::make();
  field->property(L"TypeChamp", Variant(short{1}));
  field->property(L"Valeur", text_value(L"1 234,5"));
  field->property(L"Format", text_value(L"N;7.2;>0;B"));
  return field;
}

ComPtr<FakeObject> label() {
  auto font = FakeObject::make();
  font->property(L"Bold", Variant(false));
  auto label = FakeObject::make();
  for (const wchar_t* name : {L"Caption", L"Height", L"Width", L"WordWrap", L"AutoSize", L"ForeColor"}) {
    label->property(name, Variant(0L));
  }
  label->property(L"Font", object_value(font.get()));
  return label;
}

ComPtr<FakeObject> button() {
  auto container = FakeObject::make();
  container->property(L"ScaleMode", Variant(short{1}));
  auto button = FakeObject::make();
  button->property(L"Container", object_value(container.get()));
  button->property(L"Width", Variant(1500.0));
  button->property(L"Height", text_value(L"375"));
  button->property(L"hWnd", Variant(0L));
  return button;
}

ComPtr<FakeObject> grid() {
  auto picture = FakeObject::make();
  picture->property(L"hWnd", Variant(0L));
  auto grid = FakeObject::make();
  grid->property(L"CtlPicture", object_value(picture.get()));
  grid->on_get(L"GetColSurvol", [](auto&) { return Variant(short{2}); });
  grid->on_get(L"GetLigneSurvol", [](auto&) { return Variant(short{3}); });
  grid->on_get(L"GetIdentifiant", [](auto&) { return text_value(L"QTE"); });
  grid->on_get(L"DonneeL", [](auto&) { return text_value(L"12,50"); });
  return grid;
}

ComPtr<FakeObject> column() {
  auto column = FakeObject::make();
  for (const wchar_t* name : {L"Format", L"Param", L"TypeSaisie", L"FormatAff"}) {
    column->property(name, text_value(L"avant"));
  }
  return column;
}

void add_field_calls(Controls& controls) {
  controls
      .succeeds("CheckFmtNum",
                [](Scene& scene, _Outil& object) {
                  const auto field = numeric_field();
                  IDispatch* argument = field.get();
                  Variant value = text_value(L"12,5");
                  const auto watch = scene.watch(value);
                  VARIANT_BOOL result = 0;
                  return object.CheckFmtNum(&argument, &value.get(), &result);
                })
      .changing_step_by_step()
      .succeeds("CheckFmtNum",
                [](Scene&, IDispatch& object) {
                  const auto field = numeric_field();
                  return call_by_name(object, L"CheckFmtNum", arguments(object_value(field.get())));
                })
      .fails("CheckFmtNum", Fault::ObjectNotSet,
             [](Scene&, _Outil& object) {
               IDispatch* none = nullptr;
               VARIANT_BOOL result = 0;
               return object.CheckFmtNum(&none, nullptr, &result);
             })
      .succeeds("ObjFromPtr",
                [](Scene&, _Outil& object) {
                  const auto target = FakeObject::make();
                  ComPtr<IDispatch> result;
                  return object.ObjFromPtr(address_of(target.get()), result.receive());
                })
      .fails("ObjFromPtr", Fault::ObjectNotSet, [](Scene&, IDispatch& object) {
        return call_by_name(object, L"ObjFromPtr", arguments(Variant(6L)));
      });
}

void add_shape_calls(Controls& controls) {
  controls
      .succeeds("SetLabelHauteur",
                [](Scene&, _Outil& object) {
                  const auto target = label();
                  return object.SetLabelHauteur(target.get(), Text(L"Libellé"), missing().get(),
                                                Variant(255L).get(), Variant(true).get());
                })
      .fails("SetLabelHauteur", kRefusal,
             [](Scene&, _Outil& object) {
               const auto target = label();
               refuse_put(target, L"WordWrap");
               return object.SetLabelHauteur(target.get(), Text(L"Libellé"), Variant(1500L).get(),
                                             missing().get(), missing().get());
             })
      .succeeds("SetRegionStdBout",
                [](Scene&, _Outil& object) {
                  const auto target = button();
                  IDispatch* argument = target.get();
                  return object.SetRegionStdBout(&argument);
                })
      .fails("SetRegionStdBout", Fault::MemberNotFound,
             [](Scene&, _Outil& object) {
               const auto target = FakeObject::make();
               IDispatch* argument = target.get();
               return object.SetRegionStdBout(&argument);
             })
      .succeeds("GetValScrollSurvol",
                [](Scene& scene, _Outil& object) {
                  const auto target = grid();
                  IDispatch* argument = target.get();
                  short row = 0, column = 0;
                  const auto watch = scene.watch(row, column);
                  Variant result;
                  return object.GetValScrollSurvol(&argument, &row, &column, result.receive());
                })
      .fails("GetValScrollSurvol", kRefusal,
             [](Scene& scene, _Outil& object) {
               const auto target = grid();
               refuse_get(target, L"DonneeL");
               IDispatch* argument = target.get();
               short row = 0, column = 0;
               const auto watch = scene.watch(row, column);
               Variant result;
               return object.GetValScrollSurvol(&argument, &row, &column, result.receive());
             })
      .succeeds("GestionColQte",
                [](Scene&, _Outil& object) {
                  const auto target = column();
                  IDispatch* argument = target.get();
                  return object.GestionColQte(&argument, Text(L"M"), 12, Text(L">0;"), Text(L""),
                                              VARIANT_FALSE);
                })
      .fails("GestionColQte", kRefusal, [](Scene&, _Outil& object) {
        const auto target = column();
        refuse_put(target, L"TypeSaisie");
        IDispatch* argument = target.get();
        return object.GestionColQte(&argument, Text(L"M"), 2, Text(L">0;"), Text(L""), VARIANT_FALSE);
      });
}

}  // namespace

void add_control_calls(Calls& calls) {
  Controls controls(calls, L"Outil");
  add_field_calls(controls);
  add_shape_calls(controls);
}

}  // namespace host
