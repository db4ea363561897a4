// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The lists beside the graph: steps, causes, keys, objects and findings. Each is told where the reader is, and says
// where the reader wants to go.

const kRowHeight = 30;
const kMostFindings = 500;

// What an entry says, in a row: a change as its key with both values, anything else as its sentence.
function fillEntry(theRow, theJournal, theEntry, theDepth) {
    const theSign = make("span", "sign " + signOf(theEntry));
    const theText = make("span", "text");
    theText.style.paddingInlineStart = Math.min(theDepth, 10) * 11 + "px";
    if (theEntry.kind === "changed" && theEntry.key >= 0) {
        theText.classList.add("move");
        theText.append(make("span", "subject", theJournal.nameOfKey(theEntry.key)), ...showMove(theEntry));
    } else {
        theText.append(theEntry.text);
    }
    theText.title = theEntry.text;
    theRow.append(make("span", "number", theEntry.number), theSign, theText);
    if (theEntry.finding >= 0) {
        const theMark = make("span", "finding", "!");
        theMark.title = "finding: " + theJournal.findings[theEntry.finding].rule;
        theRow.append(theMark);
    }
}

function signOf(theEntry) {
    if (theEntry.kind === "action") {
        return "person";
    }
    return theEntry.isMoving
        ? "moved"
        : theEntry.kind === "diagnostic" || theEntry.kind === "lost"
          ? "trouble"
          : theEntry.kind === "equal" || theEntry.kind === "refused"
            ? "kept"
            : "other";
}

// The value before, which a first value has not, and the one after.
function showMove(theEntry) {
    const theParts = [make("span", "arrow", " → "), make("span", "new", theEntry.now)];
    return theEntry.old === "" || theEntry.old === kNoValue
        ? theParts
        : [make("span", "old", theEntry.old), ...theParts];
}

// A table of a List: columns with a name, a class, what stands in them, and what they are sorted by when their head is
// pressed.
class Table {
    constructor(theElement, theColumns, theOptions) {
        this.columns = theColumns;
        this.options = theOptions;
        this.all = [];
        this.order = [];
        this.sorting = -1;
        this.isReverse = false;
        const theHead = make("div", "row head");
        theHead.setAttribute("role", "row");
        theHead.setAttribute("aria-rowindex", 1);
        this.heads = theColumns.map((theColumn, theIndex) => {
            const theCell = make("span", theColumn.class);
            theCell.setAttribute("role", "columnheader");
            if (theColumn.sort) {
                const theButton = make("button", "", theColumn.name);
                theButton.type = "button";
                theButton.addEventListener("click", () => this.sort(theIndex));
                theCell.append(theButton);
            } else {
                theCell.textContent = theColumn.name;
            }
            theHead.append(theCell);
            return theCell;
        });
        this.list = new List(theElement, {
            height: kRowHeight,
            role: "row",
            head: theHead,
            fill: (theRow, theIndex) => this.fill(theRow, this.order[theIndex]),
            choose: (theIndex, theEvent) => theOptions.choose(this.order[theIndex], theEvent)
        });
    }

    fill(theRow, theItem) {
        for (const theColumn of this.columns) {
            const theCell = make("span", theColumn.class);
            theCell.setAttribute("role", "gridcell");
            theColumn.fill(theCell, theItem);
            theRow.append(theCell);
        }
        this.options.mark?.(theRow, theItem);
    }

    setItems(theItems) {
        this.all = theItems;
        this.arrange();
    }

    sort(theColumn) {
        this.isReverse = this.sorting === theColumn && !this.isReverse;
        this.sorting = theColumn;
        this.heads.forEach((theHead, theIndex) => {
            if (theIndex === theColumn) {
                theHead.setAttribute("aria-sort", this.isReverse ? "descending" : "ascending");
            } else {
                theHead.removeAttribute("aria-sort");
            }
        });
        this.arrange();
    }

    arrange() {
        this.order = [...this.all];
        if (this.sorting >= 0) {
            const valueOf = this.columns[this.sorting].sort;
            const theSign = this.isReverse ? -1 : 1;
            const isNumber = this.order.length > 0 && typeof valueOf(this.order[0]) === "number";
            this.order.sort(
                (theLeft, theRight) =>
                    theSign *
                    (isNumber
                        ? valueOf(theLeft) - valueOf(theRight)
                        : valueOf(theLeft) < valueOf(theRight)
                          ? -1
                          : valueOf(theLeft) > valueOf(theRight)
                            ? 1
                            : 0)
            );
        }
        this.list.reset(this.order.length);
    }

