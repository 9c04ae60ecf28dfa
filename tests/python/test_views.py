"""The demo store read through the module agrees with ormelix show --json, view by
view: every property the C++ views show has the same name and value here."""

import pytest

import ormelix
from compare import compare, compare_items, same


def test_employer_with_side_records_and_accounts(demo):
    manager = demo.session()
    (employer,) = demo.show("employers")["employers"]
    mandant = manager.AktMandant()
    assert compare(mandant, employer, skip=("Jahresdaten",)) == []
    assert len(mandant.Beitragskonten()) == 2
    # The view lists the year data of every year; the employer holds one year's.
    for year in employer["Jahresdaten"]:
        mandant.ChangeYear(year["Jahr"])
        assert compare(mandant.Jahresdaten(), year) == []


@pytest.mark.parametrize("personalnummer, period", [
    (1001, 202503), (1002, 202503), (1003, 202503), (1004, 202503), (1005, 202503), (1005, 202412)])
def test_pay_month_master_data_and_monthly_objects(demo, personalnummer, period):
    shown = demo.show("month", "--employee", str(personalnummer), "--period", str(period))
    manager = demo.session(year=period // 100, month=period % 100)
    lohn = manager.Mitarbeiter().Item(shown["employee"]["ID"])
    month = period % 100
    # FB_Fallweise.Tage is shown as its column's text of day numbers.
    assert compare(lohn, shown["month"], month, skip=("Tage",)) == []
    tage = "".join(f"{day:02d}" for day in range(1, 32) if lohn.FB_Fallweise(month).Tage[day])
    assert tage == shown["month"]["FB_Fallweise"]["Tage"]
    # Index is the position in the list the employee was loaded into: here the
    # list, there an employee loaded alone.
    assert compare(lohn, shown["employee"], skip=("Index",)) == []
    assert compare(lohn.Uebertritt(month), shown["Uebertritt"]) == []
    assert compare(lohn.Jahresdaten(), shown["Jahresdaten"]) == []
    assert compare(lohn.Kurzarbeit(month), shown["Kurzarbeit"]) == []
    assert compare(lohn.SV_EL_Laufend(month), shown["SV_EL_Laufend"]) == []
    kind = ormelix.clsMitarbeiter_Sachbezüge()
    kind.Init(manager)
    assert kind.Load(lohn.ID(), period) is False
    assert compare(kind, shown["Sachbezüge"], skip=("Baujahr",) if not shown["Sachbezüge"]["ID"] else ()) == []


def test_wage_type_lines_in_the_grids(demo):
    shown = demo.show("month", "--employee", "1001", "--period", "202503")
    manager = demo.session()
    lohn = manager.Mitarbeiter().Item(shown["employee"]["ID"])
    assert shown["Lohnarten"], "the demo's March has wage-type lines"
    for line in shown["Lohnarten"]:
        group, number = line["Lohnarttyp"], line["SortNr"]
        for name, value in line.items():
            if name in ("Lohnarttyp", "SortNr"):
                continue
            grid = getattr(lohn, name)
            got = grid[group, number, 3] if name.startswith("ZSL_") and name != "ZSL_DBDZKST_frei" else grid[number, 3]
            assert same(value, got), (name, group, number, value, got)
    assert lohn.GetDBDZKST_frei(3) == pytest.approx(200)


def test_base_values_of_the_month(demo):
    shown = demo.show("base", "--period", "202503")
    manager = demo.session()
    basis = manager.Basis()
    folder = basis.GetStandardBOrdner()
    assert compare(folder, shown["folder"]) == []
    table = folder.Zeittabellen().GetZeittabelle(202503)
    want = shown["table"]
    assert compare(table, want, skip=("PP", "DG", "DGM")) == []
    for band in want["PP"]:
        for name in ("Von", "Bis", "klein", "gross"):
            assert same(band[name], getattr(table.PP(), name)[band["SortNr"]])
    dg = table.DG()
    for row in want["DG"]["Wert"]:
        for name, value in row.items():
            if name in ("DNGruppe", "Gruppe", "SortNr"):
                continue
            if name.startswith("DZBL("):
                wert = dg.DZBL(getattr(ormelix, name[5:-1]))
            else:
                wert = getattr(dg, name)()
            assert same(value, wert.Wert(row["DNGruppe"], row["SortNr"] or 0)), (name, row["DNGruppe"])
    dgm = table.DGM()
    assert same(want["DGM"]["GrenzbetragMinderBeschaeftigte"], dgm.GrenzbetragMinderBeschaeftigte)
    for group in ("Angestellte", "Arbeiter"):
        for name, value in want["DGM"][group].items():
            assert same(value, getattr(getattr(dgm, name)(), group))


def test_career_queries(demo):
    shown = demo.show("career", "--employee", "1002", "--year", "2024")
    manager = demo.session(year=2024)
    lohn = manager.Mitarbeiter().Item(shown["employee"]["ID"])
    assert compare_items(lohn.Laufbahn(), shown["Laufbahn"]) == []


def test_month_career_and_children(demo):
    shown = demo.show("month", "--employee", "1001", "--period", "202503")
    manager = demo.session()
    lohn = manager.Mitarbeiter().Item(shown["employee"]["ID"])
    career = shown["career"]
    assert compare(lohn.Laufbahn().Laufbahnschritt(202503, False, False), career["Laufbahnschritt"]) == []
    assert lohn.Laufbahn().IsEintritt(202503)[0] == career["IsEintritt"]
    assert lohn.Laufbahn().IsDVRuht(202503)[0] == career["IsDVRuht"]
    steps = lohn.Laufbahn().LaufbahnschritteImZeitraum(202503, 202503, False)
    assert compare_items(steps, career["LaufbahnschritteImZeitraum"]) == []
    # The questions of March; the view shows an output parameter beside its result.
    assert compare(lohn.Kinder(), shown["Kinder"], 202503, skip=("GetZB", "Eingang", "retIsAVAE")) == []
    for kind, entry in zip(lohn.Kinder(), shown["Kinder"]["Item"]):
        assert kind.Zeitbezuege().GetZB(202503).ID == entry["GetZB"]
        assert kind.Eingang() == (entry["Eingang"], entry["retIsAVAE"])


def test_l16_fields(demo):
    shown = demo.show("l16", "--employee", "1001", "--year", "2025")
    manager = demo.session()
    lohn = manager.Mitarbeiter().Item(shown["employee"]["ID"])
    names = ("GetL16Daten", "KSTAAT", "KSTWE", "KAFBZ", "KAPFB", "KAUHZ", "KBGFP", "KEGFP", "KBHFP", "KEHFP")
    for kind, entry in zip(lohn.Kinder(), shown["Kinder"]):
        fields = dict(zip(names, kind.GetL16Daten(shown["pVonZeitraum"], shown["pBisZeitraum"])))
        assert fields == {name: entry[name] for name in names}


def test_countries_with_indicators(demo):
    shown = demo.show("countries", "--period", "202003")
    manager = demo.session()
    laender = manager.Länder()
    assert laender.IndikationEndPeriod() == shown["IndikationEndPeriod"]
    assert laender.IsEndIndikator(202003) == shown["IsEndIndikator"]
    assert len(laender) == len(shown["countries"])
    for land, entry in zip(laender, shown["countries"]):
        assert compare(land, entry, skip=("GetIndikator", "Indikatoren")) == []
        assert len(land.Indikatoren()) == entry["Indikatoren"]
        indicator = laender.GetIndikator(land.KFZ, 202003)
        if entry["GetIndikator"] is None:
            assert indicator is None
        else:
            assert compare(indicator, entry["GetIndikator"]) == []
