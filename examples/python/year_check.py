#!/usr/bin/env python3
"""Checks a year: the employees whose stored SV_Laufend differs by more than a cent
from the base times the employee's rate of the month's base values.

    year_check.py STORE YYYY [EMPLOYER_ID]

STORE is a folder made by ormelix demo (or ormelix init), or a PostgreSQL
connection string; without EMPLOYER_ID the store's first employer. One line per
pay month that differs; the exit status is 0 when none does and 1 otherwise.
"""

import sys

from contributions import Month, UsageError, open_session, run, select_employer

CENT = 0.01


def main():
    if len(sys.argv) not in (3, 4):
        raise UsageError("usage: year_check.py STORE YYYY [EMPLOYER_ID]")
    if len(sys.argv[2]) != 4 or not sys.argv[2].isdigit():
        raise UsageError(f"'{sys.argv[2]}' is no year YYYY (e.g. 2025)")
    year = int(sys.argv[2])
    manager = open_session(sys.argv[1])
    manager.AktJahr = year
    select_employer(manager, sys.argv[3] if len(sys.argv) == 4 else None)
    manager.Basis().Load()
    manager.Mitarbeiter().Load(year)
    months = differing = 0
    for lohn in manager.Mitarbeiter():
        a = lohn.Mitarbeiter()
        for month in range(1, 13):
            m = Month(manager, lohn, year * 100 + month)
            if m.basis == 0 and m.stored_employee == 0:
                continue  # no pay in the month
            months += 1
            if abs(m.stored_employee - m.employee) > CENT + 1e-9:
                differing += 1
                print(f"{a.Personalnummer} {a.FName} {a.VName} {m.period}: SV_Laufend {m.stored_employee:.2f}, "
                      f"SV_Laufend_Basis {m.basis:.2f} x {m.employee_percent:g} % ({m.groups}) = "
                      f"{m.employee:.2f}, difference {m.stored_employee - m.employee:+.2f}")
    print(f"{differing} of {months} pay months of {year} differ by more than a cent")
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(run(main))
