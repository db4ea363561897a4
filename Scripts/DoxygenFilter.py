#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""DoxygenFilter.py <header or page>: prints it in the form that Doxygen reads.

Doxygen runs this for every header, so that the headers keep their plain comments. A comment before a declaration
belongs to it and to those that follow it without an empty line; a comment behind a member or an enumerator
belongs to that one. A comment before an empty line is about the file, and about the class that has no comment of
its own.

In a page, a link to a file that is no page itself (an example, a header) becomes the file's name.
"""

import pathlib
import re
import sys

COMMENT = re.compile(r"^(\s*)//(.*)$")
RULE = re.compile(r"^ (-{2,4} .*|.* -{8,})$")
TRAILING = re.compile(r"^(\s*)([^/\s].*?\S)\s+// (.*)$")
CLASS = re.compile(r"^(?:class|struct) (?:(?:LM_EXPORT|HOST_PUBLIC) )?(\w+)(?: :[^:;]*| final.*)?$")
NO_DECLARATION = re.compile(r"^\s*(#include|#if|#endif|#else|public:|protected:|private:|[{}])")
OPENER = re.compile(r"^\s*(template|class|struct|enum|union|namespace|extern)\b")


def escape(text):
    """What Doxygen would take for a command, a tag, emphasis or a link stands for itself."""
    theParts = re.split(r"(`[^`]*`)", text)
    for theIndex in range(0, len(theParts), 2):
        thePart = re.sub(r"([\\@<>#%&])", r"\\\1", theParts[theIndex])
        thePart = thePart.replace('"*"', "&quot;\\*&quot;").replace("::", "\\::")
        theParts[theIndex] = thePart
    return "".join(theParts)


def examples_marked(lines):
    """The lines of a comment, with its indented examples as code or as they are, and its text escaped."""
    theLines = []
    theExample = []

    def end_example():
        while theExample and not theExample[-1].strip():
            theExample.pop()
        if theExample:
            isCode = any(re.search(r"[;{]\s*(//.*)?$", line) for line in theExample)
            theNames = ("@code{.cpp}", "@endcode") if isCode else ("@verbatim", "@endverbatim")
            theLines.extend([theNames[0], *[line[5:] for line in theExample], theNames[1], ""])
            theExample.clear()

    for theLine in lines:
        if theLine.startswith("     "):
            theExample.append(theLine)
        elif theExample and not theLine.strip():
            theExample.append("")
        else:
            end_example()
            theLines.append(escape(theLine[1:] if theLine.startswith(" ") else theLine))
    end_example()
    return theLines


def documentation(indent, lines, head=""):
    theLines = examples_marked(lines)
    return [f"{indent}/**" + (" " + head if head else "")] + [indent + line for line in theLines] + [f"{indent}*/"]


class Filter:
    def __init__(self, lines):
        self.lines = lines
        self.output = []
        self.head = None  # the first comment about the file, until a class has taken it
        self.current = None  # the comment that the next declaration has, with its indentation
        self.depth = 0  # of the braces and parentheses of a declaration that goes on
        self.goes_on = False  # whether the next line belongs to the declaration of this one

    def run(self):
        theIndex = 0
        while theIndex < len(self.lines):
            if not self.goes_on and COMMENT.match(self.lines[theIndex]):
                theIndex = self.comment(theIndex)
            else:
                theIndex = self.code(theIndex)
        return self.output

    def comment(self, index):
        theIndent = COMMENT.match(self.lines[index]).group(1)
        theLines = []
        while index < len(self.lines) and (theMatch := COMMENT.match(self.lines[index])):
            theLines.append(theMatch.group(2))
            index += 1
        theLines = [line for line in theLines if not line.startswith((" NOLINT", " clang-format"))]
        while theLines and (RULE.match(theLines[0]) or not theLines[0].strip()):
            theLines.pop(0)
        if not theLines or theLines[0].startswith(" LmBindings —"):
            return index
        if index < len(self.lines) and self.lines[index].strip():
            self.current = (theIndent, theLines)
        else:
            self.about_file(theLines, index)
        return index

    def about_file(self, lines, index):
        theClass = self.class_without_comment(index)
        if self.head is None and theClass is not None:
            self.head = lines
            lines = [f" What the class {theClass} needs, and itself."]
        self.output += documentation("", lines, "@file")

    def class_without_comment(self, index):
        for theIndex in range(index, len(self.lines)):
            theMatch = CLASS.match(self.lines[theIndex])
            if theMatch:
                return None if COMMENT.match(self.lines[theIndex - 1]) else theMatch.group(1)
        return None

    def code(self, index):
        theLine = self.lines[index]
        if not theLine.strip():
            if not self.goes_on:
                self.current = None
            self.output.append(theLine)
            return index + 1
        isFirst = not self.goes_on
        if isFirst:
            self.begin_declaration(index)
        self.follow(index)
        theTrailing = TRAILING.match(theLine)
        if theTrailing and not self.goes_on and self.depth == 0:
            return self.trailing(index, theTrailing)
        self.output.append(theLine)
        return index + 1

    def begin_declaration(self, index):
        theLine = self.lines[index]
        if NO_DECLARATION.match(theLine):
            return
        if self.current is not None:
            self.output += documentation(*self.current)
        elif self.head is not None and CLASS.match(theLine):
            self.output += documentation("", self.head)
            self.head = None

    def follow(self, index):
        """Finds out whether the declaration goes on in the next line."""
        theLine = self.lines[index]
        theText = re.sub(r"'(\\.|[^'])'|\"(\\.|[^\"])*\"", "", theLine.split("//")[0]).rstrip()
        if theLine.lstrip().startswith("#"):
            self.goes_on = theText.endswith("\\")
        elif not self.goes_on and NO_DECLARATION.match(theLine):
            pass
        elif OPENER.match(theLine) or (self.current is None and theText == "{" and not self.goes_on):
            # What is in a class, an enumeration or a namespace are declarations of their own.
            if not theText.endswith(";") and not theLine.lstrip().startswith("template"):
                self.current = None
        else:
            self.depth += len(re.findall(r"[({]", theText)) - len(re.findall(r"[)}]", theText))
            self.goes_on = self.depth > 0 or not theText.endswith((";", "}", ",")) and not self.ends_enum(index)

    def ends_enum(self, index):
        return index + 1 < len(self.lines) and self.lines[index + 1].lstrip().startswith("}")

    def trailing(self, index, match):
        theIndent, theCode, theText = match.groups()
        theColumn = self.lines[index].rindex("// " + theText)
        index += 1
        while index < len(self.lines) and re.match(rf"^\s{{{theColumn}}}// ", self.lines[index]):
            theText += " " + self.lines[index].strip()[3:]
            index += 1
        self.output.append(f"{theIndent}{theCode} ///< {escape(theText)}")
        return index


def pages_of_reference():
    """The pages, and the folders of pages, that the Doxyfile reads."""
    theRoot = pathlib.Path(__file__).resolve().parent.parent
    theText = (theRoot / "Documentation/Reference/Doxyfile").read_text(encoding="utf-8")
    return [theRoot / name for name in re.findall(r"Documentation/[\w/]+(?= |$)|[\w/]+\.md(?= |$)", theText, re.M)]


def page(path):
    """The text of a page, with links to other pages only, and pictures by their names: they lie beside the pages."""
    thePages = pages_of_reference()

    def link(match):
        theTarget = (path.parent / match.group(2).split("#")[0]).resolve()
        if theTarget.suffix in (".png", ".svg"):
            return f"[{match.group(1)}]({theTarget.name})"
        isPage = ":" in match.group(2) or any(theTarget in (place, *place.glob("*.md")) for place in thePages)
        return match.group(0) if isPage or theTarget.suffix == ".html" else match.group(1)

    theText = re.sub(r"\[([^\]]*)\]\(([^)\s]+)\)", link, path.read_text(encoding="utf-8"))
    # A number at the start of a title makes a list of it, what stands between quotes keeps its backslashes, and a
    # word between backquotes loses its percent sign.
    theText = re.sub(r"^# (\d+)\. ", r"# \1\\. ", theText)
    theText = theText.replace(r'"\*"', r"&quot;\*&quot;")

    def code(match):
        return "<code>" + escape(match.group(1)).replace('"', "&quot;") + "</code>"

    return re.sub(r"`([^`\n]*%[^`\n]*)`", code, theText)


def main():
    thePath = pathlib.Path(sys.argv[1]).resolve()
    if thePath.suffix == ".md":
        print(page(thePath), end="")
    else:
        print("\n".join(Filter(thePath.read_text(encoding="utf-8").split("\n")).run()))


if __name__ == "__main__":
    main()
