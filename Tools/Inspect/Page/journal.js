// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"use strict";

// The journal as the page has it: objects, keys and wires by their numbers, entries by their places, and how things
// stand at one place. Going to another place applies what the entries between change, forwards or backwards.

// What a key shows that has no valid value.
const kNoValue = "not valid";
// What moves something, keeps it from moving, or begins it; the other entries are only seen on demand.
const kTellingKinds = new Set([
    "lost",
    "changed",
    "equal",
    "refused",
    "told",
    "notify",
    "transform",
    "action",
    "event",
    "write",
    "diagnostic"
]);
const kMovingKinds = new Set(["changed", "told", "notify"]);

class Journal {
    constructor(theData) {
        this.data = theData;
        this.texts = theData.texts;
        this.objects = theData.objects.map(([theID, theName, theClass]) => ({
            id: theID,
            name: this.texts[theName],
            kind: this.texts[theClass],
            keys: [],
            wires: [],
            moves: 0
        }));
        this.keys = theData.keys.map(([theObject, theName], theIndex) => {
            this.objects[theObject].keys.push(theIndex);
            return {
                object: theObject,
                name: this.texts[theName],
                row: this.objects[theObject].keys.length - 1,
                places: []
            };
        });
        this.wires = theData.wires.map(([theWay, theFrom, theFromKey, theTo, theToKey, theTransform, theBack]) => ({
            way: theWay,
            from: theFrom,
            fromKey: theFromKey,
            to: theTo,
            toKey: theToKey,
            transform: this.texts[theTransform],
            back: this.texts[theBack]
        }));
        this.wires.forEach((theWire, theIndex) => {
            if (theWire.way >= 0) {
                this.objects[theWire.from].wires.push(theIndex);
                if (theWire.to !== theWire.from) {
                    this.objects[theWire.to].wires.push(theIndex);
                }
            }
        });
        this.readEntries();
        this.readFindings();
        this.readMoves();
    }

    readEntries() {
        const thePlaces = new Map();
        this.entries = this.data.entries.map((theRow, thePlace) => {
            const [
                theNumber,
                theCause,
                theTime,
                theKind,
                theObject,
                theKey,
                theWire,
                theText,
                theOld,
                theNew,
                theReason,
                theMoves
            ] = theRow;
            const theParent = theCause === 0 ? -1 : (thePlaces.get(theCause) ?? -1);
            thePlaces.set(theNumber, thePlace);
            const theKindName = this.data.kinds[theKind];
            const theEntry = {
                number: theNumber,
                cause: theCause,
                parent: theParent,
                time: theTime,
                kind: theKindName,
                object: theObject,
                key: theKey,
                wire: theWire >= 0 ? theWire >> 1 : -1,
                isBack: (theWire & 1) === 1,
                text: this.texts[theText],
                old: this.texts[theOld],
                now: this.texts[theNew],
                reason: this.texts[theReason],
                moves: theMoves,
                before: [],
                finding: -1,
                isTelling: kTellingKinds.has(theKindName),
                isMoving: kMovingKinds.has(theKindName),
                root: thePlace
            };
            if (theEntry.isMoving && theKey >= 0) {
                this.keys[theKey].places.push(thePlace);
                ++this.objects[theObject].moves;
            }
            return theEntry;
        });
        this.places = thePlaces;
        // What a first cause led to, in order.
        this.rounds = new Map();
        this.entries.forEach((theEntry, thePlace) => {
            theEntry.root = theEntry.parent < 0 ? thePlace : this.entries[theEntry.parent].root;
            if (theEntry.root === thePlace) {
                this.rounds.set(thePlace, []);
            }
            this.rounds.get(theEntry.root).push(thePlace);
        });
    }

    readFindings() {
        this.findings = this.data.findings.map(
            ([theRule, theNumber, theSubject, theSentence, theCaller, theCount, thePage, theObject, theKey]) => ({
                rule: theRule,
                number: theNumber,
                subject: theSubject,
                sentence: theSentence,
                caller: theCaller,
                count: theCount,
                page: thePage,
                object: theObject,
                key: theKey,
                place: this.places.get(theNumber) ?? -1
            })
        );
        this.findings.forEach((theFinding, theIndex) => {
            if (theFinding.place >= 0) {
                this.entries[theFinding.place].finding = theIndex;
            }
        });
    }

