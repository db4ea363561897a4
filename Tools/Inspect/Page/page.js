// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where the reader is, and how the reader gets elsewhere: timeline, keys, search, choices.

const kMostHits = 40;
const kBars = 500;

class Reader {
    constructor(theJournal) {
        this.journal = theJournal;
        this.chosen = -1;
        this.areAllSeen = false;
        this.graph = new Graph(theJournal, theObject =>
            this.chooseObject(theObject === this.chosen ? -1 : theObject)
        );
        this.find();
        this.panels = new Panels(theJournal, this);
        this.sayWhatThisIs();
        this.listen();
        this.seeAgain();
        this.begin();
    }

    find() {
        // What the reader writes into, by its name in the page.
        const theNames = [
            "name", "summary", "notices", "when", "mark", "what", "why", "ways", "slider", "strip", "all",
            "position", "graphNote", "near", "nearChoice", "search", "hits", "keysHelp", "letters"
        ];
        this.parts = Object.fromEntries(theNames.map(theName => [theName, document.getElementById(theName)]));
        this.seen = [];
        this.position = -1;
    }

    isSeen(theEntry) {
        return this.areAllSeen || theEntry.isTelling;
    }

    // What the page is of, and what it leaves out.
    sayWhatThisIs() {
        const theData = this.journal.data;
        document.title = theData.name;
        this.parts.name.textContent = theData.name.split("/").pop();
        this.parts.name.title = theData.name;
        const theLast = this.journal.entries[this.journal.entries.length - 1];
        document.documentElement.style.setProperty("--digits", String(theLast.number).length);
        this.parts.summary.textContent = [
            showCount(theData.count, "entry", "entries"),
            showCount(this.journal.objects.length, "object", "objects"),
            showTime(theLast.time),
            ...(theData.started ? ["begun " + theData.started.replace("T", " ").replace("Z", " UTC")] : [])
        ].join(" · ");
        const theNotices = [];
        if (theData.before > 0) {
            const theCount = showCount(theData.count, "entry", "entries");
            const theShown = showNumber(theData.entries.length);
            theNotices.push(
                `The journal has ${theCount}. This page holds the last ${theShown}; ` +
                    `how things stood after the ${showNumber(theData.before)} before is where it begins.`
            );
        }
        if (theData.missing > 0) {
            theNotices.push(`${showCount(theData.missing, "entry is", "entries are")} missing from the journal.`);
        }
        if (!theData.whole) {
            theNotices.push("The journal does not hold the beginning of the program.");
        }
        if (!theData.ended) {
            theNotices.push("The program did not end the journal: it was killed, or still runs.");
        }
        this.parts.notices.append(...theNotices.map(theText => make("p", "notice", theText)));
        const theProblem = theData.layout.problem;
        this.parts.near.checked = this.graph.isNear;
        this.parts.nearChoice.hidden = !this.graph.canShowAll;
        this.graphNote =
            theProblem === ""
                ? ""
                : this.graph.canShowAll
                  ? `Placed without Graphviz: ${theProblem}.`
                  : `Only what the step and the chosen object touch: ${theProblem}.`;
    }

    // Which entries are steps.
    seeAgain() {
        this.seen = [];
        this.journal.entries.forEach((theEntry, thePlace) => {
            if (this.isSeen(theEntry)) {
                this.seen.push(thePlace);
            }
        });
        if (this.seen.length === 0 && !this.areAllSeen) {
            this.areAllSeen = true;
            this.seeAgain();
            return;
        }
        this.parts.all.checked = this.areAllSeen;
        this.parts.slider.max = Math.max(0, this.seen.length - 1);
        this.drawStrip();
        this.panels.showSteps();
    }

