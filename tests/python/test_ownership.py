"""Objects Python holds stay valid: after their list is reloaded, after their
session is dropped, after their store is closed. What needs the session or the
store then raises ormelix.Error; nothing crashes."""

import gc

import pytest

import ormelix


def test_an_employee_outlives_the_reload_of_its_list(employees):
    manager, by_number = employees
    anna = by_number[1001]
    career, children = anna.Laufbahn(), anna.Kinder()
    manager.Mitarbeiter().Load(2025)  # a new list of new objects
    assert anna not in manager.Mitarbeiter()
    assert anna.ID() in manager.Mitarbeiter()  # the new object of the same employee
    assert anna.Gehalt[3] == 3350.0 and anna.Mitarbeiter().FName == "Huber"
    assert career.Laufbahnschritt(202503, False, False).Schritt == ormelix.eLBEintritt  # its session still runs
    assert len(children.GetFABOKinder(202503)) == 2


def test_objects_outlive_their_session_and_what_needs_it_raises(demo):
    manager = demo.session()
    lohn = manager.Mitarbeiter().Item(1)
    folder = manager.Basis().GetStandardBOrdner()
    table = folder.Zeittabellen().GetZeittabelle(202503)
    employees = manager.Mitarbeiter()
    kind = lohn.Kinder().Item(1)
    del manager
    gc.collect()
    # The values stay readable and writable.
    assert lohn.Gehalt[3] == 3350.0 and table.SA().Krankenversicherung().Prozent == pytest.approx(3.87)
    lohn.Gehalt[4] = 1.5
    assert len(employees) == 5 and lohn in employees
    # What needs the session says it has ended (the career's queries answer a
    # blank step without one, as the library's queries do).
    assert lohn.Laufbahn().Laufbahnschritt(202503, False, False).Schritt == ormelix.eLBNone
    for ask in (lambda: lohn.Laufbahn().Load(),
                lambda: folder.Zeittabellen().GetZeittabelle(202503),
                lambda: employees.Load(2025),
                lambda: kind.GetL16Daten(202501, 202512),
                lambda: table.Refresh()):
        with pytest.raises(ormelix.Error, match="session"):
            ask()


def test_a_closed_store_raises_also_after_a_reload_and_after_the_session_ends(demo):
    manager = demo.session()
    lohn = manager.Mitarbeiter().Item(1)
    manager.CloseAktDB()
    with pytest.raises(ormelix.StoreError, match="closed"):
        manager.Mitarbeiter().Load(2025)
    with pytest.raises(ormelix.StoreError, match="closed"):
        lohn.Update(manager, ormelix.ucTableLohnzettel, 3)
    with pytest.raises(ormelix.StoreError, match="closed"):
        lohn.Laufbahn().Laufbahnschritt(202503, False, False)
    store = manager.AktDB()
    manager.OpenAktDB()  # the same store again
    manager.Mitarbeiter().Load(2025)
    reloaded = manager.Mitarbeiter().Item(1)
    del manager
    gc.collect()
    # The session's end closed its store: the connection Python holds says so.
    assert not store.Session().IsOpen()
    with pytest.raises(ormelix.StoreError, match="closed"):
        store.Session().OpenRecordset("SELECT [ID] FROM [Mandanten]")
    with pytest.raises(ormelix.Error):
        reloaded.Laufbahn().Load()


def test_a_recordset_and_its_fields_outlive_the_store(demo):
    manager = demo.session()
    rs = manager.AktDB().Session().OpenRecordset("SELECT [ID], [Name] FROM [Mandanten]")
    field = rs.Fields("Name")
    manager.CloseAktDB()
    assert field.Value() == "Alpenblick Gastronomie GmbH"  # a snapshot
    rs.Close()
    with pytest.raises(ormelix.Error):
        field.Value()
    with pytest.raises(ormelix.Error):
        rs.MoveNext()


def test_none_is_refused_where_the_library_would_hold_an_unset_object():
    mandant = ormelix.clsMandant()
    for setter in ("SetBankverbindung", "SetBMVG_Kasse", "SetFinanzamt", "SetKommunal", "SetJahresdaten"):
        with pytest.raises(TypeError, match=setter):
            getattr(mandant, setter)(None)
    with pytest.raises(TypeError, match="Add"):
        ormelix.LLohn_Ersatzleistungen().Add(None)
    with pytest.raises(TypeError, match="Add"):
        ormelix.clsLand_Indikatoren().Add(None)
    with pytest.raises(TypeError, match="AddItem"):
        ormelix.LLohn_Laufbahnen().AddItem(None)
    with pytest.raises(TypeError, match="SetKasse"):
        ormelix.clsMandant_BMVG_Kasse().SetKasse(None)
    with pytest.raises(TypeError, match="SetGruppe"):
        ormelix.LBasis_SA().SetGruppe(1, None)
    assert ormelix.LLohn_Laufbahnen().UpdateBef(None) is False  # the library's answer to an unset step


def _calls_without_arguments(obj):
    """Every method of obj that takes no argument, called; the failures it raised."""
    raised = []
    for name in dir(obj):
        if name.startswith("_"):
            continue
        try:
            value = getattr(obj, name)
            if callable(value) and not isinstance(value, (type, ormelix.IndexedArray)):
                value()
            elif isinstance(value, ormelix.IndexedArray):
                list(value)  # a grid is no sequence: TypeError
        except (ormelix.Error, TypeError, IndexError, ValueError) as failure:
            raised.append(type(failure).__name__)
    return raised


def test_every_class_made_alone_can_be_used_without_a_crash():
    """A host that makes an object on its own and asks it anything gets a value or
    an exception, never a crash: every class that can be made, every method
    without arguments, every property."""
    classes = [value for name, value in vars(ormelix).items()
               if isinstance(value, type) and not issubclass(value, BaseException) and not name.startswith("_")
               and hasattr(value, "__init__")]
    made = 0
    for cls in classes:
        try:
            obj = cls()
        except TypeError:
            continue  # no constructor: the session makes these
        made += 1
        _calls_without_arguments(obj)
    assert made >= 40


def test_the_children_of_a_working_record_let_go_of_it_when_it_ends():
    record = ormelix.LLohn1()
    sixth, transfer = record.Sechstel(3), record.Uebertritt(3)
    days = transfer.Datum1()
    assert sixth.Owner() is record and transfer.Owner() is record and days.Owner() is record
    record.SV_Laufend[3] = 512.5
    record.SV_N70_Laufend[2, 3] = 1.25
    record.AIV_ERS[5] = 7.0
    with pytest.raises(IndexError, match="AIV_ERS"):
        record.AIV_ERS[6] = 1.0
    assert (record.SV_Laufend[3], record.SV_N70_Laufend(2, 3), record.AIV_ERS[5]) == (512.5, 1.25, 7.0)
    mine = ormelix.LLohn1_Werte()
    record.SetSechstel(4, mine)
    assert record.Sechstel(4) is mine and mine.Owner() is None  # the caller's own
    del record
    gc.collect()
    assert sixth.Owner() is None and transfer.Owner() is None and days.Owner() is None
    sixth.JahresSumme = 10.5
    assert sixth.JahresSumme == 10.5
