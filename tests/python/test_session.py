"""Stores and the session: opening and making stores, the session's selections,
settings and recordsets, and the library's failures as Python exceptions."""

import datetime
import enum
import re
import subprocess

import pytest

import ormelix
from conftest import ON_POSTGRES, TOOL


def new_session(new_location):
    payroll = ormelix.CreateStore(new_location("payroll"), ormelix.StoreKind.Payroll)
    manager = ormelix.clsManager()
    manager.OpenAktDB(payroll)
    manager.SetImportDB(ormelix.CreateStore(new_location("reference"), ormelix.StoreKind.Reference))
    return manager


def add_row(store, table, **values):
    rs = store.Session().OpenRecordset(f"SELECT * FROM [{table}]", ormelix.adOpenDynamic, ormelix.adLockOptimistic)
    rs.AddNew()
    for column, value in values.items():
        rs.Collect(column, value)
    rs.Update()
    row_id = rs.Fields("ID").Value()
    rs.Close()
    return row_id


def test_the_module_and_the_command_name_one_version():
    assert re.fullmatch(r"\d+\.\d+\.\d+", ormelix.__version__)
    shown = subprocess.run([TOOL, "--version"], capture_output=True, text=True, check=True).stdout
    assert shown == f"ormelix (OrmelixCore) {ormelix.__version__}\n"


def test_new_stores_open_again_by_location(new_location):
    location = new_location()
    store = ormelix.CreateStore(location, ormelix.StoreKind.Payroll)
    assert store.Session().IsOpen()
    assert ormelix.IsServerLocation(location) == ON_POSTGRES
    store.Session().CloseStore()
    again = ormelix.StoreConnection.Open(location)
    rs = again.Session().OpenRecordset("SELECT COUNT(*) AS [n] FROM [Mandanten]")
    assert rs.Fields("n").Value() == 0
    with pytest.raises(ormelix.StoreError):
        ormelix.CreateStore(location, ormelix.StoreKind.Payroll)  # exists already


@pytest.mark.parametrize("location", ["/nonexistent-folder/payroll.db", "host=/nonexistent-socket dbname=x"])
def test_a_store_that_cannot_be_opened_is_a_store_error(location):
    with pytest.raises(ormelix.StoreError) as failure:
        ormelix.StoreConnection.Open(location)
    assert isinstance(failure.value, ormelix.Error)
    assert str(failure.value) and failure.value.Subject


def test_session_selects_year_month_employer_and_employee(new_location):
    manager = new_session(new_location)
    assert (manager.AktJahr, manager.AktMonat) == (0, 0)
    manager.AktJahr, manager.AktMonat = 2025, 3
    assert manager.GetZeitraum() == 202503 and manager.GetZeitraum(11) == 202511
    employer = add_row(manager.AktDB(), "Mandanten", Name="Testfirma")
    manager.ChangeAktMandant(employer)
    assert manager.AktMandant().ID() == employer and manager.AktMandant().Name == "Testfirma"
    manager.ChangeAktMandant("")
    assert manager.AktMandant() is None
    manager.ChangeAktMandant(employer)
    manager.Mitarbeiter().Load(2025)
    assert len(manager.Mitarbeiter()) == 0
    with pytest.raises(ormelix.KeyNotFound) as failure:
        manager.ChangeAktMitarbeiter("{11111111-2222-3333-4444-555555555555}")
    assert failure.value.Key == "{11111111-2222-3333-4444-555555555555}"
    assert isinstance(failure.value, LookupError)
    manager.ChangeAktMitarbeiter("")
    assert (manager.AktMitarbeiterID, manager.AktMitarbeiterIndex) == ("", 0)
    assert manager.IsOpenDatabase()
    manager.CloseAktDB()
    assert not manager.IsOpenDatabase() and manager.AktDBPath() == ""