    // A bar for each stretch of the timeline: as high as much moved in it, and a mark for persons and findings.
    drawStrip() {
        const theCount = Math.min(kBars, this.seen.length);
        const theBars = Array.from({ length: theCount }, () => ({ moved: 0, person: false, finding: false, all: 0 }));
        this.seen.forEach((thePlace, theIndex) => {
            const theBar = theBars[Math.min(theCount - 1, Math.floor((theIndex * theCount) / this.seen.length))];
            const theEntry = this.journal.entries[thePlace];
            theBar.all += 1;
            theBar.moved += theEntry.isMoving ? 1 : 0;
            theBar.person = theBar.person || theEntry.kind === "action";
            theBar.finding = theBar.finding || theEntry.finding >= 0;
        });
        const theWidth = 1000 / theCount;
        const thePaths = { moved: "", person: "", found: "" };
        theBars.forEach((theBar, theIndex) => {
            const theX = (theIndex * theWidth).toFixed(2);
            const theSpan = Math.max(0.6, theWidth * 0.8).toFixed(2);
            const theHeight = theBar.moved === 0 ? 0 : 6 + (18 * theBar.moved) / theBar.all;
            if (theHeight > 0) {
                thePaths.moved += `M${theX} 40v${-theHeight.toFixed(1)}h${theSpan}v${theHeight.toFixed(1)}z`;
            }
            if (theBar.person) {
                thePaths.person += `M${theX} 14v-6h${Math.max(2, theSpan)}v6z`;
            }
            if (theBar.finding) {
                thePaths.found += `M${theX} 6v-6h${Math.max(3, theSpan)}v6z`;
            }
        });
        this.parts.strip.replaceChildren(
            ...Object.entries(thePaths).map(([theName, thePath]) => draw("path", theName, { d: thePath }))
        );
        this.needle = draw("path", "needle", { d: "" });
        this.parts.strip.append(this.needle);
    }