    // Goes to the row of theItem, if it is there.
    reveal(theItem) {
        this.list.setActive(this.order.indexOf(theItem));
    }
    refresh() {
        this.list.refresh();
    }
}

// theReader: go(place), chooseObject(object), isSeen(entry).
class Panels {
    constructor(theJournal, theReader) {
        this.journal = theJournal;
        this.reader = theReader;
        this.round = [];
        this.roundOf = -1;
        this.steps = new List(document.getElementById("steps"), {
            height: kRowHeight,
            role: "option",
            follows: true,
            fill: (theRow, theIndex) => this.fillStep(theRow, theReader.seen[theIndex]),
            choose: theIndex => theReader.go(theReader.seen[theIndex])
        });
        this.causes = new List(document.getElementById("causes"), {
            height: kRowHeight,
            role: "treeitem",
            follows: true,
            fill: (theRow, theIndex) => this.fillCause(theRow, this.round[theIndex]),
            choose: theIndex => theReader.go(this.round[theIndex])
        });
        this.makeTables();
        this.makeFindings();
        this.makeTabs();
    }

    depthOf(thePlace) {
        let theDepth = 0;
        for (
            let theStep = this.journal.entries[thePlace].parent;
            theStep >= 0;
            theStep = this.journal.entries[theStep].parent
        ) {
            theDepth += this.reader.isSeen(this.journal.entries[theStep]) ? 1 : 0;
        }
        return theDepth;
    }

    fillStep(theRow, thePlace) {
        fillEntry(theRow, this.journal, this.journal.entries[thePlace], this.depthOf(thePlace));
        theRow.classList.toggle("begins", this.journal.entries[thePlace].parent < 0);
    }

    fillCause(theRow, thePlace) {
        const theDepth = this.depthOf(thePlace);
        fillEntry(theRow, this.journal, this.journal.entries[thePlace], theDepth);
        theRow.setAttribute("aria-level", theDepth + 1);
        theRow.classList.toggle("way", this.chain.has(thePlace));
    }

    makeTables() {
        const theJournal = this.journal;
        const write = textOf => (theCell, theItem) => {
            theCell.textContent = textOf(theItem);
            theCell.title = theCell.textContent;
        };
        this.keys = new Table(
            document.getElementById("keys"),
            [
                {
                    name: "Object",
                    class: "object",
                    fill: write(theKey => theJournal.objects[theJournal.keys[theKey].object].name),
                    sort: theKey => theJournal.objects[theJournal.keys[theKey].object].name
                },
                {
                    name: "Key",
                    class: "name",
                    fill: write(theKey => theJournal.keys[theKey].name),
                    sort: theKey => theJournal.keys[theKey].name
                },
                { name: "Value", class: "value", fill: write(theKey => theJournal.valueOf(theKey) || "–") },
                {
                    name: "Moved",
                    class: "moved",
                    fill: (theCell, theKey) => this.fillMoved(theCell, theKey),
                    sort: theKey => theJournal.keys[theKey].places.length
                }
            ],
            {
                choose: (theKey, theEvent) => this.chooseKey(theKey, theEvent),
                mark: (theRow, theKey) =>
                    theRow.classList.toggle("lit", this.place >= 0 && theJournal.entries[this.place].key === theKey)
            }
        );
        this.objects = new Table(
            document.getElementById("objects"),
            [
                {
                    name: "Name",
                    class: "object",
                    fill: write(theObject => theJournal.objects[theObject].name),
                    sort: theObject => theJournal.objects[theObject].name
                },
                {
                    name: "Class",
                    class: "name",
                    fill: write(theObject => theJournal.objects[theObject].kind),
                    sort: theObject => theJournal.objects[theObject].kind
                },
                {
                    name: "Keys",
                    class: "count",
                    fill: write(theObject => theJournal.objects[theObject].keys.length),
                    sort: theObject => theJournal.objects[theObject].keys.length
                },
                {
                    name: "Moves",
                    class: "count",
                    fill: write(theObject => theJournal.objects[theObject].moves),
                    sort: theObject => theJournal.objects[theObject].moves
                },
                {
                    name: "There",
                    class: "there",
                    fill: write(theObject => (theJournal.isThere(theObject) ? "yes" : "no"))
                }
            ],
            {
                choose: theObject => this.reader.chooseObject(theObject),
                mark: (theRow, theObject) => {
                    theRow.classList.toggle(
                        "lit",
                        this.place >= 0 && theJournal.entries[this.place].object === theObject
                    );
                    theRow.classList.toggle("chosen", this.reader.chosen === theObject);
                }
            }
        );
        this.makeClasses();
        this.showClass("");
        this.setKeys();
    }

