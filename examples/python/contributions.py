"""What the two examples share: opening a store as ormelix show does, and the social
insurance of an employee's month worked out again from the month's base values.

The rules are those the demo's pay run applies (a payroll host has its own):
white- and blue-collar employees and managing directors pay health, pension and
unemployment insurance, chamber levy and housing contribution, the employee's
unemployment share falling to 0, 1 and 2 percent up to the bounds of the ALV
table; apprentices pay the apprentices' health rate, pension and their
unemployment share; the marginally employed pay nothing, their employer the
accident insurance. A month with a transfer (Uebertritt) is worked out in two
parts: Basis1 at the rates before it, the rest of the base at the rates after.
"""

import os
import sys

import ormelix

RoundTo = ormelix.RoundingHelpers.RoundTo


class UsageError(Exception):
    """Bad input: the scripts print it as one line and end with status 2."""


def run(main):
    """Runs main(); bad input and failures of the library as one line on stderr."""
    try:
        return main()
    except (UsageError, ormelix.Error) as error:
        print(f"{os.path.basename(sys.argv[0])}: {error}", file=sys.stderr)
        return 2


def open_session(where):
    """A session on a demo store: a folder with payroll.db and reference.db (or the
    payroll store's file), or a connection string, whose reference store lies in
    the schema beside it, as ormelix show finds them."""
    if ormelix.IsServerLocation(where):
        schema = ormelix.LocationParameter(where, "schema")
        payroll = where
        reference = ormelix.WithLocationParameter(where, "schema", (schema + "_" if schema else "") + "reference")
    else:
        folder = where if os.path.isdir(where) else os.path.dirname(where)
        payroll = os.path.join(where, "payroll.db") if os.path.isdir(where) else where
        reference = os.path.join(folder, "reference.db")
        if not os.path.isfile(payroll):
            raise UsageError(f"no payroll store at '{where}'; expected a folder made by ormelix demo")
    manager = ormelix.clsManager()
    manager.OpenAktDB(ormelix.StoreConnection.Open(payroll, "readonly"))
    manager.SetImportDB(ormelix.StoreConnection.Open(reference, "readonly"))
    return manager


def select_employer(manager, employer_id=None):
    """The employer of that ID, or the store's first."""
    if employer_id is None:
        rs = manager.AktDB().Session().OpenRecordset("SELECT [ID] FROM [Mandanten] ORDER BY [Nr]")
        if rs.Eof():
            raise UsageError("the store has no employer")
        employer_id = rs.Fields("ID").Value()
    if not ormelix.DateHelpers.IsID(employer_id):
        raise UsageError(f"'{employer_id}' is no employer ID")
    manager.ChangeAktMandant(employer_id)
    if manager.AktMandant().ID() != employer_id:
        raise UsageError(f"no employer {employer_id} in the store")


def parse_period(text):
    if len(text) != 6 or not text.isdigit() or not 1 <= int(text[4:]) <= 12:
        raise UsageError(f"'{text}' is no period YYYYMM (e.g. 202503)")
    return int(text)


def group_of(lohn, month, apprentice=True):
    """The employee's group in the month, by the options of the pay record."""
    if lohn.op_mBeschaeftigt[month]:
        return "Geringfügig"
    if apprentice and lohn.op_LehrZeit[month] > 0:
        return "Lehrling"
    if lohn.op_Arbeiter[month]:
        return "Arbeiter"
    if lohn.op_Geschaeftsfuehrer[month]:
        return "Geschäftsführer"
    return "Angestellte"


def rates(table, group, basis):
    """The employee's and the employer's percentage for the group at that base."""
    sa, alv = table.SA(), table.ALV()

    def unemployment(full, apprentice):
        if basis <= alv.N25a_bis:
            return 0.0
        if basis <= alv.N25b_bis:
            return 1.0
        if not apprentice and basis <= alv.N25c_bis:
            return 2.0
        return full

    if group == "Geringfügig":
        return 0.0, sa.Unfallversicherung().Prozent_DG
    if group == "Lehrling":
        health = sa.KrankenversicherungLehrlinge2016()
        employee = health.Prozent + sa.Pensionsversicherung().Prozent + unemployment(
            sa.ArbeitslosenversicherungLehrlinge2016().Prozent, True)
        return employee, health.Prozent_DG + sa.Pensionsversicherung().Prozent_DG
    employee = (sa.Krankenversicherung().Prozent + sa.Pensionsversicherung().Prozent
                + unemployment(sa.Arbeitslosenversicherung().Prozent, False)
                + sa.Kammerumlage().Prozent + sa.Wohnbaufoederung().Prozent)
    employer = sum(getattr(sa, name)().Prozent_DG for name in (
        "Krankenversicherung", "Pensionsversicherung", "Arbeitslosenversicherung", "Wohnbaufoederung",
        "Unfallversicherung", "IESGZuschlag"))
    return employee, employer


def month_table(manager, lohn, period):
    """The dated table of base values in force for the employee's month."""
    folder = manager.Basis().Item(lohn.BasisID) if lohn.BasisID else None
    folder = folder or manager.Basis().GetStandardBOrdner()
    return folder.Zeittabellen().GetZeittabelle(period)


class Month:
    """An employee's month: stored figures, and the contributions worked out again."""

    def __init__(self, manager, lohn, period):
        month = period % 100
        table = month_table(manager, lohn, period)
        self.lohn, self.period = lohn, period
        self.group = group_of(lohn, month)
        self.lfd_bezuege = lohn.LFD_Bezuege[month]
        self.basis = lohn.SV_Laufend_Basis[month]
        self.stored_employee = lohn.SV_Laufend[month]
        self.stored_employer = lohn.SV_Laufend_DG[month]
        transfer = lohn.Uebertritt(month)
        self.transfer = ormelix.date_from_days(transfer.Datum)
        parts = [(self.group, self.basis)]
        if self.transfer:
            after = group_of(lohn, month, apprentice=False)
            parts = [(self.group, transfer.Basis1), (after, self.basis - transfer.Basis1)]
        self.employee = self.employer = 0.0
        for group, basis in parts:
            self.employee_percent, self.employer_percent = rates(table, group, basis)
            self.employee += RoundTo(basis * self.employee_percent / 100, 2)
            self.employer += RoundTo(basis * self.employer_percent / 100, 2)
        self.employee, self.employer = RoundTo(self.employee, 2), RoundTo(self.employer, 2)
        self.groups = "/".join(group for group, _ in parts)
