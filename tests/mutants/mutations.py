"""What can be broken in a C++ source, and where: one small mistake each, as a hand would make it.

It knows no more of the language than how this repository formats it: an operator between two operands stands
between blanks, a template's brackets do not. What is no C++ any more is sorted out by the compiler.
"""
import re
from bisect import bisect_right
from collections import namedtuple

# Replaces the characters from begin to end by text.
Mutation = namedtuple("Mutation", "kind begin end text")

SWAPPED = {
    "comparison": {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
                   "==": ["!="], "!=": ["=="]},
    "logic": {"&&": ["||"], "||": ["&&"]},
    "arithmetic": {"+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "&": ["|"], "|": ["&"],
                   "^": ["|"], "<<": [">>"], ">>": ["<<"], "+=": ["-="], "-=": ["+="], "*=": ["/="],
                   "/=": ["*="], "|=": ["&="], "&=": ["|="], "<<=": [">>="], ">>=": ["<<="]},
}
OPERATOR = re.compile(r"(?<= )(<<=|>>=|[-+*/|&<>=!]=|&&|\|\||<<|>>|[-+*/%&|^<>])(?=[ \n])")
NAMES = {"true": "false", "false": "true", "min": "max", "max": "min", "begin": "end", "end": "begin",
         "front": "back", "back": "front", "floor": "ceil", "ceil": "floor", "Left": "Right", "Right": "Left"}
NAME = re.compile(r"\b(" + "|".join(NAMES) + r")\b")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][\dA-Fa-f']+|\d[\d']*(?:\.\d+)?(?:e[-+]?\d+)?)([uUlLfFzZ]*)(?![\w.'])")
CONDITION = re.compile(r"\b(?:if|while)(?: constexpr)? \(")
RETURN = re.compile(r"\breturn ([^;{}]+);")
# The order of two that the greater or the smaller is taken of is no matter.
TWO = re.compile(r"(?<!::max\()(?<!::min\()(?<=\w\()([\w.>-]+), ([\w.>-]+)(?=\))")
CHOICE = re.compile(r" \? ([^?:;{}]+?)\s+: ([^?:;{},]+?)(?=[;,)}\n])")
NO_STATEMENT = re.compile(r"(?:using|namespace|struct|class|enum|template|public|private|protected|case|default|if|"
                          r"for|while|switch|else|do|friend|static_assert|extern|try|catch)\b|return [^;]")
TYPE_SCOPE = re.compile(r"\b(?:namespace|class|struct|enum|union)\b(?!.*\))", re.S)
LITERAL = re.compile(r'//[^\n]*|/\*.*?\*/|R"\(.*?\)"|"(?:\\.|[^"\\\n])*"|(?<![\w])\'(?:\\.|[^\'\\\n])+\'', re.S)
DIRECTIVE = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.M)


def blanked(text):
    """The text with comments, directives and the insides of literals left blank, and the literals' places."""
    literals = []

    def blank(found):
        word = found.group()
        if word[0] == "/":
            return re.sub(r"[^\n]", " ", word)
        literals.append(found.span())
        return word[0] + re.sub(r"[^\n]", "_", word[1:-1]) + word[-1]

    text = DIRECTIVE.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)
    return LITERAL.sub(blank, text), literals


def closing(code, begin):
    """Where the bracket at the place begin closes."""
    depth = 0
    for place in range(begin, len(code)):
        if code[place] in "([{":
            depth += 1
        elif code[place] in ")]}":
            depth -= 1
            if depth == 0:
                return place
    return None