    // When a key moved last, and how often in all.
    fillMoved(theCell, theKey) {
        const thePlaces = this.journal.keys[theKey].places;
        const theLast = this.journal.lastMove(theKey, this.place ?? -1);
        if (theLast >= 0) {
            const theLink = make("span", "link", this.journal.entries[thePlaces[theLast]].number);
            theLink.title = "go to where it moved last";
            theCell.append(theLink);
        }
        theCell.append(make("small", "", ` ${theLast + 1}/${thePlaces.length}`));
    }

    // A key's row goes to where the key moved last, or will move first; its object's name chooses the object.
    chooseKey(theKey, theEvent) {
        const thePlaces = this.journal.keys[theKey].places;
        if (theEvent.key === " " || theEvent.target.closest?.(".object")) {
            this.reader.chooseObject(this.journal.keys[theKey].object);
        } else if (thePlaces.length > 0) {
            this.reader.go(thePlaces[Math.max(0, this.journal.lastMove(theKey, this.place))]);
        }
    }

    setKeys() {
        const theChosen = this.reader.chosen;
        this.keys.setItems(
            theChosen >= 0
                ? this.journal.objects[theChosen].keys
                : this.journal.keys.map((theKey, theIndex) => theIndex)
        );
        const theNote = document.getElementById("keysNote");
        theNote.replaceChildren();
        if (theChosen >= 0) {
            const theButton = make("button", "", "show all");
            theButton.type = "button";
            theButton.addEventListener("click", () => this.reader.chooseObject(-1));
            theNote.append("Keys of ", make("b", "", this.journal.objects[theChosen].name), " ", theButton);
        } else {
            theNote.append(showCount(this.journal.keys.length, "key", "keys") + ", with their values at this step");
        }
    }

    // How many objects there are of each class, the most first; choosing one leaves only these in the table.
    makeClasses() {
        const theCounts = new Map();
        for (const theObject of this.journal.objects) {
            theCounts.set(theObject.kind, (theCounts.get(theObject.kind) ?? 0) + 1);
        }
        this.classes = document.getElementById("classes");
        const theOptions = [...theCounts].sort(
            ([theLeft, theLeftCount], [theRight, theRightCount]) =>
                theRightCount - theLeftCount || (theLeft < theRight ? -1 : 1)
        );
        this.classes.append(new Option(showCount(theOptions.length, "class", "classes"), ""));
        for (const [theClass, theCount] of theOptions) {
            this.classes.append(new Option(`${theClass} (${showNumber(theCount)})`, theClass));
        }
        this.classes.addEventListener("change", () => this.showClass(this.classes.value));
    }

    showClass(theClass) {
        this.classes.value = theClass;
        this.objects.setItems(
            [...this.journal.objects.keys()].filter(
                theIndex => theClass === "" || this.journal.objects[theIndex].kind === theClass
            )
        );
        document.getElementById("objectsNote").textContent =
            showCount(this.objects.all.length, "object", "objects") + "; choosing one shows its wires and its keys";
    }

    // Goes to the row of theObject, which may be of another class than those that are shown.
    revealObject(theObject) {
        if (!this.objects.all.includes(theObject)) {
            this.showClass("");
        }
        this.objects.reveal(theObject);
    }

