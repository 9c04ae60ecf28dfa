"""Properties read and written: month arrays by month, plain values, grids; saved
with Update and the flags of eUpdateConstants and read back in a new session;
and a value of the wrong kind refused, naming the property, with nothing written."""

import pytest

import ormelix
from conftest import make_demo


def employee(manager, personalnummer):
    for lohn in manager.Mitarbeiter():
        if lohn.Mitarbeiter().Personalnummer == personalnummer:
            return lohn
    raise LookupError(personalnummer)


def test_every_month_array_of_the_pay_record_reads_and_writes_by_month(employees):
    _, by_number = employees
    lohn = by_number[1001]
    months = month_arrays(lohn)
    assert len(months) == 180  # every month array of the pay record
    assert lohn.Gehalt[3] == lohn.Gehalt(3) == 3350.0 and len(lohn.Gehalt) == 12
    assert list(lohn.Gehalt)[:3] == [3350.0] * 3 and lohn.Gehalt.keys() == list(range(1, 13))
    samples = {"float": 12.25, "int": -1, "bool": True, "str": "Text ä €"}
    for name, values in months.items():
        kind = type(values[5]).__name__
        values[5] = samples[kind]
        assert values[5] == samples[kind], name


def test_a_month_saved_with_its_flag_reads_back_in_a_new_session(fresh_demo):
    manager = fresh_demo.session()
    lohn = employee(manager, 1001)
    lohn.Gehalt[5] = 3412.345  # an amount is stored to two decimals
    lohn.Text1[5] = "Prämie Mai"
    lohn.op_Nacht[5] = -1
    lohn.Sechstel(5).JahresSumme = 1234.5
    lohn.Kurzarbeit(5).IsKurzarbeit = True
    lohn.ZSL_Betrag[2, 1, 5] = 99.5  # wage-type lines are written under AktMonat
    lohn.Mitarbeiter().Telefon = "+43 1 999"
    lohn.Mitarbeiter().OffeneUT[5] = 4.5
    lohn.Update(manager, ormelix.ucTableLohnzettel, 5)
    again = employee(fresh_demo.session(), 1001)
    assert again.Gehalt[5] == 3412.35 and again.Text1[5] == "Prämie Mai" and again.op_Nacht[5] == -1
    assert again.Sechstel(5).JahresSumme == 1234.5 and again.Kurzarbeit(5).IsKurzarbeit
    assert again.Mitarbeiter().OffeneUT[5] == 4.5
    assert again.Mitarbeiter().Telefon != "+43 1 999"  # not flagged, not written
    assert again.ZSL_Betrag[2, 1, 5] == 0
    manager.AktMonat = 5
    lohn.Update(manager, ormelix.ucTableMitarbeiter | ormelix.ucTableLohnarten)
    again = employee(fresh_demo.session(), 1001)
    assert again.Mitarbeiter().Telefon == "+43 1 999" and again.ZSL_Betrag[2, 1, 5] == 99.5
    shown = fresh_demo.show("month", "--employee", "1001", "--period", "202505")
    assert shown["month"]["Gehalt"] == 3412.35 and shown["month"]["Text1"] == "Prämie Mai"


def test_refresh_reads_the_flagged_tables_again(fresh_demo):
    manager = fresh_demo.session()
    lohn = employee(manager, 1002)
    stored = lohn.SV_Laufend[3]
    lohn.SV_Laufend[3] = 1.0
    lohn.Mitarbeiter().Ort = "nirgends"
    lohn.Refresh(manager, ormelix.ucTableLohnzettel)
    assert lohn.SV_Laufend[3] == stored and lohn.Mitarbeiter().Ort == "nirgends"
    lohn.Refresh(manager)  # all tables
    assert lohn.Mitarbeiter().Ort != "nirgends"


