#include "gallery.h"

#include <array>

namespace galerie {
namespace {

constexpr wchar_t kClass[] = L"GalerieVelmoSAV";
constexpr int kWidth = 780;
constexpr int kHeight = 590;
constexpr int kBanner = 64;
constexpr int kStatus = 34;
constexpr UINT_PTR kCloseTimer = 1;
constexpr UINT_PTR kMouseTimer = 2;

enum Command { kNextText = 100, kSquare, kCut, kDecimals, kInterventions, kSites };

constexpr RECT kLabelCard{20, 84, 400, 292};
constexpr RECT kButtonCard{416, 84, 760, 292};
constexpr RECT kGridCard{20, 308, 484, 540};
constexpr RECT kMenuCard{500, 308, 760, 540};
constexpr int kLabelWidth = 348;
constexpr POINT kLabelPlace{36, 122};
constexpr RECT kMagnifier{612, 122, 612 + 121, 122 + 121};

struct Sample {
  const wchar_t* text;
  COLORREF colour;
  bool bold;
};
constexpr std::array<Sample, 3> kTexts{
    {{L"Entretien annuel de la chaudière, pièces et main-d'œuvre comprises, hors déplacement le dimanche et "
      L"les "
      L"jours fériés. Le client est prévenu quinze jours avant chaque visite.",
      colours::kText, false},
     {L"Contrat arrivé à échéance : renouvellement à proposer.", colours::kWarning, true},
     {L"Garantie en cours.", RGB(30, 110, 60), false}}};

const wchar_t* name_of(IndMenuPop choice) {
  switch (choice) {
    case IndMenuPop_None:
      return L"aucun";
    case IndMenuPop_Liste:
      return L"Liste";
    case IndMenuPop_Creer:
      return L"Créer";
    case IndMenuPop_Supprimer:
      return L"Supprimer";
    case IndMenuPop_AjoutSite:
      return L"Ajout de site";
    case IndMenuPop_RemplSite:
      return L"Remplacement de site";
    default:
      return L"autre";
  }
}

void draw_card(HDC device, const Fonts& fonts, const RECT& place, std::wstring_view title) {
  box(device, place, colours::kCard, colours::kEdge);
  draw_text(device, fonts.bold, colours::kText,
            {place.left + 16, place.top + 8, place.right - 16, place.top + 32}, title);
}

}  // namespace

Gallery::Gallery(Library& library) : library_(library) {
  WNDCLASSW kind{};
  kind.lpfnWndProc = &Gallery::procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kClass;
  RegisterClassW(&kind);
  constexpr DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
  RECT frame{0, 0, kWidth, kHeight};
  AdjustWindowRect(&frame, style, FALSE);
  CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"Galerie VelmoSAV", style, 0, 0, frame.right - frame.left,
                  frame.bottom - frame.top, nullptr, nullptr, kind.hInstance, this);
  create_controls();
}

void Gallery::create_controls() {
  label_ = std::make_unique<Label>(window_, fonts_, kLabelPlace, kLabelWidth);
  const auto button = [this](Command command, RECT place, std::wstring_view caption) {
    return std::make_unique<Button>(window_, command, place, caption);
  };
  text_button_ = button(kNextText, {36, 246, 156, 278}, L"Autre texte");
  square_button_ = button(kSquare, {432, 122, 582, 158}, L"Entier");
  cut_button_ = button(kCut, {432, 172, 582, 208}, L"Coins coupés");
  decimals_button_ = button(kDecimals, {360, 502, 467, 530}, L"Décimales");
  interventions_ = button(kInterventions, {516, 350, 744, 386}, L"Interventions…");
  sites_ = button(kSites, {516, 398, 744, 434}, L"Sites…");
  grid_ = std::make_unique<Grid>(window_, fonts_, POINT{36, 342},
                                 std::vector<GridRow>{{L"FILT-20", L"Filtre à air G4", 12},
                                                      {L"JOINT-8", L"Joint de brûleur", 0},
                                                      {L"MO-TECH", L"Main-d'œuvre technicien", 3.75},
                                                      {L"FLUIDE", L"Fluide caloporteur (litres)", 1250.5}});
  grid_->on_hover = [this] { show_cell(); };
  attempt([this] {
    for (const auto& rounded : {&text_button_, &cut_button_, &decimals_button_, &interventions_, &sites_}) {
      library_.cut_corners((*rounded)->control());
    }
    const Sample& sample = kTexts[text_];
    library_.fit(label_->control(), sample.text, sample.colour, sample.bold);
  });
  next_decimals();
}

void Gallery::show() {
  ShowWindow(window_, SW_SHOW);
  UpdateWindow(window_);
}

void Gallery::visit(UINT seconds) {
  SetTimer(window_, kMouseTimer, 1500, nullptr);
  SetTimer(window_, kCloseTimer, seconds * 1000, nullptr);
}

template <class Step>
void Gallery::attempt(Step&& step) {
  try {
    step();
  } catch (const Failure& failure) {
    say(failure.message, true);
  }
}

void Gallery::say(std::wstring message, bool warning) {
  status_ = std::move(message);
  warning_ = warning;
  const RECT line{0, kHeight - kStatus, kWidth, kHeight};
  InvalidateRect(window_, &line, FALSE);
}

void Gallery::next_text() {
  text_ = (text_ + 1) % kTexts.size();
  attempt([this] {
    const Sample& sample = kTexts[text_];
    library_.fit(label_->control(), sample.text, sample.colour, sample.bold);
  });
  InvalidateRect(window_, &kLabelCard, FALSE);
}