    makeFindings() {
        const theList = document.getElementById("findings");
        const theFindings = this.journal.findings;
        document.getElementById("tabFindings").textContent = `Findings ${showNumber(theFindings.length)}`;
        for (const theFinding of theFindings.slice(0, kMostFindings)) {
            const theItem = make("li");
            const theHead = make("p", "head");
            theHead.append(make("b", "", theFinding.rule), " ", make("span", "subject", theFinding.subject));
            const theText = make(
                "p",
                "",
                theFinding.sentence +
                    (theFinding.caller ? "; called by " + theFinding.caller : "") +
                    (theFinding.count > 1 ? `; ${showCount(theFinding.count - 1, "time", "times")} more` : "")
            );
            const theFoot = make("p", "foot");
            if (theFinding.place >= 0) {
                const theButton = make("button", "", "Entry " + theFinding.number);
                theButton.type = "button";
                theButton.addEventListener("click", () => this.reader.go(theFinding.place));
                theFoot.append(theButton, " ");
            } else {
                theFoot.append(`Entry ${theFinding.number}, before what is on this page. `);
            }
            theFoot.append("See " + theFinding.page);
            theItem.append(theHead, theText, theFoot);
            theList.append(theItem);
        }
        if (theFindings.length === 0) {
            theList.append(make("li", "none", "Nothing was found."));
        } else if (theFindings.length > kMostFindings) {
            const theRest = showCount(theFindings.length - kMostFindings, "finding is", "findings are");
            theList.append(make("li", "none", `${theRest} not on this page; lminspect lint lists all.`));
        }
    }

    makeTabs() {
        this.tabs = [...document.querySelectorAll("#tabs [role=tab]")];
        this.tabs.forEach((theTab, theIndex) => {
            theTab.addEventListener("click", () => this.showTab(theTab.id));
            theTab.addEventListener("keydown", theEvent => {
                const theStep = {
                    ArrowLeft: -1,
                    ArrowRight: 1,
                    Home: -theIndex,
                    End: this.tabs.length - 1 - theIndex
                }[theEvent.key];
                if (theStep !== undefined) {
                    const theNext = this.tabs[(theIndex + theStep + this.tabs.length) % this.tabs.length];
                    this.showTab(theNext.id);
                    theNext.focus();
                    theEvent.preventDefault();
                    theEvent.stopPropagation();
                }
            });
        });
        this.showTab("tabCauses");
    }

    showTab(theID) {
        for (const theTab of this.tabs) {
            const isShown = theTab.id === theID;
            theTab.setAttribute("aria-selected", isShown ? "true" : "false");
            theTab.tabIndex = isShown ? 0 : -1;
            document.getElementById(theTab.getAttribute("aria-controls")).hidden = !isShown;
        }
        for (const theList of [this.causes, this.keys.list, this.objects.list]) {
            theList.setActive(theList.active);
        }
    }

    // The reader is at thePlace.
    show(thePlace) {
        this.place = thePlace;
        const theRoot = thePlace < 0 ? -1 : this.journal.entries[thePlace].root;
        this.chain = new Set(thePlace < 0 ? [] : this.journal.chainOf(thePlace));
        if (theRoot !== this.roundOf) {
            this.roundOf = theRoot;
            this.showRound();
        } else {
            this.causes.refresh();
        }
        this.causes.setActive(this.round.indexOf(thePlace));
        this.steps.setActive(this.reader.position);
        this.keys.refresh();
        this.objects.refresh();
    }

    showRound() {
        const theRoot = this.roundOf;
        this.round =
            theRoot < 0
                ? []
                : this.journal.rounds
                      .get(theRoot)
                      .filter(thePlace => thePlace === theRoot || this.reader.isSeen(this.journal.entries[thePlace]));
        const theFirst = theRoot < 0 ? null : this.journal.entries[theRoot];
        document.getElementById("causesNote").textContent = this.sayRound(theFirst);
        this.causes.element.scrollTop = 0;
        this.causes.reset(this.round.length);
    }

    sayRound(theFirst) {
        if (theFirst === null) {
            return "Nothing has happened yet.";
        }
        if (theFirst.cause !== 0) {
            return `What led to entry ${theFirst.number} is not on this page.`;
        }
        const theCount = this.round.length - 1;
        return theCount === 0
            ? "It began here, and led to nothing."
            : `It began with entry ${theFirst.number}, which led to ${showCount(theCount, "step", "steps")}.`;
    }

    // Other steps are seen than before.
    showSteps() {
        this.steps.reset(this.reader.seen.length);
        this.roundOf = -2;
    }
}
