<?xml version="1.0" encoding="UTF-8"?>
<!--
  Une facture XML de la bibliothèque, mise en page pour le client. XSLT 1.0, sans extension.

  L'attribut TARIF de INVOICE dit la base des prix : H hors taxes (par défaut), T toutes taxes comprises.
  La première ligne de DESIGNATION est l'objet, les suivantes sont le nom du client.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform" xmlns="http://www.w3.org/1999/xhtml"
                exclude-result-prefixes="xsl">
  <xsl:output method="xml" encoding="UTF-8" omit-xml-declaration="yes" doctype-system="about:legacy-compat"/>
  <xsl:strip-space elements="*"/>
  <xsl:decimal-format name="fr" decimal-separator="," grouping-separator="&#160;" NaN="—"/>

  <!-- Lignes qui portent un montant, par document et code de TVA, puis par code. -->
  <xsl:key name="document" match="ROW[UNITPRICE and UNITPRICE != '0']"
           use="concat(ORIGINE/@TYPE, '|', ORIGINE, '|', CODETVA)"/>
  <xsl:key name="code" match="ROW[UNITPRICE and UNITPRICE != '0']" use="CODETVA"/>

  <xsl:variable name="ttc" select="/INVOICE/@TARIF = 'T'"/>

  <!-- L'émetteur : à remplacer par le vôtre. -->
  <xsl:template name="emetteur">
    <div class="marque">Velmo Maintenance</div>
    <div>Chauffage, climatisation, ventilation</div>
    <div>8 rue de l'Atelier, 69007 Lyon</div>
    <div>04 72 00 00 10 · facturation@velmo-maintenance.example</div>
  </xsl:template>
  <xsl:template name="mentions-emetteur">
    Velmo Maintenance, SARL au capital de 40 000 € · RCS Lyon 000 000 000 · TVA intracommunautaire FR00 000000000
  </xsl:template>

  <!-- ============================================================ la page -->

  <xsl:template match="/INVOICE">
    <html lang="fr">
      <head>
        <meta charset="UTF-8"/>
        <title>Facture <xsl:value-of select="CODE"/></title>
        <style><xsl:call-template name="style"/></style>
      </head>
      <body>
        <div class="feuille">
          <div class="tete">
            <div class="emetteur"><xsl:call-template name="emetteur"/></div>
            <div class="titre">
              <div class="mot">Facture</div>
              <div class="numero"><xsl:value-of select="CODE"/></div>
              <div>du <xsl:value-of select="DATEFACT"/></div>
            </div>
          </div>

          <div class="adresses">
            <div class="adresse">
              <div class="legende">Adresse d'intervention</div>
              <xsl:apply-templates select="ADRCHANTIER"/>
            </div>
            <div class="adresse client">
              <div class="legende">Facturé à</div>
              <xsl:call-template name="ligne-adresse">
                <xsl:with-param name="texte" select="substring-after(DESIGNATION, '&#10;')"/>
                <xsl:with-param name="classe">nom</xsl:with-param>
              </xsl:call-template>
              <xsl:apply-templates select="ADRFACTURATION"/>
            </div>
          </div>

          <div class="reperes">
            <xsl:call-template name="repere">
              <xsl:with-param name="nom">Objet</xsl:with-param>
              <xsl:with-param name="valeur" select="substring-before(concat(DESIGNATION, '&#10;'), '&#10;')"/>
            </xsl:call-template>
            <xsl:call-template name="repere">
              <xsl:with-param name="nom">Code client</xsl:with-param>
              <xsl:with-param name="valeur" select="CODETIERS"/>
            </xsl:call-template>
            <xsl:call-template name="repere">
              <xsl:with-param name="nom">Représentant</xsl:with-param>
              <xsl:with-param name="valeur" select="CODEREPR"/>
            </xsl:call-template>
            <xsl:call-template name="repere">
              <xsl:with-param name="nom">Règlement</xsl:with-param>
              <xsl:with-param name="valeur"><xsl:apply-templates select="CODEMODREGL"/></xsl:with-param>
            </xsl:call-template>
          </div>

          <table class="lignes">
            <thead>
              <tr>
                <th class="designation">Désignation</th>
                <th>Qté</th>
                <th class="unite">Unité</th>
                <th>P.U. <xsl:call-template name="base"/></th>
                <th>Remise</th>
                <th>TVA</th>
                <th>Montant <xsl:call-template name="base"/></th>
              </tr>
            </thead>
            <tbody><xsl:apply-templates select="ROW"/></tbody>
          </table>

          <div class="pied">
            <xsl:call-template name="recapitulatif"/>
            <xsl:call-template name="totaux"/>
          </div>

          <div class="mentions">
            <p>Pas d'escompte pour paiement anticipé. Tout retard de paiement entraîne des pénalités au taux de trois fois
              l'intérêt légal et, entre professionnels, une indemnité forfaitaire de 40 € pour frais de recouvrement.</p>
            <p><xsl:call-template name="mentions-emetteur"/></p>
          </div>
        </div>
      </body>
    </html>
  </xsl:template>

  <xsl:template name="base">
    <xsl:choose><xsl:when test="$ttc">TTC</xsl:when><xsl:otherwise>HT</xsl:otherwise></xsl:choose>
  </xsl:template>

  <xsl:template name="repere">
    <xsl:param name="nom"/>
    <xsl:param name="valeur"/>
    <xsl:if test="normalize-space($valeur)">
      <div class="repere"><div class="legende"><xsl:value-of select="$nom"/></div><xsl:value-of select="$valeur"/></div>
    </xsl:if>
  </xsl:template>

  <xsl:template match="CODEMODREGL">
    <xsl:choose>
      <xsl:when test=". = 'VIR30'">Virement à 30 jours</xsl:when>
      <xsl:when test=". = 'PRLV'">Prélèvement</xsl:when>
      <xsl:when test=". = 'CHQ'">Chèque à réception</xsl:when>
      <xsl:when test=". = 'MDT'">Mandat administratif</xsl:when>
      <xsl:otherwise><xsl:value-of select="."/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="ADRCHANTIER | ADRFACTURATION">
    <xsl:call-template name="ligne-adresse"><xsl:with-param name="texte" select="@INTERLOC"/></xsl:call-template>
    <xsl:call-template name="ligne-adresse"><xsl:with-param name="texte" select="@ADR"/></xsl:call-template>
    <xsl:call-template name="ligne-adresse"><xsl:with-param name="texte" select="@ADR2"/></xsl:call-template>
    <xsl:call-template name="ligne-adresse">
      <xsl:with-param name="texte" select="normalize-space(concat(@CP, ' ', @CITY))"/>
    </xsl:call-template>
    <xsl:call-template name="ligne-adresse">
      <xsl:with-param name="texte" select="@PHONE"/>
      <xsl:with-param name="classe">discret</xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="ligne-adresse">
      <xsl:with-param name="texte" select="@MAIL"/>
      <xsl:with-param name="classe">discret</xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="ligne-adresse">
    <xsl:param name="texte"/>
    <xsl:param name="classe">coordonnee</xsl:param>
    <xsl:if test="normalize-space($texte)"><div class="{$classe}"><xsl:value-of select="$texte"/></div></xsl:if>
  </xsl:template>

  <!-- ============================================================ les lignes -->

  <xsl:template match="ROW[@TYPE = 'TRANCHE']">
    <tr class="tranche niveau{@LEVEL}"><td colspan="7"><xsl:value-of select="DESIGNATION"/></td></tr>
  </xsl:template>

  <xsl:template match="ROW">
    <xsl:if test="normalize-space(DESIGNATION)">
      <tr class="texte niveau{@LEVEL}"><td colspan="7"><xsl:value-of select="DESIGNATION"/></td></tr>
    </xsl:if>
  </xsl:template>

  <xsl:template match="ROW[UNITPRICE]">
    <tr class="montant niveau{@LEVEL}">
      <td class="designation">
        <xsl:value-of select="DESIGNATION"/>
        <xsl:if test="CODEELEM"><span class="reference"><xsl:value-of select="CODEELEM"/></span></xsl:if>
      </td>
      <td><xsl:value-of select="QTY"/></td>
      <td class="unite"><xsl:value-of select="CODEUNITE"/>&#160;</td>
      <xsl:choose>
        <!-- Un article pris en charge n'a pas de PVFIXE, ni de prix. -->
        <xsl:when test="CODEELEM and not(PVFIXE)">
          <td colspan="4" class="couvert">pris en charge par le contrat</td>
        </xsl:when>
        <xsl:otherwise>
          <xsl:variable name="remise"><xsl:apply-templates select="DISCOUNTRATE" mode="nombre"/></xsl:variable>
          <td><xsl:apply-templates select="UNITPRICE" mode="euros"/></td>
          <td>
            <xsl:if test="DISCOUNTRATE and number($remise) != 0"><xsl:value-of select="DISCOUNTRATE"/> %</xsl:if>&#160;
          </td>
          <td><xsl:apply-templates select="CODETVA" mode="taux"/></td>
          <td class="somme">
            <xsl:variable name="somme"><xsl:apply-templates select="." mode="somme"/></xsl:variable>
            <xsl:call-template name="euros"><xsl:with-param name="valeur" select="$somme"/></xsl:call-template>
          </td>
        </xsl:otherwise>
      </xsl:choose>
    </tr>
  </xsl:template>

  <xsl:template match="CODETVA" mode="taux">
    <xsl:choose>
      <xsl:when test="@RATE != ''"><xsl:value-of select="@RATE"/> %</xsl:when>
      <xsl:otherwise>code <xsl:value-of select="."/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ============================================================ la TVA et les totaux -->

  <xsl:template name="recapitulatif">
    <table class="tva">
      <thead><tr><th>TVA</th><th>Base HT</th><th>Montant TVA</th></tr></thead>
      <tbody>
        <xsl:for-each select="ROW[generate-id() = generate-id(key('code', CODETVA)[1])]">
          <xsl:sort select="CODETVA" data-type="number"/>
          <tr>
            <td><xsl:apply-templates select="CODETVA" mode="taux"/></td>
            <td><xsl:call-template name="euros-de"><xsl:with-param name="part">ht</xsl:with-param></xsl:call-template></td>
            <td><xsl:call-template name="euros-de"><xsl:with-param name="part">tva</xsl:with-param></xsl:call-template></td>
          </tr>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>

  <!-- Un total du code de TVA de la ligne courante. -->
  <xsl:template name="euros-de">
    <xsl:param name="part"/>
    <xsl:variable name="total">
      <xsl:call-template name="total">
        <xsl:with-param name="documents" select="key('code', CODETVA)[generate-id() = generate-id(
          key('document', concat(ORIGINE/@TYPE, '|', ORIGINE, '|', CODETVA))[1])]"/>
        <xsl:with-param name="part" select="$part"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:call-template name="euros"><xsl:with-param name="valeur" select="$total"/></xsl:call-template>
  </xsl:template>

  <xsl:template name="totaux">
    <xsl:variable name="documents" select="ROW[generate-id() = generate-id(
      key('document', concat(ORIGINE/@TYPE, '|', ORIGINE, '|', CODETVA))[1])]"/>
    <xsl:variable name="ht">
      <xsl:call-template name="total">
        <xsl:with-param name="documents" select="$documents"/><xsl:with-param name="part">ht</xsl:with-param>
      </xsl:call-template>
    </xsl:variable>
    <xsl:variable name="tva">
      <xsl:call-template name="total">
        <xsl:with-param name="documents" select="$documents"/><xsl:with-param name="part">tva</xsl:with-param>
      </xsl:call-template>
    </xsl:variable>
    <table class="totaux">
      <tbody>
        <tr><td>Total HT</td><td id="total-ht"><xsl:call-template name="euros">
          <xsl:with-param name="valeur" select="$ht"/></xsl:call-template></td></tr>
        <tr><td>TVA</td><td id="total-tva"><xsl:call-template name="euros">
          <xsl:with-param name="valeur" select="$tva"/></xsl:call-template></td></tr>
        <tr class="net"><td>Net à payer TTC</td><td id="total-ttc"><xsl:call-template name="euros">
          <xsl:with-param name="valeur" select="$ht + $tva"/></xsl:call-template></td></tr>
      </tbody>
    </table>
  </xsl:template>

  <!-- Total HT ou TVA de documents, chacun donné par la première ligne d'un de ses codes : la TVA est due, et arrondie,
       sur le total de chaque document sous chaque code. -->
  <xsl:template name="total">
    <xsl:param name="documents"/>
    <xsl:param name="part"/>
    <xsl:param name="cumul" select="0"/>
    <xsl:choose>
      <xsl:when test="not($documents)"><xsl:value-of select="$cumul"/></xsl:when>
      <xsl:otherwise>
        <xsl:variable name="premier" select="$documents[1]"/>
        <xsl:variable name="taux"><xsl:apply-templates select="$premier/CODETVA/@RATE" mode="nombre"/></xsl:variable>
        <xsl:variable name="pivot">
          <xsl:call-template name="pivot">
            <xsl:with-param name="lignes" select="key('document', concat($premier/ORIGINE/@TYPE, '|', $premier/ORIGINE,
              '|', $premier/CODETVA))"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:variable name="autre">
          <xsl:call-template name="arrondi">
            <xsl:with-param name="valeur" select="$pivot * (1 + $taux div 100) * number(not($ttc))
              + $pivot div (1 + $taux div 100) * number($ttc)"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:variable name="ht" select="$pivot * number(not($ttc)) + $autre * number($ttc)"/>
        <xsl:variable name="tva" select="($autre - $pivot) * number(not($ttc)) + ($pivot - $autre) * number($ttc)"/>
        <xsl:call-template name="total">
          <xsl:with-param name="documents" select="$documents[position() &gt; 1]"/>
          <xsl:with-param name="part" select="$part"/>
          <xsl:with-param name="cumul" select="$cumul + $ht * number($part = 'ht') + $tva * number($part = 'tva')"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Somme de lignes, dans leur base de prix. -->
  <xsl:template name="pivot">
    <xsl:param name="lignes"/>
    <xsl:param name="cumul" select="0"/>
    <xsl:choose>
      <xsl:when test="not($lignes)">
        <xsl:call-template name="arrondi"><xsl:with-param name="valeur" select="$cumul"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="somme"><xsl:apply-templates select="$lignes[1]" mode="somme"/></xsl:variable>
        <xsl:call-template name="pivot">
          <xsl:with-param name="lignes" select="$lignes[position() &gt; 1]"/>
          <xsl:with-param name="cumul" select="$cumul + $somme"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="ROW" mode="somme">
    <xsl:variable name="quantite"><xsl:apply-templates select="QTY" mode="nombre"/></xsl:variable>
    <xsl:variable name="prix"><xsl:apply-templates select="UNITPRICE" mode="nombre"/></xsl:variable>
    <xsl:variable name="remise">
      <xsl:choose>
        <xsl:when test="DISCOUNTRATE"><xsl:apply-templates select="DISCOUNTRATE" mode="nombre"/></xsl:when>
        <xsl:otherwise>0</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:call-template name="arrondi">
      <xsl:with-param name="valeur" select="$quantite * $prix * (1 - $remise div 100)"/>
    </xsl:call-template>
  </xsl:template>

  <!-- ============================================================ les nombres -->

  <!-- Un nombre du XML, écrit selon les réglages régionaux de l'émetteur ; 0 pour un taux absent. -->
  <xsl:template match="* | @*" mode="nombre">
    <xsl:variable name="texte" select="translate(., ', &#160;&#8239;', '.')"/>
    <xsl:choose>
      <xsl:when test="$texte = ''">0</xsl:when>
      <xsl:otherwise><xsl:value-of select="$texte"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="*" mode="euros">
    <xsl:variable name="valeur"><xsl:apply-templates select="." mode="nombre"/></xsl:variable>
    <xsl:call-template name="euros"><xsl:with-param name="valeur" select="$valeur"/></xsl:call-template>
  </xsl:template>

  <!-- Au centime, les moitiés loin de zéro ; le millième de centime rend aux moitiés leur écriture décimale. -->
  <xsl:template name="arrondi">
    <xsl:param name="valeur"/>
    <xsl:choose>
      <xsl:when test="$valeur &lt; 0"><xsl:value-of select="-floor(-$valeur * 100 + 0.50001) div 100"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="floor($valeur * 100 + 0.50001) div 100"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="euros">
    <xsl:param name="valeur"/>
    <xsl:value-of select="concat(format-number($valeur, '#&#160;##0,00', 'fr'), '&#160;€')"/>
  </xsl:template>

  <!-- ============================================================ l'habillage -->

  <xsl:template name="style">
    @page { size: A4; margin: 14mm; }
    * { box-sizing: border-box; }
    body { margin: 0; background: #e9edf1; color: #23303d; font: 13px/1.45 "Segoe UI", "DejaVu Sans", Arial, sans-serif; }
    .feuille { width: 860px; margin: 24px auto; padding: 46px 52px 34px; background: #fff; box-shadow: 0 2px 14px #0002; }
    .tete { display: flex; justify-content: space-between; align-items: flex-start; border-bottom: 3px solid #14618a;
            padding-bottom: 20px; }
    .emetteur { color: #5a6977; font-size: 12px; }
    .marque { color: #14618a; font-size: 23px; font-weight: 700; letter-spacing: -.3px; margin-bottom: 4px; }
    .titre { text-align: right; color: #5a6977; }
    .titre .mot { font-size: 30px; line-height: 1; letter-spacing: 2px; text-transform: uppercase; color: #23303d;
                  font-weight: 300; }
    .titre .numero { font-size: 17px; font-weight: 700; color: #14618a; margin-top: 8px; }
    .adresses { display: flex; gap: 24px; margin: 26px 0 22px; }
    .adresse { flex: 1; padding: 4px 0; }
    .adresse.client { background: #f2f6f9; border-left: 3px solid #14618a; padding: 12px 18px; }
    .adresse .nom { font-weight: 700; font-size: 15px; }
    .legende { color: #7b8a98; font-size: 10.5px; text-transform: uppercase; letter-spacing: .8px; margin-bottom: 3px; }
    .discret { color: #7b8a98; font-size: 12px; }
    .reperes { display: flex; border-top: 1px solid #dde4ea; border-bottom: 1px solid #dde4ea; margin-bottom: 24px; }
    .repere { flex: 1 1 auto; padding: 9px 14px 9px 0; }
    table { border-collapse: collapse; }
    .lignes { width: 100%; }
    .lignes th { background: #14618a; color: #fff; font-size: 11px; font-weight: 600; text-align: right; padding: 8px;
                 white-space: nowrap; }
    .lignes th.designation { text-align: left; padding-left: 12px; }
    .lignes th.unite, .lignes td.unite { text-align: left; }
    .lignes td { padding: 5px 8px; text-align: right; vertical-align: top; white-space: nowrap; }
    .lignes td[colspan="7"], .lignes td.designation { text-align: left; padding-left: 12px; white-space: normal; }
    .tranche.niveau1 td { font-weight: 700; font-size: 13.5px; color: #14618a; padding-top: 18px;
                          border-bottom: 1px solid #dde4ea; }
    .tranche.niveau2 td { font-weight: 600; padding-top: 10px; padding-left: 26px !important; color: #44525f; }
    .texte td { color: #5a6977; font-size: 12px; padding-top: 2px; padding-bottom: 2px; }
    .montant td { border-bottom: 1px solid #eef2f5; }
    .montant.niveau2 td.designation { padding-left: 26px; }
    .reference { color: #9aa7b3; font-size: 11px; margin-left: 8px; }
    .somme { font-weight: 600; }
    .couvert { color: #2e7d5b; font-style: italic; font-size: 12px; }
    .pied { display: flex; justify-content: space-between; align-items: flex-start; margin-top: 30px; }
    .tva th { color: #7b8a98; font-size: 10.5px; text-transform: uppercase; letter-spacing: .6px; font-weight: 600;
              text-align: right; padding: 4px 16px 6px 0; border-bottom: 1px solid #dde4ea; }
    .tva td { text-align: right; padding: 5px 16px 5px 0; border-bottom: 1px solid #eef2f5; font-size: 12.5px; }
    .tva th:first-child, .tva td:first-child { text-align: left; }
    .totaux td { padding: 6px 14px; text-align: right; min-width: 130px; }
    .totaux td:first-child { color: #5a6977; text-align: left; }
    .totaux td { white-space: nowrap; }
    .totaux .net td { background: #14618a; color: #fff; font-size: 17px; font-weight: 700; padding: 11px 14px; }
    .mentions { margin-top: 34px; padding-top: 12px; border-top: 1px solid #dde4ea; color: #7b8a98; font-size: 10.5px; }
    .mentions p { margin: 0 0 5px; }
    @media print { body { background: #fff; } .feuille { width: auto; margin: 0; padding: 0; box-shadow: none; } }
  </xsl:template>
</xsl:stylesheet>