BAD = [
    # (what, how it is set, exception, words of the message)
    ("text for an amount", lambda l: l.Gehalt.__setitem__(3, "3350"), TypeError, "Gehalt: expected a number"),
    ("None for an amount", lambda l: l.SV_Laufend.__setitem__(3, None), TypeError, "SV_Laufend"),
    ("a number for a text", lambda l: l.Text1.__setitem__(3, 5), TypeError, "Text1: expected a text"),
    ("a float for a whole number", lambda l: l.UE_Laufend_Tage.__setitem__(3, 1.5), TypeError, "UE_Laufend_Tage"),
    ("True for a 16-bit flag", lambda l: l.op_Nacht.__setitem__(3, True), TypeError, "True as -1"),
    ("a text for a flag", lambda l: l.Aushilfskraft.__setitem__(3, "ja"), TypeError, "Aushilfskraft"),
    ("too large for 16 bits", lambda l: l.UE_Laufend_Tage.__setitem__(3, 40000), ValueError, "UE_Laufend_Tage"),
    ("too large for a single", lambda l: l.Gehalt.__setitem__(3, 1e39), ValueError, "Gehalt"),
    ("month 0", lambda l: l.Gehalt.__setitem__(0, 1.0), IndexError, "Gehalt(0): the month must be 1 to 12"),
    ("month 13", lambda l: l.Gehalt.__getitem__(13), IndexError, "Gehalt(13)"),
    ("month -1", lambda l: l.op_PendlerDrittel.__setitem__(-1, 1), IndexError, "op_PendlerDrittel(-1)"),
    ("a month as text", lambda l: l.Gehalt.__getitem__("3"), TypeError, "Gehalt"),
    ("a monthly child of month 13", lambda l: l.Kurzarbeit(13), IndexError, "Kurzarbeit(13)"),
    ("a monthly child of month 0", lambda l: l.Sechstel(0), IndexError, "Sechstel(0)"),
    ("a grid's group 7", lambda l: l.ZSL_Betrag.__setitem__((7, 1, 3), 1.0), IndexError, "ZSL_Betrag(7)"),
    ("a grid's month 13", lambda l: l.ZSL_Betrag.__setitem__((1, 1, 13), 1.0), IndexError, "ZSL_Betrag(1, 1, 13)"),
    ("a grid with one index", lambda l: l.ZSL_Betrag.__getitem__(3), TypeError, "ZSL_Betrag: expected 3 indices"),
    ("a text for a plain amount", lambda l: setattr(l, "Geb_Datum", "1986-04-12"), TypeError, "Geb_Datum"),
    ("a number for a plain text", lambda l: setattr(l.Mitarbeiter(), "FName", 7), TypeError, "FName"),
    ("too large for a plain 16-bit", lambda l: setattr(l.Mitarbeiter(), "Personalnummer", 1 << 20), ValueError,
     "Personalnummer"),
    ("a text for an enumeration", lambda l: setattr(l.Jahresdaten(), "DZBundesland", "Wien"), TypeError,
     "DZBundesland"),
    ("a day outside 0..31", lambda l: l.FB_Fallweise(3).Tage.__setitem__(32, True), IndexError, "Tage(32)"),
]


@pytest.fixture(scope="module")
def refusing_demo(tmp_path_factory):
    """One demo store for the refusals: each case checks that its own refusal wrote nothing."""
    return make_demo(tmp_path_factory.mktemp("refusals"))


def month_arrays(lohn):
    """The month arrays of an employee, by name (not the grids of lines, which are no sequences)."""
    arrays = {}
    for name in dir(lohn):
        value = getattr(lohn, name)
        if isinstance(value, ormelix.IndexedArray):
            try:
                len(value)
            except TypeError:
                continue
            arrays[name] = value
    return arrays


def stored_month(manager, lohn, month):
    """The employee's pay month as the store holds it: every month array, read anew."""
    fresh = ormelix.LLohn()
    fresh.LoadMitarbeiter(manager, lohn.ID(), 0)
    values = {name: array[month] for name, array in month_arrays(fresh).items()}
    return values | {"Geb_Datum": fresh.Geb_Datum, "Personalnummer": fresh.Mitarbeiter().Personalnummer}


@pytest.mark.parametrize("what, set_value, error, words", BAD, ids=[case[0] for case in BAD])
def test_a_value_of_the_wrong_kind_is_refused_and_nothing_is_written(refusing_demo, what, set_value, error, words):
    manager = refusing_demo.session()
    lohn = employee(manager, 1001)
    before = stored_month(manager, lohn, 3)
    in_memory = (lohn.Gehalt[3], lohn.SV_Laufend[3], lohn.Text1[3], lohn.UE_Laufend_Tage[3], lohn.Geb_Datum,
                 lohn.Mitarbeiter().Personalnummer, lohn.Jahresdaten().DZBundesland)
    with pytest.raises(error, match=words.replace("(", r"\(").replace(")", r"\)")):
        set_value(lohn)
    assert (lohn.Gehalt[3], lohn.SV_Laufend[3], lohn.Text1[3], lohn.UE_Laufend_Tage[3], lohn.Geb_Datum,
            lohn.Mitarbeiter().Personalnummer, lohn.Jahresdaten().DZBundesland) == in_memory
    lohn.Update(manager, ormelix.ucAllTables, 3)
    assert stored_month(manager, lohn, 3) == before


def test_a_save_refuses_what_the_store_cannot_hold():
    benefit = ormelix.LLohn_Ersatzleistung()
    benefit.SV_Laufend_DN = float("nan")  # a number, so the property takes it; the save refuses it
    assert benefit.SV_Laufend_DN != benefit.SV_Laufend_DN
    text = ormelix.LLohn_Arbeiter()
    text.FName = "Gruber \udcff"  # a byte of another encoding, as read from a store, is kept
    assert text.FName == "Gruber \udcff"
