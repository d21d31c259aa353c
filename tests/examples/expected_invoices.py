"""What the sample contracts and work orders must be invoiced, computed from the JSON files alone.

An independent reading of the data in decimal arithmetic: neither the library nor the demonstration host is asked.
"""

import calendar
import json
import re
from datetime import date, timedelta
from decimal import ROUND_HALF_UP, Decimal

MONTHS = {"mensuelle": 1, "trimestrielle": 3, "semestrielle": 6, "annuelle": 12}


def cents(amount):
    return amount.quantize(Decimal("0.01"), ROUND_HALF_UP)


def day(text):
    return date(*map(int, reversed(text.split("/"))))


def add_months(start, count):
    year, month = divmod(start.month - 1 + count, 12)
    year += start.year
    return date(year, month + 1, min(start.day, calendar.monthrange(year, month + 1)[1]))


def contract_end(contract):
    if "dateFin" in contract:
        return day(contract["dateFin"])
    start, count = day(contract["dateDebut"]), contract["duree"]
    if contract["uniteDuree"] in ("mois", "annees"):
        return add_months(start, count if contract["uniteDuree"] == "mois" else 12 * count) - timedelta(1)
    return start + timedelta(count * (7 if contract["uniteDuree"] == "semaines" else 1) - 1)


def due_periods(contract, until):
    """Start and end of each period to invoice on `until`."""
    start, end = day(contract["dateDebut"]), contract_end(contract)
    done = day(contract["factureJusquau"]) if "factureJusquau" in contract else date.min
    while start <= end:
        months = MONTHS.get(contract["facturation"])
        last = min(end, add_months(start, months) - timedelta(1)) if months else end
        if (start if contract["terme"] == "debut" else last) <= until and last > done:
            yield start, last
        start = last + timedelta(1)


def shares(contract):
    """(VAT code, base) of one instalment; the highest code takes the rounding difference."""
    amount = Decimal(str(contract["montantEcheance"]))
    text = contract.get("repartitionTva") or f"{contract['codeTva']}@100@"
    bases = {int(code): cents(amount * Decimal(part) / 100) for code, part in re.findall(r"(\d+)@([\d.]+)@", text)}
    bases[max(bases)] += amount - sum(bases.values())
    return bases.items()


def article_bases(work_order):
    """(VAT code, base) of the articles that are invoiced."""
    bases = {}
    for article in work_order["articles"]:
        if article.get("type") == "texte" or article.get("prisEnCharge"):
            continue
        kept = 1 - Decimal(str(article.get("remise", 0))) / 100
        amount = cents(Decimal(str(article["quantite"])) * Decimal(str(article["prixUnitaire"])) * kept)
        bases[article["codeTva"]] = bases.get(article["codeTva"], Decimal(0)) + amount
    return bases.items()


def amounts(base, rate, before_tax):
    """HT, VAT and TTC of a base that is before tax or tax included."""
    other = cents(base * (1 + rate / 100) if before_tax else base / (1 + rate / 100))
    return (base, other - base, other) if before_tax else (other, base - other, base)


def expected_totals(folder):
    """Sorted (customer, HT, VAT, TTC) of the invoices; documents group by customer, tariff and representative."""
    read = {name: json.loads((folder / f"{name}.json").read_text(encoding="utf-8"))
            for name in ("contrats", "interventions", "tva")}
    rates = {code["code"]: Decimal(str(code["taux"])) for code in read["tva"]["codes"]}
    until = day(read["contrats"]["dateFacturation"])
    invoices = {}

    def add(document, bases):
        total = invoices.setdefault((document["nomClient"], document["tarif"], document["vendeur"]), [Decimal(0)] * 3)
        for code, base in bases:
            total[:] = map(sum, zip(total, amounts(base, rates[code], document["tarif"] == "HT")))

    for contract in read["contrats"]["contrats"]:
        if not contract.get("suspendu"):
            for _ in due_periods(contract, until):
                add(contract, shares(contract))
    for work_order in read["interventions"]["interventions"]:
        if day(work_order["date"]) <= until and article_bases(work_order):
            add(work_order, article_bases(work_order))
    return sorted((customer, *total) for (customer, _, _), total in invoices.items())
