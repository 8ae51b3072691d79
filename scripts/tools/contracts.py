"""Check of the contracts in the public headers: each operation says what it returns and what it leaves in OpenGL."""

import pathlib
import re
import tempfile
import typing
import xml.etree.ElementTree as xml

from tools import tree

# Sources that implement public operations with OpenGL.
WITH_OPENGL = ("base", "view", "symbol", "transform", "display")
DEFINITION = re.compile(r"^\S[^\n;]*?\b\w+::(\w+)\([^{};]*\)[^{};]*\{\n(.*?)^\}", re.MULTILINE | re.DOTALL)
SETS_STATE = re.compile(
    r"\bgl(MatrixMode|Load\w+|Enable|Disable|Color[34]\w+|LineWidth|PointSize|LineStipple|DrawBuffer|ReadBuffer|Viewport"
    r"|RasterPos\w+|Light\w*|Material\w+|BindTexture|ShadeModel|PolygonMode|ClearColor)\("
)
ON_RESULT = re.compile(r"\breturns?\b|\banswers?\b|^(True|False)\b", re.IGNORECASE)
# A text that begins with a verb describes an act, any other the result itself: "The radius in model units."
ACT = re.compile(r"(?!Always|Pixels|Radius|OpenGL)[A-Z][a-z]+s\b")
ON_STATE = re.compile(r"\b(leaves?|restores?|puts? back|loads?|selects?|enables?|sets?|draws into)\b", re.IGNORECASE)


class Operation(typing.NamedTuple):
    name: str
    result: str
    takes_arguments: bool
    text: str
    interface_text: str


def words(element):
    return " ".join("".join(element.itertext()).split())


def described(element):
    """The text of a description; Doxygen takes the word itself out of "@return"."""
    parts = [part for kind in ("briefdescription", "detaileddescription") for part in element.findall(kind)]
    returns = any(part.find(".//simplesect[@kind='return']") is not None for part in parts)
    return " ".join([*map(words, parts), *(["Returns that."] if returns else [])]).strip()


def operations(folder):
    """The public functions that Doxygen's XML files in a folder describe; constructors and operators have no contract of their own."""
    for path in sorted(folder.glob("*.xml")):
        for compound in xml.parse(path).getroot().iter("compounddef"):
            if compound.get("kind") not in ("class", "struct", "namespace", "file"):
                continue
            for member in compound.iterfind(".//memberdef[@kind='function'][@prot='public']"):
                name, result = member.findtext("name"), words(member.find("type")).removeprefix("constexpr")
                if result and not name.startswith("operator") and member.find("reimplements") is None:
                    yield Operation(name, result, member.find("param") is not None, described(member), described(compound))


def state_setters(sources):
    """Names of functions that set OpenGL state themselves."""
    return {name for source in sources for name, body in DEFINITION.findall(source) if SETS_STATE.search(body)}


def names_result(operation):
    if operation.result.split()[-1] == "void" or ON_RESULT.search(operation.text):
        return True
    is_value = bool(operation.text) and not ACT.match(operation.text)
    if re.search(r"\b(int32_t|bool)$", operation.result) and operation.takes_arguments:
        return "Results:" in operation.interface_text or is_value and not operation.name.startswith("set")
    return is_value


def gaps(found, setters):
    for operation in found:
        if not names_result(operation):
            yield f"{operation.name} returns {operation.result} and does not say what"
        if operation.name in setters and not ON_STATE.search(operation.text) and "State:" not in operation.interface_text:
            yield f"{operation.name} sets OpenGL state and does not say what it leaves"


def read_operations(extra=""):
    """The operations of the public headers, with additional settings for Doxygen."""
    with tempfile.TemporaryDirectory() as folder:
        settings = (tree.ROOT / "docs/Doxyfile").read_text()
        output = f"\nOUTPUT_DIRECTORY = {folder}\nGENERATE_HTML = NO\nGENERATE_XML = YES\nXML_PROGRAMLISTING = NO\n"
        tree.run("doxygen", "-", input=settings + output + extra)
        return list(operations(pathlib.Path(folder) / "xml"))


def incomplete():
    found = read_operations()
    sources = [path.read_text() for path in tree.code(".cpp") if tree.name(path).split("/")[0] in WITH_OPENGL]
    return list(gaps(found, state_setters(sources))) if found else ["no public operation was found"]