    // Where somebody begins: where the address says, or at the last change.
    begin() {
        const theNumber = Number((location.hash.match(/^#entry=(\d+)$/) ?? [])[1]);
        let thePlace = this.journal.places.get(theNumber) ?? -1;
        for (let theLast = this.journal.entries.length - 1; thePlace < 0 && theLast >= 0; --theLast) {
            if (this.journal.entries[theLast].kind === "changed") {
                thePlace = theLast;
            }
        }
        this.go(thePlace < 0 ? this.seen[this.seen.length - 1] : thePlace);
        this.graph.fitReadably();
        this.graph.reveal(this.journal.entries[this.place].object);
    }

    go(thePlace) {
        const theEntry = this.journal.entries[thePlace];
        if (!this.isSeen(theEntry)) {
            this.areAllSeen = true;
            this.seeAgain();
        }
        this.place = thePlace;
        this.position = this.positionOf(thePlace);
        this.journal.go(thePlace);
        this.parts.slider.value = this.position;
        this.parts.slider.setAttribute(
            "aria-valuetext",
            `${this.position + 1} of ${this.seen.length}: ${theEntry.text}`
        );
        this.parts.position.textContent = `${showNumber(this.position + 1)} of ${showNumber(this.seen.length)}`;
        this.needle.setAttribute("d", `M${((1000 * (this.position + 0.5)) / this.seen.length).toFixed(2)} 0v40`);
        this.tell(theEntry);
        this.showGraph();
        this.graph.reveal(theEntry.object);
        this.panels.show(thePlace);
        this.remember(theEntry.number);
    }

    // The address names the entry, so that it can be sent to somebody.
    remember(theNumber) {
        clearTimeout(this.remembering);
        this.remembering = setTimeout(() => history.replaceState(null, "", "#entry=" + theNumber), 200);
    }

    // The last step that is not behind thePlace.
    positionOf(thePlace) {
        let theLow = 0;
        let theHigh = this.seen.length;
        while (theLow < theHigh) {
            const theMiddle = (theLow + theHigh) >> 1;
            if (this.seen[theMiddle] <= thePlace) {
                theLow = theMiddle + 1;
            } else {
                theHigh = theMiddle;
            }
        }
        return theLow - 1;
    }

    showGraph() {
        const isAnew = this.graph.show(this.place, this.chosen);
        this.parts.graphNote.textContent =
            this.graphNote +
            (this.graph.isNear && this.graph.missing > 0
                ? ` ${showCount(this.graph.missing, "neighbour is", "neighbours are")} left out.`
                : "");
        if (isAnew && this.graph.isNear) {
            this.graph.fitReadably();
        }
    }

    tell(theEntry) {
        this.parts.when.textContent = `Entry ${theEntry.number} · ${showTime(theEntry.time)}`;
        const theFinding = theEntry.finding >= 0 ? this.journal.findings[theEntry.finding] : null;
        this.parts.mark.textContent = theFinding ? "finding: " + theFinding.rule : "";
        this.parts.what.replaceChildren();
        if (theEntry.kind === "changed" && theEntry.key >= 0) {
            this.parts.what.append(
                make("span", "object", this.journal.objects[theEntry.object].name),
                make("span", "dot", "."),
                make("b", "", this.journal.keys[theEntry.key].name),
                " ",
                ...showMove(theEntry)
            );
        } else {
            this.parts.what.append(theEntry.text);
        }
        this.parts.why.replaceChildren(...this.reasonsOf(theEntry));
        this.parts.ways.replaceChildren(...this.waysFrom(theEntry));
    }

    // Why it lit up: who set it, and what began it all.
    reasonsOf(theEntry) {
        const theReasons = [];
        const say = (theText, theClass) => theReasons.push(make("span", theClass ?? "", theText));
        if (theEntry.reason) {
            say((theEntry.kind === "changed" ? "" : "called by ") + theEntry.reason);
        } else if (theEntry.parent >= 0) {
            say("because: " + this.journal.entries[theEntry.parent].text);
        } else if (theEntry.cause !== 0) {
            say(`what led to it, entry ${theEntry.cause}, is not on this page`);
        }
        const theRoot = this.journal.entries[theEntry.root];
        if (theRoot !== theEntry && theEntry.parent !== theEntry.root) {
            say("it began when: " + theRoot.text, "root");
        }
        return theReasons;
    }

    waysFrom(theEntry) {
        const theWays = [];
        const offer = (theText, theTitle, thePlace) => {
            const theButton = make("button", "", theText);
            theButton.type = "button";
            theButton.title = theTitle;
            theButton.disabled = thePlace === undefined || thePlace < 0;
            theButton.addEventListener("click", () => this.go(thePlace));
            theWays.push(theButton);
        };
        offer("What led here", "C", this.causeOf(theEntry));
        if (theEntry.key >= 0) {
            const [theEarlier, theLater] = this.otherMoves(theEntry);
            offer("Earlier value", "P", theEarlier);
            offer("Later value", "N", theLater);
        }
        return theWays;
    }

    // The nearest cause that is a step.
    causeOf(theEntry) {
        let thePlace = theEntry.parent;
        while (thePlace >= 0 && !this.isSeen(this.journal.entries[thePlace])) {
            thePlace = this.journal.entries[thePlace].parent;
        }
        return thePlace;
    }

    // Where the key of theEntry moved before and moves next.
    otherMoves(theEntry) {
        const thePlaces = theEntry.key < 0 ? [] : this.journal.keys[theEntry.key].places;
        const theLast = theEntry.key < 0 ? -1 : this.journal.lastMove(theEntry.key, this.place);
        return [thePlaces[thePlaces[theLast] === this.place ? theLast - 1 : theLast], thePlaces[theLast + 1]];
    }

    step(theCount) {
        const thePosition = Math.min(this.seen.length - 1, Math.max(0, this.position + theCount));
        if (this.seen[thePosition] !== this.place) {
            this.go(this.seen[thePosition]);
        }
    }

    // To the next or the last entry that nothing led to.
    stepRound(theSign) {
        let thePosition = this.position + theSign;
        while (
            thePosition > 0 &&
            thePosition < this.seen.length - 1 &&
            this.journal.entries[this.seen[thePosition]].parent >= 0
        ) {
            thePosition += theSign;
        }
        this.step(thePosition - this.position);
    }

    chooseObject(theObject) {
        this.chosen = theObject;
        this.showGraph();
        this.panels.setKeys();
        this.panels.objects.refresh();
        if (theObject >= 0) {
            this.graph.reveal(theObject);
            this.panels.revealObject(theObject);
            const isRead = ["tabKeys", "tabObjects"].some(
                theID => document.getElementById(theID).getAttribute("aria-selected") === "true"
            );
            if (!isRead) {
                this.panels.showTab("tabKeys");
            }
        }
    }

    listen() {
        const onClick = (theID, theDeed) => document.getElementById(theID).addEventListener("click", theDeed);
        onClick("first", () => this.step(-this.seen.length));
        onClick("back", () => this.step(-1));
        onClick("forward", () => this.step(1));
        onClick("last", () => this.step(this.seen.length));
        onClick("smaller", () => this.graph.zoom(this.graph.scale / 1.25));
        onClick("larger", () => this.graph.zoom(this.graph.scale * 1.25));
        onClick("fit", () => this.graph.fit());
        onClick("help", () => this.parts.keysHelp.showModal());
        this.parts.slider.addEventListener("input", () => this.go(this.seen[Number(this.parts.slider.value)]));
        this.parts.all.addEventListener("change", () => {
            this.areAllSeen = this.parts.all.checked;
            this.seeAgain();
            this.go(this.seen[Math.max(0, this.positionOf(this.place))]);
        });
        this.parts.near.addEventListener("change", () => {
            this.graph.isNear = this.parts.near.checked;
            this.graph.plan = null;
            this.showGraph();
            this.graph.fitReadably();
            this.graph.reveal(this.journal.entries[this.place].object);
        });
        document.addEventListener("keydown", theEvent => this.onKey(theEvent));
        window.addEventListener("hashchange", () => this.begin());
        this.listenToSearch();
    }

    onKey(theEvent) {
        const theTarget = theEvent.target;
        // These have uses of their own for the keys.
        const isText = theTarget.matches("input[type=search], select");
        if (theEvent.ctrlKey || theEvent.metaKey || theEvent.altKey || this.parts.keysHelp.open) {
            return;
        }
        if (theEvent.key === "Escape" && !isText) {
            this.closeHits();
            this.chooseObject(-1);
        } else if (!isText && this.onLetter(theEvent)) {
            theEvent.preventDefault();
        }
    }

    onLetter(theEvent) {
        const theEntry = this.journal.entries[this.place];
        const goIf = thePlace => {
            if (thePlace !== undefined && thePlace >= 0) {
                this.go(thePlace);
            }
        };
        const theDeeds = {
            arrowleft: () => (theEvent.shiftKey ? this.stepRound(-1) : this.step(-1)),
            arrowright: () => (theEvent.shiftKey ? this.stepRound(1) : this.step(1)),
            home: () => this.step(-this.seen.length),
            end: () => this.step(this.seen.length),
            "/": () => this.parts.search.focus(),
            "?": () => this.parts.keysHelp.showModal(),
            "+": () => this.graph.zoom(this.graph.scale * 1.25),
            "-": () => this.graph.zoom(this.graph.scale / 1.25),
            0: () => this.graph.fit(),
            c: () => goIf(this.causeOf(theEntry)),
            p: () => goIf(this.otherMoves(theEntry)[0]),
            n: () => goIf(this.otherMoves(theEntry)[1])
        };
        const isSign = theEvent.key.length === 1;
        const theDeed = isSign && !this.parts.letters.checked ? undefined : theDeeds[theEvent.key.toLowerCase()];
        theDeed?.();
        return theDeed !== undefined;
    }

    listenToSearch() {
        const theInput = this.parts.search;
        this.found = [];
        this.hit = -1;
        theInput.addEventListener("input", () => this.search());
        theInput.addEventListener("focus", () => this.search());
        theInput.addEventListener("blur", () => this.closeHits());
        theInput.addEventListener("keydown", theEvent => {
            if (theEvent.key === "ArrowDown" || theEvent.key === "ArrowUp") {
                this.setHit(
                    Math.min(this.found.length - 1, Math.max(0, this.hit + (theEvent.key === "ArrowDown" ? 1 : -1)))
                );
                theEvent.preventDefault();
            } else if (theEvent.key === "Enter" && this.found.length > 0) {
                this.takeHit(Math.max(0, this.hit));
            } else if (theEvent.key === "Escape") {
                theInput.value = "";
                this.closeHits();
                theInput.blur();
                theEvent.preventDefault();
            }
            theEvent.stopPropagation();
        });
        // A press on a hit leaves the focus where it is, so that the list is still there when it is released.
        this.parts.hits.addEventListener("mousedown", theEvent => theEvent.preventDefault());
        this.parts.hits.addEventListener("click", theEvent => {
            const theRow = theEvent.target.closest("[role=option]");
            if (theRow) {
                this.takeHit(Number(theRow.dataset.index));
            }
        });
    }

    search() {
        const theText = this.parts.search.value.trim();
        this.found = this.journal.search(theText, kMostHits);
        this.hit = -1;
        this.parts.hits.replaceChildren(...this.found.map((theHit, theIndex) => this.makeHit(theHit, theIndex)));
        if (theText !== "" && this.found.length === 0) {
            this.parts.hits.append(make("p", "none", "Nothing in the journal is called so."));
        }
        this.parts.hits.hidden = theText === "";
        this.parts.search.setAttribute("aria-expanded", theText === "" ? "false" : "true");
        this.parts.search.removeAttribute("aria-activedescendant");
    }

    makeHit(theHit, theIndex) {
        const theRow = make("div", "hit");
        theRow.id = "hit-" + theIndex;
        theRow.dataset.index = theIndex;
        theRow.setAttribute("role", "option");
        theRow.setAttribute("aria-selected", "false");
        theRow.append(make("small", "", theHit.kind));
        if (theHit.kind === "object") {
            theRow.append(
                make("b", "", this.journal.objects[theHit.index].name),
                " ",
                make("span", "", this.journal.objects[theHit.index].kind)
            );
        } else if (theHit.kind === "key") {
            theRow.append(
                make("b", "", this.journal.nameOfKey(theHit.index)),
                " ",
                make("span", "", this.journal.valueOf(theHit.index))
            );
        } else {
            theRow.append(
                make("span", "number", this.journal.entries[theHit.index].number),
                " ",
                this.journal.entries[theHit.index].text
            );
        }
        return theRow;
    }

    setHit(theIndex) {
        this.hit = theIndex;
        [...this.parts.hits.children].forEach((theRow, theRowIndex) =>
            theRow.setAttribute("aria-selected", theRowIndex === theIndex ? "true" : "false")
        );
        if (theIndex >= 0) {
            this.parts.hits.children[theIndex].scrollIntoView({ block: "nearest" });
            this.parts.search.setAttribute("aria-activedescendant", "hit-" + theIndex);
        }
    }

    takeHit(theIndex) {
        const theHit = this.found[theIndex];
        this.closeHits();
        this.parts.search.blur();
        if (theHit.kind === "object") {
            this.chooseObject(theHit.index);
        } else if (theHit.kind === "key") {
            this.chooseObject(this.journal.keys[theHit.index].object);
            this.panels.showTab("tabKeys");
            this.panels.keys.reveal(theHit.index);
        } else {
            this.go(theHit.index);
        }
    }

    closeHits() {
        this.parts.hits.hidden = true;
        this.parts.search.setAttribute("aria-expanded", "false");
        this.parts.search.removeAttribute("aria-activedescendant");
    }
}

const theReader = new Reader(new Journal(JSON.parse(document.getElementById("data").textContent)));