void Gallery::next_decimals() {
  decimals_ = decimals_ == 2 ? 0 : 2;
  attempt([this] { library_.set_up_quantities(grid_->quantities(), decimals_, L">0;"); });
  InvalidateRect(window_, &kGridCard, FALSE);
}

void Gallery::show_cell() {
  attempt([this] {
    const HoveredCell cell = library_.cell_under_mouse(grid_->control());
    const bool on_cell = cell.row > 0 && cell.column > 0;
    grid_->show_hovered(on_cell ? cell.row : 0, on_cell ? cell.column : 0);
    if (!on_cell) {
      say(L"Hors des cellules.");
      return;
    }
    say(L"Ligne " + std::to_wstring(cell.row) + L", colonne " + std::to_wstring(cell.column) + L" : " +
        (cell.value.empty() ? L"(vide)" : L"« " + cell.value + L" »"));
  });
}

void Gallery::show_choice(IndMenuPop choice) {
  choice_ = name_of(choice);
  if (choice != IndMenuPop_None) choice_ += L" (" + std::to_wstring(static_cast<int>(choice)) + L")";
  say(choice == IndMenuPop_None ? L"Menu refermé sans choix." : L"Choix : " + choice_);
  InvalidateRect(window_, &kMenuCard, FALSE);
}

void Gallery::command(int identifier) {
  switch (identifier) {
    case kNextText:
      return next_text();
    case kDecimals:
      return next_decimals();
    case kInterventions:
      return attempt([this] { show_choice(library_.interventions_menu(interventions_->control())); });
    case kSites:
      return attempt([this] { show_choice(library_.sites_menu(sites_->control())); });
    default:
      return;
  }
}

void Gallery::paint() {
  PAINTSTRUCT painting;
  const HDC device = BeginPaint(window_, &painting);
  fill(device, {0, 0, kWidth, kHeight}, colours::kPage);
  fill(device, {0, 0, kWidth, kBanner}, colours::kBanner);
  draw_text(device, fonts_.title, RGB(255, 255, 255), {20, 6, kWidth, 40}, L"VelmoSAV");
  draw_text(device, fonts_.text, colours::kBannerText, {20, 38, kWidth, 58},
            L"Galerie des contrôles servis par la bibliothèque");

  draw_card(device, fonts_, kLabelCard, L"Libellé ajusté à son texte");
  const std::wstring height = L"Hauteur obtenue : " + std::to_wstring(label_->size().cy) + L" pixels";
  draw_text(device, fonts_.small, colours::kFaint, {172, 246, kLabelCard.right - 12, 278}, height,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);

  draw_card(device, fonts_, kButtonCard, L"Bouton aux coins coupés");
  draw_magnified_corner(device, *cut_button_, kMagnifier, 12);
  draw_text(device, fonts_.small, colours::kFaint, {604, 248, 756, 284},
            L"Coin supérieur gauche,\ngrossi dix fois", DT_LEFT);
  draw_text(device, fonts_.small, colours::kFaint, {432, 222, 590, 284},
            L"Un pixel manque\nà chaque coin du second.", DT_LEFT);

  draw_card(device, fonts_, kGridCard, L"Colonne de quantités");
  const ColumnFormat& format = grid_->format();
  draw_text(device, fonts_.small, colours::kFaint, {36, 484, 350, 508}, L"Format : " + format.format);
  draw_text(device, fonts_.small, colours::kFaint, {36, 508, 350, 532}, L"Affichage : " + format.display);

  draw_card(device, fonts_, kMenuCard, L"Menus du contrat");
  draw_text(device, fonts_.text, colours::kText, {516, 452, 744, 474}, L"Dernier choix : " + choice_);

  const RECT line{0, kHeight - kStatus, kWidth, kHeight};
  box(device, line, colours::kCard, colours::kEdge);
  draw_text(device, fonts_.text, warning_ ? colours::kWarning : colours::kText,
            {20, line.top, kWidth - 20, line.bottom}, status_,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
  EndPaint(window_, &painting);
}

LRESULT Gallery::handle(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_COMMAND:
      command(LOWORD(first));
      return 0;
    case WM_DRAWITEM:
      Button::draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(second), fonts_);
      return TRUE;
    case WM_CTLCOLORSTATIC: {
      const auto device = reinterpret_cast<HDC>(first);
      SetTextColor(device, label_ ? label_->colour() : colours::kText);
      SetBkColor(device, colours::kTint);
      SetDCBrushColor(device, colours::kTint);
      return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
    }
    case WM_TIMER:
      KillTimer(window_, first);
      if (first == kCloseTimer) {
        DestroyWindow(window_);
      } else if (first == kMouseTimer) {
        POINT cell = grid_->middle(4, 3);
        ClientToScreen(grid_->window(), &cell);
        SetCursorPos(cell.x, cell.y);
        show_cell();
      }
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, first, second);
  }
}

LRESULT CALLBACK Gallery::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_NCCREATE) {
    auto* gallery = static_cast<Gallery*>(reinterpret_cast<CREATESTRUCTW*>(second)->lpCreateParams);
    gallery->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(gallery));
  }
  auto* gallery = reinterpret_cast<Gallery*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!gallery) return DefWindowProcW(window, message, first, second);
  return gallery->handle(message, first, second);
}

}  // namespace galerie
