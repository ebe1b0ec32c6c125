"""What the module says of itself: docstrings, and hints that fit what there is."""

import ast
import inspect
import pathlib
import re

import commonui


def hints():
    path = pathlib.Path(commonui.__file__).with_suffix(".pyi")
    return ast.parse(path.read_text())


def names_of(body):
    for node in body:
        if isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            yield node.name
        elif isinstance(node, ast.AnnAssign):
            yield node.target.id


def arguments_of(node):
    found = node.args
    return [argument.arg for argument in found.posonlyargs + found.args + found.kwonlyargs]


def arguments_in(docstring):
    signature = docstring.split(" -> ")[0]
    return re.findall(r"(\w+): ", re.sub(r"\[[^]]*\]", "", signature))


def test_hints_name_all_there_is():
    body = hints().body
    assert {name for name in names_of(body) if not name.startswith("_") or name == "__version__"} == set(commonui.__all__)
    for node in body:
        if isinstance(node, ast.ClassDef):
            members = {name for name in vars(getattr(commonui, node.name)) if not name.startswith("_")}
            assert {name for name in names_of(node.body) if name != "__init__"} == members, node.name


def test_hints_have_the_arguments_of_functions():
    functions = [(commonui, node) for node in hints().body if isinstance(node, ast.FunctionDef)]
    for kind in (node for node in hints().body if isinstance(node, ast.ClassDef)):
        methods = (node for node in kind.body if isinstance(node, ast.FunctionDef) and not is_property(node))
        functions += [(getattr(commonui, kind.name), node) for node in methods]
    assert len(functions) > 15
    for owner, node in functions:
        docstring = inspect.getdoc(getattr(owner, node.name))
        assert arguments_in(docstring) == arguments_of(node), node.name


def is_property(node):
    return any(isinstance(mark, ast.Name) and mark.id == "property" for mark in node.decorator_list)


def test_all_is_documented():
    for name in commonui.__all__:
        found = getattr(commonui, name)
        if inspect.isroutine(found) or inspect.isclass(found):
            assert len(inspect.getdoc(found) or "") > 20, name
        for member, value in vars(found).items() if inspect.isclass(found) else ():
            assert member.startswith("_") or len(inspect.getdoc(value) or "") > 10, f"{name}.{member}"


def test_package_is_complete():
    assert pathlib.Path(commonui.__file__).with_name("py.typed").exists()
    assert re.fullmatch(r"\d+\.\d+\.\d+", commonui.__version__)
