#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ReferenceTests.sh <root of the project> <Python>: a public name without a comment, a dead link and a page that is
# not for phones are found, and comments and pages come out in the form that Doxygen reads.
set -u
kRoot=$1
kPython=$2
gFailures=0
theFolder=$(mktemp -d)
trap 'rm -rf "$theFolder"' EXIT

complain()
{
    echo "$1"
    gFailures=$((gFailures + 1))
}

# A copy of what the pages are made of, with one comment less.
mkdir -p "$theFolder/Project/Platform/"{Simulation,Carbon,CoreFoundation}
cp -r "$kRoot/Source" "$kRoot/Documentation" "$kRoot/Scripts" "$theFolder/Project"
cp -r "$kRoot/Platform/Simulation/Include" "$theFolder/Project/Platform/Simulation"
for theRoom in Carbon CoreFoundation; do
    cp "$kRoot/Platform/$theRoom/COVERAGE.md" "$theFolder/Project/Platform/$theRoom"
done
sed -i '/Whether the text has no bytes/d' "$theFolder/Project/Source/Core/LmString.h"
if theText=$("$theFolder/Project/Scripts/BuildDocumentation.sh" "$theFolder/Pages" 2>&1); then
    complain "A name without a comment passes."
elif ! grep -q 'Source/Core/LmString.h:.*IsEmpty() const.*is not documented' <<<"$theText"; then
    complain "It does not name what has no comment: $theText"
fi

# says <page> <what CheckPages.py says of it>
says()
{
    local theText
    mkdir -p "$theFolder/Links"
    printf '%s' "$1" >"$theFolder/Links/page.html"
    theText=$("$kPython" "$kRoot/Scripts/CheckPages.py" "$theFolder/Links")
    grep -qF "$2" <<<"$theText" || complain "It says of $1: $theText"
}

kPhone='<meta name="viewport" content="width=device-width"><p id="here">'
says "$kPhone<a href='page.html#here'>x</a>" '1 pages, 1 links, 0 complaints'
says "$kPhone<a href='page.html#there'>x</a>" 'the link to page.html#there has no such place'
says "$kPhone<a href='other.html'>x</a>" 'the link to other.html is not there'
says "$kPhone<img src='/tmp/x.png'>" 'the link to /tmp/x.png does not stay in the folder'
says '<p>' 'page.html has no viewport'

cat >"$theFolder/Thing.h" <<'END'
// A thing. 100 % of it:
//
//     Thing theThing;
class Thing
{
public:
    // Uses it.
    void Use();
    void UseTwice()
    {
        Use();
    }

    int mCount; // how often,
                // from 0 on
};
END
if ! diff - <("$kPython" "$kRoot/Scripts/DoxygenFilter.py" "$theFolder/Thing.h" | sed '/^ *$/d') <<'END'; then
/**
A thing. 100 \% of it:
@code{.cpp}
Thing theThing;
@endcode
*/
class Thing
{
public:
    /**
    Uses it.
    */
    void Use();
    /**
    Uses it.
    */
    void UseTwice()
    {
        Use();
    }
    int mCount; ///< how often, from 0 on
};
END
    complain "A header comes out like this."
fi

cat >"$theFolder/Page.md" <<'END'
# 10. Things

The key "\*" is in [a file](Thing.cpp), and `"%d"` in [another page](http://example.org).

![A thing](../Pictures/Thing.png)
END
if ! diff - <("$kPython" "$kRoot/Scripts/DoxygenFilter.py" "$theFolder/Page.md") <<'END'; then
# 10\. Things

The key &quot;\*&quot; is in a file, and <code>&quot;\%d&quot;</code> in [another page](http://example.org).

![A thing](Thing.png)
END
    complain "A page comes out like this."
fi
[ "$gFailures" -eq 0 ]
