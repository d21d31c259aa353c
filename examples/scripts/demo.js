// A host in JScript, with the library and nothing else: cscript //nologo demo.js
// On 64-bit Windows use the 32-bit host: %SystemRoot%\SysWOW64\cscript //nologo demo.js
//
// Each line says what was asked and what came back; a line that starts with FAUX is not what it should be.
// The last line is the verdict, the exit code the number of wrong lines. Accents are written as escapes, so
// that the file reads the same in every code page.

var wrong = 0;

function title(text) {
  WScript.Echo("");
  WScript.Echo(text);
}

function show(what, got, expected) {
  if (String(got) === String(expected)) {
    WScript.Echo("  " + what + " : " + got);
  } else {
    wrong += 1;
    WScript.Echo("  FAUX " + what + " : " + got + " (attendu : " + expected + ")");
  }
}

function create(className) {
  return new ActiveXObject("VelmoSAV_DLL14." + className);
}

// What a failing call answers: the number of the run-time fault and its French text.
function showError(what, call, expected) {
  var text = "aucune erreur";
  try {
    call();
  } catch (error) {
    text = "erreur " + (error.number & 0xFFFF) + ", " + error.description;
  }
  show(what, text, expected);
}

function classes() {
  var names = ["Adresses", "Couverture", "Intervention", "Preavis", "Periodicite", "Bon", "Planning",
    "IntervDoc", "AchatVente", "TPF", "FinancContrat", "ContratDoc", "Garantie", "TvaRepart", "Article",
    "Outil", "General", "Statistique", "Preference", "Droits", "ModuleScroll", "ApiImpr", "SAVImpr",
    "SAVApiListe", "ClsDLLTrad", "ApiSkin", "Reconduction", "cToolTip2", "Generation", "InvoiceXMLLib",
    "ApiGeneral"];
  var made = 0;
  title("Classes");
  for (var i = 0; i < names.length; i += 1) {
    try {
      create(names[i]);
      made += 1;
    } catch (error) {
      WScript.Echo("  FAUX " + names[i] + " : " + error.description);
    }
  }
  show("classes cr\u00e9\u00e9es", made, names.length);
}

function constants() {
  var rules = create("Periodicite");
  var other = create("Periodicite");
  title("Constantes");
  show("genre mensuel", rules.c_sPeriod_Mens, "M");
  show("version", rules.PC_Period_Version1, 1);
  rules.c_sPeriod_Mens = "X";
  show("genre mensuel, modifi\u00e9", rules.c_sPeriod_Mens, "X");
  show("le m\u00eame, dans une autre instance", other.c_sPeriod_Mens, "M");
}

// A script cannot build a recurrence rule, which is a record: it reads the names and composes the label itself.
function recurrence() {
  var rules = create("Periodicite");
  title("P\u00e9riodicit\u00e9s");
  show("genres", rules.GetListeFormat("QA", rules.G_FmtTypePeriodicite), "Quotidienne, Annuelle");
  show("hebdomadaire", rules.GetListeFormat("LJ", rules.c_sWeekDayfmt) + ", toutes les semaines",
    "Lundi, Jeudi, toutes les semaines");
  show("avec les touches d'acc\u00e8s", rules.GetListeFormat("EJ", rules.c_sWeekDayfmt, false),
    "M&ercredi, &Jeudi");
  show("29/02/2025 corrig\u00e9", rules.CheckDate("29/02/2025"), "28/02/25");
  show("dernier jour de f\u00e9vrier 2024", rules.LastDayOfMonth(2, 2024), "29/02/24");
  show("cl\u00e9 du mois d'ao\u00fbt", rules.GetKeyMonth(8), "O");
  show("intervalle de l'unit\u00e9 S", rules.GetFormatUniteDuree("S"), "ww");
}

function amounts() {
  var tools = create("Outil");
  title("Montants");
  show("HT de 120 TTC \u00e0 20 %", tools.DLL_GetAmountHTByTTC(20, 120), 100);
  show("TTC de 99,99 HT \u00e0 5,5 %", tools.DLL_GetAmountTTCByHT(5.5, 99.99), 105.49);
  show("le m\u00eame \u00e0 trois d\u00e9cimales", tools.DLL_GetAmountTTCByHT(5.5, 99.99, 3), 105.489);
}

// The library takes grids of two dimensions; those of JScript are objects, and no statement of the language makes
// another kind. A host that has grids to regroup or to compare is written in VBScript (demo.vbs).
function grids() {
  var rows = [["Mairie"], ["Clinique"]];
  title("Grilles");
  showError("regroupement d'un tableau JScript", function () {
    create("Generation").RegroupementFacture(rows);
  }, "erreur 13, Type incompatible");
  showError("comparaison d'un tableau JScript", function () {
    create("Reconduction").bDiffLigneTab(rows, 0);
  }, "erreur 13, Type incompatible");
}

// The link object is DemoHote.wsc, beside this script, once it is registered:
//   %SystemRoot%\SysWOW64\regsvr32 /n /i:FOLDER\DemoHote.wsc scrobj.dll
function translation() {
  var texts = create("ClsDLLTrad");
  title("Traduction");
  try {
    texts.DLL_InitialisationTrad("DemoHote");
  } catch (error) {
    if ((error.number & 0xFFFF) !== 429) throw error;
    WScript.Echo("  objet de liaison absent : enregistrer DemoHote.wsc (" + error.description + ")");
    return;
  }
  show("situation", texts.G_Situat_Real, "R\u00e9alis\u00e9e");
  show("situation demand\u00e9e", texts.G_Situat_Dde, "Demand\u00e9e");
  show("texte au-del\u00e0 de 32767", texts.G_EtatIntFact_NePasFact, "Texte 102478");
  show("motif de r\u00e9siliation", texts.G_FmtMotifResil, "&Ind\u00e9termin\u00e9");
}

function errors() {
  var rules = create("Periodicite");
  title("Erreurs");
  showError("ann\u00e9e qui n'en est pas une", function () {
    rules.LastDayOfMonth(2, "abc");
  }, "erreur 13, Type incompatible");
  showError("ann\u00e9e null", function () {
    rules.LastDayOfMonth(2, null);
  }, "erreur 94, Utilisation de Null incorrecte");
  showError("h\u00f4te absent", function () {
    create("ClsDLLTrad").DLL_InitialisationTrad("HoteAbsent");
  }, "erreur 429, Le composant ne peut pas cr\u00e9er l'objet");
  showError("traduction sans objet de liaison", function () {
    create("ClsDLLTrad").InitConstTrad();
  }, "erreur 91, R\u00e9f\u00e9rence d'objet non d\u00e9finie");
}

classes();
constants();
recurrence();
amounts();
grids();
translation();
errors();

WScript.Echo("");
WScript.Echo(wrong === 0 ? "VERDICT : tout est juste" : "VERDICT : " + wrong + " ligne(s) fausse(s)");
WScript.Quit(wrong);
