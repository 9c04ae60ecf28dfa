#!/usr/bin/env python3
"""A month's social-insurance report of all employees of an employer, as CSV.

    month_report.py STORE YYYYMM [EMPLOYER_ID]

STORE is a folder made by ormelix demo (or ormelix init), or a PostgreSQL
connection string; without EMPLOYER_ID the store's first employer. One row per
employee of the year with the month's stored figures (as ormelix show month
shows them) and the contributions worked out again from the base values of the
month: the employee's and the employer's rate of the group, base x rate, and what
the stored figures differ from that. A last row adds the amounts up.
"""

import csv
import sys

import ormelix
from contributions import Month, UsageError, open_session, parse_period, run, select_employer

COLUMNS = ["Personalnummer", "Familienname", "Vorname", "Gruppe", "Uebertritt", "LFD_Bezuege", "SV_Laufend_Basis",
           "DN_Prozent", "DG_Prozent", "SV_DN", "SV_DG", "SV_Laufend", "SV_Laufend_DG", "Differenz_DN",
           "Differenz_DG"]
SUMMED = ["LFD_Bezuege", "SV_Laufend_Basis", "SV_DN", "SV_DG", "SV_Laufend", "SV_Laufend_DG", "Differenz_DN",
          "Differenz_DG"]


def difference(stored, computed):
    return ormelix.RoundingHelpers.RoundTo(stored - computed, 2) + 0.0  # no "-0.00"


def row_of(month):
    a = month.lohn.Mitarbeiter()
    return {
        "Personalnummer": a.Personalnummer, "Familienname": a.FName, "Vorname": a.VName, "Gruppe": month.groups,
        "Uebertritt": month.transfer.isoformat() if month.transfer else "",
        "LFD_Bezuege": month.lfd_bezuege, "SV_Laufend_Basis": month.basis,
        "DN_Prozent": month.employee_percent, "DG_Prozent": month.employer_percent,
        "SV_DN": month.employee, "SV_DG": month.employer,
        "SV_Laufend": month.stored_employee, "SV_Laufend_DG": month.stored_employer,
        "Differenz_DN": difference(month.stored_employee, month.employee),
        "Differenz_DG": difference(month.stored_employer, month.employer),
    }


def main():
    if len(sys.argv) not in (3, 4):
        raise UsageError("usage: month_report.py STORE YYYYMM [EMPLOYER_ID]")
    period = parse_period(sys.argv[2])
    manager = open_session(sys.argv[1])
    manager.AktJahr, manager.AktMonat = period // 100, period % 100
    select_employer(manager, sys.argv[3] if len(sys.argv) == 4 else None)
    manager.Basis().Load()
    manager.Mitarbeiter().Load(manager.AktJahr)
    rows = [row_of(Month(manager, lohn, period)) for lohn in manager.Mitarbeiter()]
    total = {column: ormelix.RoundingHelpers.RoundTo(sum(row[column] for row in rows), 2) for column in SUMMED}
    total["Familienname"] = "Summe"
    out = csv.DictWriter(sys.stdout, COLUMNS, lineterminator="\n")
    out.writeheader()
    for row in rows + [total]:
        out.writerow({key: f"{value:.2f}" if isinstance(value, float) else value for key, value in row.items()})
    return 0


if __name__ == "__main__":
    sys.exit(run(main))
