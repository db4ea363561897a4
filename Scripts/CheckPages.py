#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""CheckPages.py <folder>: fails when a link in a page of the folder leads nowhere, or when a page has no width
of its own on a small screen. Every link must lead to another page there, so that the folder can be read anywhere.
"""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.targets = []
        self.names = set()
        self.isForPhones = False
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        theAttributes = dict(attributes)
        self.names.update(theAttributes[name] for name in ("id", "name") if theAttributes.get(name))
        self.isForPhones |= tag == "meta" and theAttributes.get("name") == "viewport"
        for theName in ("href", "src"):
            if theAttributes.get(theName):
                self.targets.append(theAttributes[theName])


def complaint_about(target, page, pages, folder):
    theParts = urllib.parse.urlsplit(target)
    if theParts.scheme in ("http", "https", "javascript"):
        return None
    thePath = urllib.parse.unquote(theParts.path)
    if thePath.startswith("/") or theParts.scheme:
        return "does not stay in the folder"
    if thePath and not (folder / thePath).is_file():
        return "is not there"
    theTarget = pages.get(thePath) if thePath else page
    theName = urllib.parse.unquote(theParts.fragment)
    if theName and theTarget is not None and theName not in theTarget.names:
        return "has no such place"
    return None


def main():
    theFolder = pathlib.Path(sys.argv[1])
    thePages = {path.name: Page(path) for path in sorted(theFolder.glob("*.html"))}
    theComplaints = []
    theCount = 0
    for theName, thePage in thePages.items():
        if not thePage.isForPhones:
            theComplaints.append(f"{theName} has no viewport")
        for theTarget in thePage.targets:
            theCount += 1
            if theText := complaint_about(theTarget, thePage, thePages, theFolder):
                theComplaints.append(f"{theName}: the link to {theTarget} {theText}")
    for theComplaint in theComplaints:
        print(theComplaint)
    print(f"{len(thePages)} pages, {theCount} links, {len(theComplaints)} complaints")
    return 1 if theComplaints or not thePages else 0


if __name__ == "__main__":
    sys.exit(main())
