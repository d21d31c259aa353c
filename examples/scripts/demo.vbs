' A host in VBScript, with the library and nothing else: cscript //nologo demo.vbs
' On 64-bit Windows use the 32-bit host: %SystemRoot%\SysWOW64\cscript //nologo demo.vbs
'
' Each line says what was asked and what came back; a line that starts with FAUX is not what it should be.
' The last line is the verdict, the exit code the number of wrong lines.
Option Explicit

Dim wrong: wrong = 0

Sub Title(text)
  WScript.Echo ""
  WScript.Echo text
End Sub

Sub Show(what, got, expected)
  If CStr(got) = CStr(expected) Then
    WScript.Echo "  " & what & " : " & got
  Else
    wrong = wrong + 1
    WScript.Echo "  FAUX " & what & " : " & got & " (attendu : " & expected & ")"
  End If
End Sub

Function Create(className)
  Set Create = CreateObject("VelmoSAV_DLL14." & className)
End Function

Function YesNo(value)
  If value Then YesNo = "oui" Else YesNo = "non"
End Function

' What the call before this one left: the number and the French text of its error.
Sub ShowError(what, expected)
  Dim text
  If Err.Number = 0 Then text = "aucune erreur" Else text = "erreur " & Err.Number & ", " & Err.Description
  Err.Clear
  Show what, text, expected
End Sub

Sub Classes()
  Dim names, name, made, object
  names = Array("Adresses", "Couverture", "Intervention", "Preavis", "Periodicite", "Bon", "Planning", _
    "IntervDoc", "AchatVente", "TPF", "FinancContrat", "ContratDoc", "Garantie", "TvaRepart", "Article", _
    "Outil", "General", "Statistique", "Preference", "Droits", "ModuleScroll", "ApiImpr", "SAVImpr", _
    "SAVApiListe", "ClsDLLTrad", "ApiSkin", "Reconduction", "cToolTip2", "Generation", "InvoiceXMLLib", _
    "ApiGeneral")
  Title "Classes"
  made = 0
  On Error Resume Next
  For Each name In names
    Err.Clear
    Set object = Create(name)
    If Err.Number = 0 Then
      made = made + 1
    Else
      WScript.Echo "  FAUX " & name & " : " & Err.Description
    End If
    Set object = Nothing
  Next
  On Error GoTo 0
  Show "classes créées", made, UBound(names) + 1
End Sub

Sub Constants()
  Dim general, other, dates
  Title "Constantes"
  Set general = Create("General")
  Show "type de document : facture", general.c_sTypDoc_Fact, "F"
  general.c_sTypDoc_Fact = "X"
  Show "la même, modifiée", general.c_sTypDoc_Fact, "X"
  Set other = Create("General")
  Show "la même, dans une autre instance", other.c_sTypDoc_Fact, "F"
  Set dates = Create("ApiGeneral")
  Show "format de date", dates.FMT_DATE, "dd/mm/yy"
End Sub

' A script cannot build a recurrence rule, which is a record: it reads the names and composes the label itself.
Sub Recurrence()
  Const months = "&Janvier;&Février;&Mars;&Avril;Ma&i;J&uin;Jui&llet;A&oût;&Septembre;O&ctobre;&Novembre;&Décembre;#F"
  Dim rules, year
  Set rules = Create("Periodicite")
  Title "Périodicités"
  Show "genres", rules.GetListeFormat("QHMA", rules.G_FmtTypePeriodicite), _
    "Quotidienne, Hebdomadaire, Mensuelle, Annuelle"
  Show "hebdomadaire", rules.GetListeFormat("LJ", rules.c_sWeekDayfmt) & ", toutes les  2 semaines", _
    "Lundi, Jeudi, toutes les  2 semaines"
  Show "mensuelle", "Le 15, les mois de " & rules.GetListeFormat("JOD", months), _
    "Le 15, les mois de Janvier, Août, Décembre"
  Show "avec les touches d'accès", rules.GetListeFormat("EJ", rules.c_sWeekDayfmt, False), "M&ercredi, &Jeudi"
  year = "2024"
  Show "dernier jour de février 2024", rules.LastDayOfMonth(2, year), "29/02/24"
  Show "l'année, devenue un nombre", TypeName(year) & " " & year, "Double 2024"
  Show "31/06/2024 corrigé", rules.CheckDate("31/06/2024"), "30/06/2024"
  Show "mois de la clé C", rules.GetNumMonth("C"), "10"
  Show "clé du mercredi", rules.GetKeyDay(4), "E"
End Sub

Const ColNom = 0, ColSelect = 3, ColTypeDoc = 7, ColTypeTarif = 8, ColCodeVend = 9, ColCodeCli = 10, ColFormatTVA = 13

Sub SetRow(grid, row, name, customer, salesman, ticked)
  grid(row, ColNom) = name
  grid(row, ColSelect) = ticked
  grid(row, ColTypeDoc) = "G"
  grid(row, ColTypeTarif) = "H"
  grid(row, ColCodeVend) = salesman
  grid(row, ColCodeCli) = customer
  grid(row, ColFormatTVA) = "M"
End Sub

Function Column(grid, index)
  Dim row, text
  For row = 0 To UBound(grid, 1)
    If row > 0 Then text = text & ", "
    text = text & grid(row, index)
  Next
  Column = text
End Function

