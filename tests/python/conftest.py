"""Fixtures of the Python tests: new stores and demo stores on the backend of the run.

ctest runs these tests twice: on SQLite (files in a temporary folder), and as
pg.python with ORMELIX_TEST_BACKEND=postgres on the server ORMELIX_TEST_PG names,
where each store is a schema of the database ormelix_python_tests, dropped again
at the end of the run. Without a server the PostgreSQL run skips.
"""

import itertools
import json
import os
import subprocess

import pytest

import ormelix

ON_POSTGRES = os.environ.get("ORMELIX_TEST_BACKEND") == "postgres"
SERVER = os.environ.get("ORMELIX_TEST_PG", "")
TOOL = os.environ.get("ORMELIX_TOOL", "ormelix")
EXAMPLES = os.environ.get("ORMELIX_EXAMPLES", "")
DATABASE = "ormelix_python_tests"

_counter = itertools.count()
_schemas = []


def pytest_collection_modifyitems(config, items):
    if ON_POSTGRES and not SERVER:
        skip = pytest.mark.skip(reason="ORMELIX_TEST_BACKEND=postgres, but ORMELIX_TEST_PG names no server")
        for item in items:
            item.add_marker(skip)


def _drop_schemas():
    """Drops the schemas this run made, with psql (PostgreSQL's client, which ./dev installs)."""
    for location in _schemas:
        schema = ormelix.LocationParameter(location, "schema")
        conninfo = ormelix.LibpqConnectionString(ormelix.WithLocationParameter(location, "schema", ""))
        try:
            subprocess.run(["psql", "-X", "-q", conninfo, "-c",
                            f'DROP SCHEMA IF EXISTS "{schema}", "{schema}_reference" CASCADE'],
                           check=False, capture_output=True)
        except OSError:
            return  # no psql: a scratch server goes with its schemas


def pytest_sessionfinish(session, exitstatus):
    _drop_schemas()


def store_location(folder, kind="payroll"):
    """The location of a store not made yet: a file in the folder, or a schema on the server."""
    number = next(_counter)
    if not ON_POSTGRES:
        return str(folder / f"{kind}{number}.db")
    location = ormelix.WithLocationParameter(SERVER, "dbname", DATABASE)
    location = ormelix.WithLocationParameter(location, "schema", f"{kind}_{os.getpid()}_{number}")
    _schemas.append(location)
    return location


@pytest.fixture
def new_location(tmp_path):
    """Gives locations of stores not made yet."""
    return lambda kind="payroll": store_location(tmp_path, kind)


def run_tool(*args, check=True):
    """Runs the ormelix program; its standard output."""
    done = subprocess.run([TOOL, *args], capture_output=True, text=True)
    if check and done.returncode != 0:
        raise AssertionError(f"ormelix {' '.join(args)} failed: {done.stderr}")
    return done


class Demo:
    """A demo store made by ormelix demo: where it lies, and its two stores."""

    def __init__(self, where):
        self.where = where  # what --store takes: the folder, or the payroll store's connection string
        if ON_POSTGRES:
            schema = ormelix.LocationParameter(where, "schema")
            self.payroll = where
            self.reference = ormelix.WithLocationParameter(where, "schema", schema + "_reference")
        else:
            self.payroll = os.path.join(where, "payroll.db")
            self.reference = os.path.join(where, "reference.db")

    def show(self, *args):
        """ormelix show --json on this store, parsed."""
        return json.loads(run_tool("show", "--store", self.where, "--json", *args).stdout)

    def session(self, year=2025, month=3):
        """A session on the store, its employer selected, base values and employees loaded."""
        manager = ormelix.clsManager()
        manager.OpenAktDB(ormelix.StoreConnection.Open(self.payroll))
        manager.SetImportDB(ormelix.StoreConnection.Open(self.reference))
        manager.AktJahr, manager.AktMonat = year, month
        rs = manager.AktDB().Session().OpenRecordset("SELECT [ID] FROM [Mandanten] ORDER BY [Nr]")
        manager.ChangeAktMandant(rs.Fields("ID").Value())
        manager.Basis().Load()
        manager.Länder().Load()
        manager.Mitarbeiter().Load(year)
        return manager


def make_demo(folder):
    where = store_location(folder, "demo") if ON_POSTGRES else str(folder / f"demo{next(_counter)}")
    run_tool("demo", where)
    return Demo(where)


@pytest.fixture(scope="session")
def demo(tmp_path_factory):
    """One demo store for the tests that only read."""
    return make_demo(tmp_path_factory.mktemp("demo"))


@pytest.fixture
def fresh_demo(tmp_path):
    """A demo store of this test's own, to write to."""
    return make_demo(tmp_path)


@pytest.fixture
def employees(demo):
    """The demo's employees of 2025 by Personalnummer, in a session on it."""
    manager = demo.session()
    return manager, {lohn.Mitarbeiter().Personalnummer: lohn for lohn in manager.Mitarbeiter()}
