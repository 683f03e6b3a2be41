# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows Doxygen a header of ours with what goes without saying said: a setter sets what its getter
gives, a property has both, and what a class takes over from Qt is Qt's to describe. Lines keep their
numbers.

Usage: filter.py HEADER
"""

import re
import sys

# Qt describes these; nobody calls the others.
HIDDEN = re.compile(r"^\s*(?:virtual )?[\w:<>*& ]*\b(?:\w+Event|event|eventFilter|hitButton|nextCheckState"
                    r"|interface_cast|currentValue|m\w+Value|minimumStepSize|actionNames|doAction|reserved\d+)\(.*(?:override;|\{\})$"
                    r"|= delete;$|^\s*(?:virtual )?~\w+\(.*$|^\s*friend |^\s*static_assert"
                    r"|^(?:namespace \w+ \{\s*)?class \w+;|^\s*using \w+::\w+;$")
PROPERTY = re.compile(r"Q_PROPERTY\([\w:]+ (\w+) READ (\w+) WRITE\s*(\w+)?")
SETTER = re.compile(r"^\s+void set([A-Z]\w*)\(")
GETTER = re.compile(r"^\s+[\w:<>]+ (\w+)\(\) const")
MAKER = re.compile(r"^\s+explicit (\w+)\((?:QWidget|QObject)\* parent = nullptr\);")


def inserted(line, words):
    indent = line[:len(line) - len(line.lstrip())]
    return f"{indent}/** {words} */ {line.lstrip()}"


def words_for(line, text, properties):
    """What a line without a comment means; nothing where that has to be said in the header."""
    if match := PROPERTY.search(line):
        return f"The property of {match[2]}() and its setter."
    if match := SETTER.match(line):
        name = match[1][0].lower() + match[1][1:]
        return f"Sets {name}()." if re.search(rf"\b{name}\(\) const", text) else None
    if (match := GETTER.match(line)) and match[1] in properties:
        return f"The value of the property {properties[match[1]]}."
    if MAKER.match(line):
        return "A child of \\a parent."
    return None


def main(header):
    text = open(header).read()
    properties = {match[2]: match[1] for match in PROPERTY.finditer(text)}
    said = False
    for number, line in enumerate(text.splitlines()):
        if number == 0:  # the licence; Doxygen leaves out the functions of files without a comment
            line = "/** \\file */"
        if not said and HIDDEN.search(line):
            print()
            continue
        if not said and (words := words_for(line, text, properties)):
            line = inserted(line, words)
        print(line)
        # A comment may be of several lines, and a property of several lines has one comment.
        said = line.lstrip().startswith("///")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