    // Each entry learns what its moves replaced, so that they can be taken back.
    readMoves() {
        const theBeginning = this.data.beginning;
        this.state = new Int32Array(this.keys.length + this.objects.length + 2 * this.wires.length);
        for (let theMove = 0; theMove < theBeginning.length; theMove += 2) {
            this.state[theBeginning[theMove]] = theBeginning[theMove + 1];
        }
        this.place = -1;
        for (const theEntry of this.entries) {
            for (let theMove = 0; theMove < theEntry.moves.length; theMove += 2) {
                theEntry.before.push(this.state[theEntry.moves[theMove]]);
                this.state[theEntry.moves[theMove]] = theEntry.moves[theMove + 1];
            }
        }
        this.place = this.entries.length - 1;
    }

    // How things stand behind the entry at thePlace; -1 is before all.
    go(thePlace) {
        while (this.place < thePlace) {
            const theMoves = this.entries[++this.place].moves;
            for (let theMove = 0; theMove < theMoves.length; theMove += 2) {
                this.state[theMoves[theMove]] = theMoves[theMove + 1];
            }
        }
        while (this.place > thePlace) {
            const theEntry = this.entries[this.place--];
            for (let theMove = theEntry.moves.length - 2; theMove >= 0; theMove -= 2) {
                this.state[theEntry.moves[theMove]] = theEntry.before[theMove / 2];
            }
        }
    }

    valueOf(theKey) {
        return this.texts[this.state[theKey]];
    }
    isThere(theObject) {
        return this.state[this.keys.length + theObject] === 1;
    }
    isWired(theWire, isBack) {
        return this.state[this.keys.length + this.objects.length + 2 * theWire + (isBack ? 1 : 0)] === 1;
    }
    nameOfKey(theKey) {
        return this.objects[this.keys[theKey].object].name + "." + this.keys[theKey].name;
    }

    // The places of what led to the entry at thePlace, and its own; the first cause first.
    chainOf(thePlace) {
        const theChain = [];
        for (let theStep = thePlace; theStep >= 0; theStep = this.entries[theStep].parent) {
            theChain.unshift(theStep);
        }
        return theChain;
    }

    // Where a key moved last up to thePlace: the number of that in its list of places, or -1.
    lastMove(theKey, thePlace) {
        const thePlaces = this.keys[theKey].places;
        let theLow = 0;
        let theHigh = thePlaces.length;
        while (theLow < theHigh) {
            const theMiddle = (theLow + theHigh) >> 1;
            if (thePlaces[theMiddle] <= thePlace) {
                theLow = theMiddle + 1;
            } else {
                theHigh = theMiddle;
            }
        }
        return theLow - 1;
    }

    // Objects, keys and entries with all the words of theText in them, so many of each at most; first those that have
    // them as they stand.
    search(theText, theLimit) {
        const thePhrase = theText.toLowerCase().trim();
        const theWords = thePhrase.split(/\s+/);
        const collect = (theKind, theCount, textOf) => {
            const theBest = [];
            const theOthers = [];
            for (let theIndex = 0; theIndex < theCount && theBest.length < theLimit; ++theIndex) {
                const theCandidate = textOf(theIndex).toLowerCase();
                if (theCandidate.includes(thePhrase)) {
                    theBest.push({ kind: theKind, index: theIndex });
                } else if (theOthers.length < theLimit && theWords.every(theWord => theCandidate.includes(theWord))) {
                    theOthers.push({ kind: theKind, index: theIndex });
                }
            }
            return [...theBest, ...theOthers].slice(0, theLimit);
        };
        if (thePhrase === "") {
            return [];
        }
        return [
            ...collect(
                "object",
                this.objects.length,
                theIndex =>
                    `${this.objects[theIndex].name} ${this.objects[theIndex].kind} #${this.objects[theIndex].id}`
            ),
            ...collect("key", this.keys.length, theIndex => this.nameOfKey(theIndex)),
            ...collect(
                "entry",
                this.entries.length,
                theIndex => `${this.entries[theIndex].number} ${this.entries[theIndex].text}`
            )
        ];
    }
}

// Nanoseconds for a person.
function showTime(theTime) {
    if (theTime < 1e6) {
        return (theTime / 1e3).toFixed(1) + " µs";
    }
    return theTime < 1e9 ? (theTime / 1e6).toFixed(3) + " ms" : (theTime / 1e9).toFixed(6) + " s";
}

function showNumber(theNumber) {
    return theNumber.toLocaleString("en");
}

function showCount(theCount, theOne, theMany) {
    return showNumber(theCount) + " " + (theCount === 1 ? theOne : theMany);
}

// An element; what stands in it is text, never markup.
function make(theTag, theClass, theText) {
    const theElement = document.createElement(theTag);
    if (theClass) {
        theElement.className = theClass;
    }
    if (theText !== undefined) {
        theElement.textContent = theText;
    }
    return theElement;
}
