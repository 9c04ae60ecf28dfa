"""The type stubs beside the module name what the module has, and nothing else."""

import ast
import enum
import os
import subprocess
import sys

import ormelix

STUBS = os.path.join(os.path.dirname(ormelix.__file__), "ormelix.pyi")
STUBGEN = os.environ.get("ORMELIX_STUBGEN", os.path.join(os.path.dirname(__file__), "..", "..", "python", "stubgen.py"))


def names_in(body):
    """The public names a stub body defines."""
    names = set()
    for node in body:
        if isinstance(node, (ast.ClassDef, ast.FunctionDef)):
            names.add(node.name)
        elif isinstance(node, ast.AnnAssign) and isinstance(node.target, ast.Name):
            names.add(node.target.id)
        elif isinstance(node, ast.Assign):
            names.update(target.id for target in node.targets if isinstance(target, ast.Name))
    return {name for name in names if not name.startswith("_")}


def stub_tree():
    with open(STUBS, encoding="utf-8") as stream:
        return ast.parse(stream.read(), STUBS)


def test_every_public_name_of_the_module_is_in_the_stubs_and_back():
    module = {name for name in dir(ormelix) if not name.startswith("_")}
    assert names_in(stub_tree().body) == module


def test_every_member_of_each_class_is_in_the_stubs_and_back():
    classes = {node.name: node for node in stub_tree().body if isinstance(node, ast.ClassDef)}
    checked = 0
    for name, node in classes.items():
        cls = getattr(ormelix, name, None)
        if not isinstance(cls, type) or issubclass(cls, BaseException):
            continue  # the exceptions' fields are set on each failure
        if issubclass(cls, enum.Enum):
            members = set(cls.__members__)
        else:
            members = {member for member in vars(cls) if not member.startswith("_")}
        assert names_in(node.body) == members, name
        checked += 1
    assert checked > 60


def test_the_stubs_are_those_the_module_gives_now(tmp_path):
    output = tmp_path / "ormelix.pyi"
    subprocess.run([sys.executable, STUBGEN, str(output)], check=True)
    with open(STUBS, encoding="utf-8") as built:
        assert output.read_text(encoding="utf-8") == built.read()


def test_stubs_carry_the_types_an_editor_checks_with():
    text = open(STUBS, encoding="utf-8").read()
    assert "    Gehalt: IndexedArray[float]\n" in text
    assert "    Text1: IndexedArray[str]\n" in text
    assert "    def Kurzarbeit(self, pIndex: int) -> LLohn_Kurzarbeit: ..." in text
    assert "    def __iter__(self) -> Iterator[LLohn]: ..." in text
    assert "class eLaufbahnschritte(IntEnum):" in text and "class eUpdateConstants(IntFlag):" in text
    assert "    Schritt: eLaufbahnschritte\n" in text
