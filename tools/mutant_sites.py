"""The places of a C++ source in which one token can be changed, found without a compiler.

Rests on the project's formatting: a binary operator has blanks on both sides, template brackets,
references and pointers do not.
"""
import re
from collections import Counter
from typing import NamedTuple

TOKEN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/|^[ ]*\#(?:[^\n]*\\\n)*[^\n]*)
      |(?P<string>(?:u8|[uUL])?R"(?P<mark>[^(]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:\\.|[^"\\])*")
      |(?P<char>(?:u8|[uUL])?'(?:\\.[^']*|[^'\\])')
      |(?P<number>\d(?:'?[\w.]|(?<=[eE])[+-])*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<sign><=>|<<=|>>=|\.\.\.|->|\+\+|--|&&|\|\||[-+*/%&|^<>=!]=|<<|::|.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

SWAPS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&", "^": "|",
    "<<": ">>", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=",
}
COMPARISONS = {"<", "<=", ">", ">=", "==", "!="}
ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
OPENING = {"(": ")", "[": "]", "{": "}"}
TYPE_SCOPES = {"namespace", "class", "struct", "union", "enum", "extern"}
NOT_IN_EXPRESSIONS = {
    "return", "using", "typedef", "static", "const", "constexpr", "auto", "case", "default", "goto",
    "if", "for", "while", "do", "else", "switch", "try", "catch", "template", "friend", "operator",
}
ASSERTIONS = {"assert", "static_assert"}
# A name that belongs to the program (a key, a format, SQL without blanks), not a text for people.
KEY = re.compile(r'[uUL]?8?"(?=[^"]*[A-Za-z])(?!&?[A-Z]?[a-z&]*[:.]?")(?:\\.|[^\s"\\])+"')


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


class Site(NamedTuple):
    file: str
    line: int
    line_text: str
    start: int
    end: int
    replacement: str
    change: str  # "before → after"; the second of the same in one line ends in " (2)"

    def apply(self, source):
        return source[:self.start] + self.replacement + source[self.end:]


def tokens_of(source):
    return [Token(match.lastgroup if match.lastgroup != "mark" else "string", match.group(),
                  match.start(), match.end())
            for match in TOKEN.finditer(source) if match.lastgroup != "skip"]


class Finder:
    """Collects (start, end, replacement) of one source."""

    def __init__(self, source):
        self.source = source
        self.tokens = tokens_of(source)
        self.partner = self.find_partners()
        self.found = []

    def find_partners(self):
        """The closing bracket of each opening one and the other way round, as indices."""
        partner, open_ones = {}, []
        for i, token in enumerate(self.tokens):
            if token.kind != "sign":
                continue
            if token.text in OPENING:
                open_ones.append(i)
            elif open_ones and token.text == OPENING[self.tokens[open_ones[-1]].text]:
                partner[i] = open_ones.pop()
                partner[partner[i]] = i
        return partner

    def text(self, i):
        return self.tokens[i].text if 0 <= i < len(self.tokens) else ""

    def between(self, first, last):
        """The source from one token up to and including another."""
        return self.source[self.tokens[first].start:self.tokens[last].end]

    def change(self, first, last, replacement):
        self.found.append((self.tokens[first].start, self.tokens[last].end, replacement))

    def negate(self, first, last):
        """Negates an expression, unless the change of its one operator does the same."""
        top = [self.text(i) for i in range(first, last + 1)]
        if top in (["true"], ["false"]):
            return
        if not {"&&", "||"} & set(top) and (top[0] == "!" or {"==", "!="} & set(top)):
            return
        self.change(first, last, f"!({self.between(first, last)})")

    def sites(self):
        self.walk_scopes()
        skipped = self.skipped()
        for i, token in enumerate(self.tokens):
            if i not in skipped:
                self.change_token(i, token)
        spans = [(self.tokens[first].start, self.tokens[self.partner[first]].end)
                 for first in skipped if first in self.partner]
        return sorted({site for site in self.found
                       if not any(start <= site[0] < end for start, end in spans)})

    def skipped(self):
        """Inside of assertions and attributes, which are not behaviour; ends of pure virtuals."""
        result = set()
        for i, token in enumerate(self.tokens):
            opening = None
            if token.text in ASSERTIONS:
                opening = i + 1
            elif token.text == "[" and self.text(i + 1) == "[":
                opening = i
            if opening in self.partner:
                result.update(range(opening, self.partner[opening]))
            if token.text == "0" and self.text(i - 1) == "=" and self.text(i + 1) == ";" and \
                    self.text(i - 2) in (")", "const", "noexcept", "override"):
                result.add(i)
        return result

    def change_token(self, i, token):
        before, after = self.text(i - 1), self.text(i + 1)
        if token.kind == "sign":
            if before == "operator":
                return
            if token.text in SWAPS and self.is_binary(i) and \
                    not (token.text == "+" and '"' in before + after):
                self.change(i, i, SWAPS[token.text])
            elif token.text in ("++", "--"):
                self.change(i, i, "--" if token.text == "++" else "++")
            elif token.text == "~" and before not in ("virtual", "::", ";", ":", "{", "}") or \
                    token.text == "!" or token.text == "-" and not self.is_binary(i) and \
                    self.tokens[i].end == self.tokens[i + 1].start:
                self.change(i, i, "")
            elif token.text == "?":
                first = self.start_of_condition(i)
                self.negate(first, i - 1)
        elif token.text in ("true", "false"):
            self.change(i, i, "false" if token.text == "true" else "true")
        elif token.kind == "number":
            self.change_number(i, token.text)
        elif token.kind == "char":
            letter = re.fullmatch(r"(.*')([0-8A-Ya-y])'", token.text)
            if letter:
                self.change(i, i, f"{letter[1]}{chr(ord(letter[2]) + 1)}'")
        elif token.kind == "string" and KEY.fullmatch(token.text):
            self.change(i, i, token.text[:-1] + '_"')

    def is_binary(self, i):
        token = self.tokens[i]
        return self.source[token.start - 1].isspace() and self.source[token.end].isspace()

    def change_number(self, i, text):
        number = re.fullmatch(r"(0[xX][\da-fA-F']+|\d[\d']*)(\.\d+)?([eE][-+]?\d+)?([uUlLfFzZ]*)",
                              text)
        if not number:
            return
        whole, fraction, exponent, suffix = (part or "" for part in number.groups())
        is_hex = whole[:2] in ("0x", "0X")
        value = int(whole.replace("'", ""), 16 if is_hex else 10)
        for other in (value + 1, value - 1):
            if other < 0 and (fraction or "u" in suffix.lower()):
                continue
            written = f"{other:#x}" if is_hex and other >= 0 else str(other)
            self.change(i, i, written + fraction + exponent + suffix)

    def start_of_condition(self, i):
        """The first token of the condition before a question mark."""
        first = i
        while first > 0:
            before = self.text(first - 1)
            if before in self.closing() and first - 1 in self.partner:
                first = self.partner[first - 1]
                continue
            if before in OPENING or before in ASSIGNMENTS or \
                    before in ("return", ",", ";", "?", ":", "<<", "{", "}"):
                break
            first -= 1
        return first

    @staticmethod
    def closing():
        return set(OPENING.values())

    def walk_scopes(self):
        """Removes statements, negates conditions and the results of functions that return bool."""
        scopes = []  # for each open brace: "type", "bool", "body" or "list"
        start = 0  # of the current statement
        i = 0
        while i < len(self.tokens):
            text = self.text(i)
            in_body = bool(scopes) and scopes[-1] in ("body", "bool")
            if text in ("(", "[") and not self.holds_body(i):
                if text == "(" and self.text(i - 1) in ("if", "while"):
                    self.negate_condition(i)
                    start = self.partner.get(i, i) + 1
                elif text == "(" and self.text(i - 1) in ("for", "switch"):
                    start = self.partner.get(i, i) + 1
                i = self.partner.get(i, i)
            elif text == "{":
                scopes.append(self.scope_kind(start, i))
                if scopes[-1] != "list":
                    start = i + 1
            elif text == "}" and scopes:
                if scopes.pop() != "list":
                    start = i + 1
            elif text == ";":
                if in_body:
                    self.end_statement(start, i, scopes[-1])
                start = i + 1
            elif text in ("else", "do") or text == ":" and self.text(start) in ("case", "default"):
                start = i + 1
            i += 1

    def holds_body(self, opening):
        """A bracket around a lambda with a body."""
        last = self.partner.get(opening, opening)
        return any(self.text(i) == "{" and self.is_lambda(i) for i in range(opening, last))

    def is_lambda(self, brace):
        """Whether a brace opens the body of a lambda: [..](..) specifiers {, or [..] {."""
        i = brace - 1
        while self.text(i) in ("mutable", "noexcept"):
            i -= 1
        if self.text(i) == ")":
            i = self.partner.get(i, 0) - 1
        return self.text(i) == "]"

    def scope_kind(self, start, brace):
        head = [self.text(i) for i in range(start, brace)]
        if TYPE_SCOPES & set(head) and "(" not in head:
            return "type"
        if self.is_lambda(brace):
            return "body"
        if not head or head[-1] in ("else", "do", "try") or head[0] in ("case", "default"):
            return "body"
        if "=" in head or "return" in head or self.text(brace - 1) not in (
                ")", "const", "override", "noexcept", "}"):
            return "list"
        words = [word for word in head
                 if word not in ("static", "inline", "constexpr", "virtual", "explicit")]
        return "bool" if words[:1] == ["bool"] else "body"

    def negate_condition(self, opening):
        closing = self.partner.get(opening)
        inside = [self.text(i) for i in range(opening + 1, closing)]
        if ";" not in inside and "=" not in inside:
            self.negate(opening + 1, closing - 1)

    def end_statement(self, first, semicolon, scope):
        """Looks at a statement of a function: from its first token to its semicolon."""
        words = [self.text(i) for i in range(first, semicolon)]
        if not words:
            return
        if words[0] == "return" and len(words) > 1:
            if scope == "bool":
                self.negate(first + 1, semicolon - 1)
        elif words[0] in ("break", "continue", "throw", "return") or self.is_action(first, semicolon):
            self.change(first, semicolon, "{}")

    def is_action(self, first, semicolon):
        """A call or an assignment, not a declaration."""
        i = first
        while i < semicolon:
            token = self.tokens[i]
            if token.text in NOT_IN_EXPRESSIONS or token.text in ASSERTIONS:
                return False
            if token.text in ASSIGNMENTS or token.text in ("++", "--"):
                return True
            if token.text == "(":
                i = self.partner.get(i, i)
                if self.text(i + 1) == ";":
                    return True
            elif token.text == "[":
                i = self.partner.get(i, i)
            elif token.text in (".", "->", "::") or token.text == "*" and i == first:
                pass
            elif token.kind != "word" or self.tokens[i + 1].kind == "word":
                return False
            i += 1
        return False


def shortened(text):
    return " ".join(text.split())


def sites_of(file, source):
    """All changes of a file, in order.

    >>> [site.change for site in sites_of("a.cpp", '''
    ... bool f(int a, const X& b) {
    ...   static_assert(1 < 2);
    ...   if (a < 3) b.call();  // a < 4
    ...   return b.ready();
    ... }''')]
    ... # doctest: +NORMALIZE_WHITESPACE
    ['a < 3 → !(a < 3)', '< → <=', '3 → 2', '3 → 4', 'b.call(); → {}', 'b.ready() → !(b.ready())']
    """
    sites, seen = [], Counter()
    for start, end, replacement in Finder(source).sites():
        line = source.count("\n", 0, start) + 1
        line_text = source.splitlines()[line - 1].strip()
        change = f"{shortened(source[start:end])} → {shortened(replacement) or 'nothing'}"
        seen[line, change] += 1
        if seen[line, change] > 1:
            change += f" ({seen[line, change]})"
        sites.append(Site(file, line, line_text, start, end, replacement, change))
    return sites