def test_settings_keep_values_in_their_type(new_location):
    manager = new_session(new_location)
    settings = manager.Settings()
    # A flag comes back as the store holds booleans, -1.
    for field, value, stored in [("text", "Wien", "Wien"), ("number", 42, 42), ("amount", 12.5, 12.5),
                                 ("flag", True, -1)]:
        settings.SetValue("Test", field, value)
        assert settings.GetValue("Test", field) == stored
    assert settings.ExistValue("Test", "text")
    settings.DeleteValue("Test", "text")
    assert settings.GetValue("Test", "text", "default") == "default"


def test_recordset_reads_writes_and_filters(new_location):
    manager = new_session(new_location)
    store = manager.AktDB()
    for name in ("beta", "Alpha", "alpine"):
        add_row(store, "Mandanten", Name=name)
    rs = store.Session().OpenRecordset("SELECT [Name] FROM [Mandanten] ORDER BY [Name]")
    names = []
    while not rs.Eof():
        names.append(rs.Fields(0).Value())
        rs.MoveNext()
    assert names == ["Alpha", "alpine", "beta"] and rs.RecordCount() == 3
    rs.Filter("[Name]='ALPHA'")
    assert rs.RecordCount() == 1 and rs.Fields("Name").Name() == "Name"
    for index in (1, -1):  # the recordset has one field
        with pytest.raises(IndexError, match=f"Fields\\({index}\\)"):
            rs.Fields(index)
    field = rs.Fields("Name")
    del rs  # the field keeps its recordset
    assert field.Value() == "Alpha"
    with pytest.raises(ormelix.StoreError):
        store.Session().OpenRecordset("SELECT * FROM [NoSuchTable]")


def test_helpers_and_days_as_dates():
    days = ormelix.DateHelpers.DateSerial(2025, 3, 17)
    assert ormelix.date_from_days(days) == datetime.date(2025, 3, 17)
    assert ormelix.days_from_date(datetime.date(2025, 3, 17)) == days
    assert ormelix.days_from_date(datetime.datetime(2025, 3, 17, 13, 30)) == days
    assert ormelix.date_from_days(0) is None and ormelix.days_from_date(None) == 0
    assert ormelix.date_from_days(2) == datetime.date(1900, 1, 1)
    with pytest.raises(TypeError, match="days_from_date"):
        ormelix.days_from_date("2025-03-17")
    for no_day in (float("nan"), float("inf"), -1e300):
        with pytest.raises(IndexError, match="no date"):  # the library's own check
            ormelix.date_from_days(no_day)
    assert ormelix.ComposeZeitraum(2025, 3) == 202503
    assert ormelix.DateHelpers.ZeitraumToDate(202503) == ormelix.DateHelpers.DateSerial(2025, 3, 1)
    assert ormelix.RoundingHelpers.RoundTo(1234.565, 2) == 1234.57
    assert ormelix.ValueHelpers.SqlID("") == "{00000000-0000-0000-0000-000000000000}"


def test_enumerations_are_python_enums():
    assert issubclass(ormelix.eLaufbahnschritte, enum.IntEnum)
    assert issubclass(ormelix.eUpdateConstants, enum.IntFlag)
    assert ormelix.eLBAustritt is ormelix.eLaufbahnschritte.eLBAustritt and ormelix.eLBAustritt == 3
    assert ormelix.eUpdateConstants.ucTableLohnzettel | ormelix.ucTableMitarbeiter == 33
    assert ormelix.eLohnartenConstants.MaxAnzahl == 8
    assert [member.name for member in ormelix.eFABO] == ["eFABO_kein_FABO", "eFABO_ganzer_FABO", "eFABO_halber_FABO"]
    step = ormelix.LLohn_Laufbahn()
    step.Schritt = 3
    assert step.Schritt is ormelix.eLBAustritt
    step.Schritt = 7  # a stored value outside the enumeration stays what it is
    assert step.Schritt == 7
    with pytest.raises(TypeError, match="Schritt"):
        step.Schritt = "Austritt"
