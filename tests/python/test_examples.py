"""The two example scripts on the demo store, compared with ormelix show --json."""

import csv
import io
import os
import subprocess
import sys

import pytest

import ormelix
from conftest import EXAMPLES

SCRIPTS = EXAMPLES or os.path.join(os.path.dirname(__file__), "..", "..", "examples", "python")


def script(name, *args):
    return subprocess.run([sys.executable, os.path.join(SCRIPTS, name), *args], capture_output=True, text=True)


def report(demo, period):
    done = script("month_report.py", demo.where, str(period))
    assert done.returncode == 0, done.stderr
    return list(csv.DictReader(io.StringIO(done.stdout)))


def rates_shown(demo, period):
    """The employee's and employer's rate of white-collar employees, from the view of the base values."""
    sa = demo.show("base", "--period", str(period))["table"]["SA"]
    employee = sum(sa[name]["Prozent"] for name in (
        "Krankenversicherung", "Pensionsversicherung", "Arbeitslosenversicherung", "Kammerumlage",
        "Wohnbaufoederung"))
    employer = sum(sa[name]["Prozent_DG"] for name in (
        "Krankenversicherung", "Pensionsversicherung", "Arbeitslosenversicherung", "Wohnbaufoederung",
        "Unfallversicherung", "IESGZuschlag"))
    return employee, employer, sa["Unfallversicherung"]["Prozent_DG"]


@pytest.mark.parametrize("period", [202503, 202411])
def test_month_report_shows_the_stored_month_and_the_contributions_of_the_base_values(demo, period):
    rows = report(demo, period)
    *employees, total = rows
    assert total["Familienname"] == "Summe" and len(employees) == len(demo.show("employees", "--year", str(period // 100))["employees"])
    employee_rate, employer_rate, accident = rates_shown(demo, period)
    for row in employees:
        month = demo.show("month", "--employee", row["Personalnummer"], "--period", str(period))
        shown = month["month"]
        for column in ("LFD_Bezuege", "SV_Laufend_Basis", "SV_Laufend", "SV_Laufend_DG"):
            assert float(row[column]) == pytest.approx(shown[column], abs=0.005), (row["Personalnummer"], column)
        assert row["Familienname"] == month["employee"]["Mitarbeiter"]["FName"]
        # The demo's pay run stored what the base values give.
        assert float(row["SV_DN"]) == pytest.approx(shown["SV_Laufend"], abs=0.005)
        assert float(row["SV_DG"]) == pytest.approx(shown["SV_Laufend_DG"], abs=0.005)
        if row["Gruppe"] in ("Angestellte", "Geschäftsführer") and float(row["SV_Laufend_Basis"]) > 3000:
            assert float(row["DN_Prozent"]) == pytest.approx(employee_rate)
            assert float(row["DG_Prozent"]) == pytest.approx(employer_rate)
        if row["Gruppe"] == "Geringfügig":
            assert (float(row["DN_Prozent"]), float(row["DG_Prozent"])) == (0, pytest.approx(accident))
    for column in ("SV_Laufend_Basis", "SV_DN", "SV_DG", "SV_Laufend", "SV_Laufend_DG"):
        assert float(total[column]) == pytest.approx(sum(float(row[column]) for row in employees), abs=0.005)


@pytest.mark.parametrize("args, words", [
    (["/nonexistent/demo", "202503"], "no payroll store"),
    (["STORE", "2025-03"], "no period YYYYMM"),
    (["STORE", "202513"], "no period YYYYMM"),
    (["STORE", "202503", "no-id"], "no employer ID"),
    (["STORE", "202503", "{11111111-2222-3333-4444-555555555555}"], "no employer"),
    (["STORE"], "usage"),
])
def test_month_report_refuses_bad_input_with_one_line(demo, args, words):
    done = script("month_report.py", *[demo.where if arg == "STORE" else arg for arg in args])
    assert (done.returncode, done.stdout) == (2, "")
    assert len(done.stderr.splitlines()) == 1 and words in done.stderr


def test_year_check_finds_a_month_stored_with_another_figure(fresh_demo):
    done = script("year_check.py", fresh_demo.where, "2025")
    assert (done.returncode, done.stdout.splitlines()) == (0, ["0 of 15 pay months of 2025 differ by more than a cent"])
    manager = fresh_demo.session(month=2)
    lohn = next(lohn for lohn in manager.Mitarbeiter() if lohn.Mitarbeiter().Personalnummer == 1002)
    right = lohn.SV_Laufend[2]
    lohn.SV_Laufend[2] = right + 1.5
    lohn.Update(manager, ormelix.ucTableLohnzettel, 2)
    done = script("year_check.py", fresh_demo.where, "2025")
    assert done.returncode == 1, done.stderr
    line, summary = done.stdout.splitlines()
    assert summary == "1 of 15 pay months of 2025 differ by more than a cent"
    stored = fresh_demo.show("month", "--employee", "1002", "--period", "202502")["month"]["SV_Laufend"]
    assert line.startswith("1002 Berger Markus 202502: ")
    assert f"SV_Laufend {stored:.2f}," in line and f"= {right:.2f}, difference +1.50" in line