def statements(code):
    """Begin and end of each statement within a body that ends with a semicolon."""
    opened = []
    since = 0
    for place, letter in enumerate(code):
        if letter == "{":
            opened.append("types" if TYPE_SCOPE.search(code[since:place]) else "body")
        elif letter == "}" and opened:
            opened.pop()
        # A label's colon stands behind its word, that of a choice behind a blank.
        label = letter == ":" and code[place - 1] not in " :" and code[place + 1:place + 2] != ":"
        if letter not in "{};)" and not label and code[place:place + 5] != "else ":
            continue
        if letter in "{};":
            since = place + 1
        if not opened or opened[-1] != "body":
            continue
        begin = re.compile(r"(?:lse)?\s+").match(code, place + 1)
        if begin is None or NO_STATEMENT.match(code, begin.end()):
            continue
        begin = begin.end()
        if not re.match(r"[\w:*(+-]", code[begin:begin + 1]):
            continue
        end = begin
        while end < len(code) and code[end] not in ";)]}":
            end = (closing(code, end) or len(code)) + 1 if code[end] in "([{" else end + 1
        if code[end:end + 1] == ";":
            yield begin, end


def conditions(code):
    for found in CONDITION.finditer(code):
        begin = found.end()
        end = closing(code, begin - 1)
        if end is None:
            continue
        # What is declared in front of the condition stays.
        begin += code[begin:end].rfind(";") + 1
        yield begin + len(code[begin:end]) - len(code[begin:end].lstrip()), end


def numbers(found):
    digits, suffix = found.groups()
    plain = digits.replace("'", "")
    if plain.lower().startswith("0x"):
        value = int(plain, 16)
        return [f"0x{value + 1:X}{suffix}"] + ([f"0x{value - 1:X}{suffix}"] if value else [])
    if re.fullmatch(r"\d+", plain):
        return [f"{int(plain) + 1}{suffix}", f"{int(plain) - 1}{suffix}" if int(plain) else "(-1)"]
    return [f"({digits}{suffix} + 1)", f"({digits}{suffix} - 1)"]


def texts(word):
    if word.startswith("'"):
        return ["'" + chr(ord(word[1]) + 1) + "'"] if len(word) == 3 and word[1].isalnum() else []
    quote = 2 if word.startswith("R") else 1
    return [word[:-quote] + "?" + word[-quote:]] + (['""'] if len(word) > 2 * quote else [])


def mutations(text):
    """All that can be broken in the text of a source, from its begin to its end."""
    code, literals = blanked(text)
    found = []

    def add(kind, begin, end, word):
        found.append(Mutation(kind, begin, end, word))

    for hit in OPERATOR.finditer(code):
        for kind, words in SWAPPED.items():
            for word in words.get(hit.group(), []):
                add(kind, *hit.span(), word)
    for hit in re.finditer(r"\+\+|--", code):
        add("arithmetic", *hit.span(), "--" if hit.group() == "++" else "++")
    for hit in re.finditer(r"!(?=[\w(*])", code):
        add("logic", *hit.span(), "")
    for hit in NAME.finditer(code):
        add("name", *hit.span(), NAMES[hit.group()])
    for hit in NUMBER.finditer(code):
        for word in numbers(hit):
            add("constant", *hit.span(), word)
    for begin, end in conditions(code):
        add("condition", begin, end, f"!({text[begin:end]})")
    for hit in RETURN.finditer(code):
        add("return", *hit.span(1), "{}")
        add("return", *hit.span(1), f"!({text[hit.start(1):hit.end(1)]})")
    for hit in TWO.finditer(code):
        add("order", *hit.span(), f"{hit.group(2)}, {hit.group(1)}")
    for hit in CHOICE.finditer(code):
        first, second = text[hit.start(1):hit.end(1)], text[hit.start(2):hit.end(2)]
        add("order", hit.start(1), hit.end(2), f"{second} : {first}")
    for begin, end in literals:
        for word in texts(text[begin:end]):
            add("text", begin, end, word)
    for begin, end in set(statements(code)):
        add("removal", begin, end, "")
    return sorted(found)


def by_line(text):
    """The mutations of a text by the number of the line that they begin in, from 1 on."""
    begins = [0] + [hit.end() for hit in re.finditer("\n", text)]
    lines = {}
    for mutation in mutations(text):
        lines.setdefault(bisect_right(begins, mutation.begin), []).append(mutation)
    return lines


def broken(text, mutation):
    return text[:mutation.begin] + mutation.text + text[mutation.end:]