Sub Grouping()
  Dim generation, grid
  Set generation = Create("Generation")
  Title "Regroupement de factures"
  ReDim grid(4, 13)
  SetRow grid, 0, "Mairie, chaudière", "C1", "V1", True
  SetRow grid, 1, "Clinique", "C2", "V1", True
  SetRow grid, 2, "Mairie, école", "C1", "V1", True
  SetRow grid, 3, "Mairie, non cochée", "C1", "V1", False
  SetRow grid, 4, "Mairie, autre vendeur", "C1", "V2", True
  Show "lignes 0 et 2 sur la même facture", YesNo(generation.IsRuptRgrpCadFact(grid, 0, 2)), "oui"
  Show "lignes 0 et 4 sur la même facture", YesNo(generation.IsRuptRgrpCadFact(grid, 0, 4)), "non"
  generation.RegroupementFacture grid
  Show "lignes regroupées", Column(grid, ColNom), "Mairie, chaudière, Mairie, école, Clinique, Mairie, autre vendeur"
  Show "types de document", Column(grid, ColTypeDoc), "G, G, G, G"
  Show "colonnes", UBound(grid, 2) + 1, 14
End Sub

Const ColOldHT = 6, ColNewHT = 7, ColOldTva = 8, ColNewTva = 9, ColOldTTC = 20, ColNewTTC = 21

Sub SetAmounts(grid, row, oldHT, newHT, oldTva, newTva)
  grid(row, ColOldHT) = oldHT
  grid(row, ColNewHT) = newHT
  grid(row, ColOldTva) = oldTva
  grid(row, ColNewTva) = newTva
  grid(row, ColOldTTC) = 120
  grid(row, ColNewTTC) = 120
End Sub

Sub Renewal()
  Dim renewals, grid
  Set renewals = Create("Reconduction")
  Title "Reconduction"
  ReDim grid(3, renewals.PC_IndMaxTMajRec)
  SetAmounts grid, 0, 100, 100.0, 20, 20
  SetAmounts grid, 1, 100, 103.5, 20, 20
  SetAmounts grid, 2, 100, 100, 20, 20.01
  SetAmounts grid, 3, "100", "100.00", 20, 20
  Show "mêmes montants", YesNo(renewals.bDiffLigneTab(grid, 0)), "non"
  Show "HT modifié", YesNo(renewals.bDiffLigneTab(grid, 1)), "oui"
  Show "TVA modifiée", YesNo(renewals.bDiffLigneTab(grid, 2)), "oui"
  Show "textes différents d'un même nombre", YesNo(renewals.bDiffLigneTab(grid, 3)), "oui"
End Sub

' The link object is DemoHote.wsc, beside this script, once it is registered:
'   %SystemRoot%\SysWOW64\regsvr32 /n /i:FOLDER\DemoHote.wsc scrobj.dll
Sub Translation()
  Dim texts
  Set texts = Create("ClsDLLTrad")
  Title "Traduction"
  On Error Resume Next
  texts.DLL_InitialisationTrad "DemoHote"
  If Err.Number = 429 Then
    WScript.Echo "  objet de liaison absent : enregistrer DemoHote.wsc (" & Err.Description & ")"
    Err.Clear
    Exit Sub
  End If
  If Err.Number <> 0 Then ShowError "initialisation", "aucune erreur"
  On Error GoTo 0
  Show "situation", texts.G_Situat_Plan, "Planifiée"
  Show "situation demandée", texts.G_Situat_Dde, "Demandée"
  Show "texte au-delà de 32767", texts.G_Pref_PreRensSiteCtt_Interv, "Texte 112219"
  Show "motif de résiliation", texts.G_FmtMotifResil, "&Indéterminé"
End Sub

Sub Errors()
  Dim rules, generation, renewals, texts, grid, answer
  Set rules = Create("Periodicite")
  Set generation = Create("Generation")
  Set renewals = Create("Reconduction")
  Set texts = Create("ClsDLLTrad")
  Title "Erreurs"
  On Error Resume Next
  answer = rules.LastDayOfMonth(0, 2025)
  ShowError "mois qui n'en est pas un", "erreur 13, Type incompatible"
  answer = rules.LastDayOfMonth(2, Null)
  ShowError "année Null", "erreur 94, Utilisation de Null incorrecte"
  ReDim grid(1, 13)
  SetRow grid, 0, "non cochée", "C1", "V1", False
  SetRow grid, 1, "non cochée", "C1", "V1", False
  generation.RegroupementFacture grid
  ShowError "aucune ligne cochée", "erreur 9, Indice hors limites"
  Show "la grille, inchangée", Column(grid, ColNom), "non cochée, non cochée"
  answer = generation.IsRuptRgrpCadFact(grid, 0, 2)
  ShowError "ligne hors de la grille", "erreur 9, Indice hors limites"
  grid(0, ColCodeCli) = Null
  answer = generation.IsRuptRgrpCadFact(grid, 0, 1)
  ShowError "cellule Null", "erreur 94, Utilisation de Null incorrecte"
  answer = renewals.bDiffLigneTab(grid, 0)
  ShowError "grille sans les colonnes comparées", "erreur 9, Indice hors limites"
  texts.DLL_InitialisationTrad "HoteAbsent"
  ShowError "hôte absent", "erreur 429, Le composant ne peut pas créer l'objet"
  texts.InitConstTrad
  ShowError "traduction sans objet de liaison", "erreur 91, Référence d'objet non définie"
End Sub

Classes
Constants
Recurrence
Grouping
Renewal
Translation
Errors

WScript.Echo ""
If wrong = 0 Then WScript.Echo "VERDICT : tout est juste" Else WScript.Echo "VERDICT : " & wrong & " ligne(s) fausse(s)"
WScript.Quit wrong
