// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The graph: a card for each object, with its keys, and wires between them. Graphviz has placed all of it where the
// page has its layout; otherwise, and for the objects about one step, it is placed here, in columns.

const kMostNear = 36;
const kGapAcross = 170;
const kGapDown = 28;
const kMargin = 20;
// A column is not higher than that.
const kHighest = 900;
const kSmallestRead = 0.6;
const kSpace = "http://www.w3.org/2000/svg";

function draw(theTag, theClass, theAttributes) {
    const theElement = document.createElementNS(kSpace, theTag);
    theElement.setAttribute("class", theClass);
    for (const [theName, theValue] of Object.entries(theAttributes ?? {})) {
        theElement.setAttribute(theName, theValue);
    }
    return theElement;
}

class Graph {
    constructor(theJournal, choose) {
        this.journal = theJournal;
        this.choose = choose;
        [this.width, this.head, this.row, this.mostRows] = theJournal.data.box;
        this.view = document.getElementById("graph");
        this.canvas = document.getElementById("canvas");
        this.sheet = document.getElementById("sheet");
        this.svg = document.getElementById("wires");
        this.layer = document.getElementById("cards");
        this.hasPlaces = theJournal.data.layout.problem === "";
        this.canShowAll = this.hasPlaces || theJournal.objects.length <= 300;
        this.isNear = !this.canShowAll;
        this.shown = [];
        this.cards = new Map();
        this.wires = new Map();
        this.scale = 1;
        this.layer.style.setProperty("--box-width", this.width + "px");
        this.layer.style.setProperty("--box-head", this.head + "px");
        this.layer.style.setProperty("--box-row", this.row + "px");
        this.listen();
    }

    listen() {
        this.layer.addEventListener("click", theEvent => {
            const theCard = theEvent.target.closest(".card");
            if (theCard && !this.isDragged) {
                this.choose(Number(theCard.dataset.object));
            }
        });
        this.view.addEventListener("keydown", theEvent => this.onKey(theEvent));
        this.view.addEventListener(
            "wheel",
            theEvent => {
                if (theEvent.ctrlKey) {
                    theEvent.preventDefault();
                    this.zoom(this.scale * Math.exp(-theEvent.deltaY / 300));
                }
            },
            { passive: false }
        );
        this.view.addEventListener("pointerdown", theEvent => this.drag(theEvent));
    }

    drag(theStart) {
        this.isDragged = false;
        if (theStart.button !== 0 || theStart.pointerType !== "mouse") {
            return;
        }
        const [theLeft, theTop] = [this.view.scrollLeft, this.view.scrollTop];
        const move = theEvent => {
            const [theX, theY] = [theEvent.clientX - theStart.clientX, theEvent.clientY - theStart.clientY];
            this.isDragged = this.isDragged || Math.hypot(theX, theY) > 4;
            if (this.isDragged) {
                this.view.scrollLeft = theLeft - theX;
                this.view.scrollTop = theTop - theY;
                this.view.classList.add("dragged");
            }
        };
        const end = () => {
            window.removeEventListener("pointermove", move);
            window.removeEventListener("pointerup", end);
            this.view.classList.remove("dragged");
        };
        window.addEventListener("pointermove", move);
        window.addEventListener("pointerup", end);
    }

    onKey(theEvent) {
        const theCard = theEvent.target.closest(".card");
        const theOrder = this.shown;
        if (theEvent.key === "ArrowDown" || theEvent.key === "ArrowUp") {
            const theStep = theEvent.key === "ArrowDown" ? 1 : -1;
            const theAt = theCard ? theOrder.indexOf(Number(theCard.dataset.object)) : theStep > 0 ? -1 : 0;
            const theNext = this.cards.get(theOrder[(theAt + theStep + theOrder.length) % theOrder.length]);
            theNext?.element.focus();
        } else if ((theEvent.key === "Enter" || theEvent.key === " ") && theCard) {
            this.choose(Number(theCard.dataset.object));
        } else {
            return;
        }
        theEvent.preventDefault();
        theEvent.stopPropagation();
    }

    heightOf(theObject) {
        return this.head + this.row * Math.min(this.journal.objects[theObject].keys.length, this.mostRows + 1);
    }

    // The middle of the row of a key, or of the head.
    heightOfEnd(theKey) {
        return theKey < 0
            ? this.head / 2
            : this.head + this.row * (Math.min(this.journal.keys[theKey].row, this.mostRows) + 0.5);
    }

    // What the step touches: the objects of theChain, theChosen one, and those that they are wired to.
    near(theChain, theChosen) {
        const theNear = new Set();
        for (const thePlace of theChain) {
            const theEntry = this.journal.entries[thePlace];
            if (theEntry.wire >= 0) {
                const theWire = this.journal.wires[theEntry.wire];
                theNear.add(theEntry.isBack ? theWire.to : theWire.from);
            }
            if (theEntry.object >= 0) {
                theNear.add(theEntry.object);
            }
        }
        if (theChosen >= 0) {
            theNear.add(theChosen);
        }
        let theMissing = 0;
        for (const theObject of [...theNear]) {
            for (const theIndex of this.journal.objects[theObject].wires) {
                const theWire = this.journal.wires[theIndex];
                const theOther = theWire.from === theObject ? theWire.to : theWire.from;
                if (
                    !theNear.has(theOther) &&
                    (this.journal.isWired(theIndex, false) || this.journal.isWired(theIndex, true))
                ) {
                    if (theNear.size < kMostNear) {
                        theNear.add(theOther);
                    } else {
                        ++theMissing;
                    }
                }
            }
        }
        this.missing = theMissing;
        return [...theNear].slice(0, kMostNear);
    }

    // Columns: what follows stands to the right of what it follows.
    placeInColumns(theObjects) {
        const theSet = new Set(theObjects);
        const theColumns = new Map();
        const theBoxes = new Map();
        let theTop = kMargin;
        let theWidth = 0;
        for (const theFirst of theObjects) {
            if (theColumns.has(theFirst)) {
                continue;
            }
            // One after the other of those that hang together.
            const theGroup = [theFirst];
            theColumns.set(theFirst, 0);
            for (let theIndex = 0; theIndex < theGroup.length; ++theIndex) {
                const theObject = theGroup[theIndex];
                for (const theNumber of this.journal.objects[theObject].wires) {
                    const theWire = this.journal.wires[theNumber];
                    const isForward = theWire.from === theObject;
                    const theOther = isForward ? theWire.to : theWire.from;
                    if (theSet.has(theOther) && !theColumns.has(theOther)) {
                        theColumns.set(theOther, theColumns.get(theObject) + (isForward ? 1 : -1));
                        theGroup.push(theOther);
                    }
                }
            }
            let theX = kMargin;
            let theBottom = theTop;
            for (const theColumn of this.splitIntoColumns(theGroup, theColumns)) {
                let theY = theTop;
                for (const theObject of theColumn) {
                    theBoxes.set(theObject, { x: theX, y: theY });
                    theY += this.heightOf(theObject) + kGapDown;
                }
                theBottom = Math.max(theBottom, theY);
                theX += this.width + kGapAcross;
            }
            theWidth = Math.max(theWidth, theX - kGapAcross + kMargin);
            theTop = theBottom;
        }
        return { width: theWidth, height: theTop + kMargin, boxes: theBoxes, lines: new Map() };
    }

    // theGroup column by column, from the left; a column that would be too high becomes several.
    splitIntoColumns(theGroup, theColumns) {
        const theNumbers = [...new Set(theGroup.map(theObject => theColumns.get(theObject)))].sort(
            (theLeft, theRight) => theLeft - theRight
        );
        return theNumbers.flatMap(theNumber => {
            const theParts = [[]];
            let theHeight = 0;
            for (const theObject of theGroup.filter(theMember => theColumns.get(theMember) === theNumber)) {
                theHeight += this.heightOf(theObject) + kGapDown;
                if (theHeight > kHighest && theParts[theParts.length - 1].length > 0) {
                    theParts.push([]);
                    theHeight = this.heightOf(theObject) + kGapDown;
                }
                theParts[theParts.length - 1].push(theObject);
            }
            return theParts;
        });
    }

    // Where Graphviz has put them.
    placeByLayout() {
        const theLayout = this.journal.data.layout;
        const theBoxes = new Map();
        this.journal.objects.forEach((theObject, theIndex) =>
            theBoxes.set(theIndex, {
                x: theLayout.boxes[2 * theIndex] + kMargin,
                y: theLayout.boxes[2 * theIndex + 1] + kMargin
            })
        );
        const theLines = new Map();
        let theLine = 0;
        this.journal.wires.forEach((theWire, theIndex) => {
            if (theWire.way >= 0) {
                theLines.set(
                    theIndex,
                    theLayout.lines[theLine++].map(theNumber => theNumber + kMargin)
                );
            }
        });
        return {
            width: theLayout.size[0] + 2 * kMargin,
            height: theLayout.size[1] + 2 * kMargin,
            boxes: theBoxes,
            lines: theLines
        };
    }

    lineBetween(theWire, theBoxes) {
        const theFrom = theBoxes.get(theWire.from);
        const theTo = theBoxes.get(theWire.to);
        const theY1 = theFrom.y + this.heightOfEnd(theWire.fromKey);
        const theY2 = theTo.y + this.heightOfEnd(theWire.toKey);
        const isSame = Math.abs(theFrom.x - theTo.x) < this.width;
        const isLeft = !isSame && theTo.x < theFrom.x;
        const theX1 = theFrom.x + (isLeft ? 0 : this.width);
        const theX2 = theTo.x + (isSame || isLeft ? this.width : 0);
        const theBend = isSame ? 46 : Math.max(40, Math.abs(theX2 - theX1) / 2);
        return [
            theX1,
            theY1,
            theX1 + (isLeft ? -theBend : theBend),
            theY1,
            theX2 + (isSame || isLeft ? theBend : -theBend),
            theY2,
            theX2,
            theY2
        ];
    }

    // Cards and wires for theObjects.
    build(theObjects) {
        const thePlan = this.isNear || !this.hasPlaces ? this.placeInColumns(theObjects) : this.placeByLayout();
        this.plan = thePlan;
        this.cards.clear();
        this.wires.clear();
        this.shown = [...theObjects].sort(
            (theLeft, theRight) =>
                thePlan.boxes.get(theLeft).x - thePlan.boxes.get(theRight).x ||
                thePlan.boxes.get(theLeft).y - thePlan.boxes.get(theRight).y
        );
        this.layer.replaceChildren(
            ...this.shown.map(theObject => this.makeCard(theObject, thePlan.boxes.get(theObject)))
        );
        const theWires = new Set(theObjects.flatMap(theObject => this.journal.objects[theObject].wires));
        this.svg.replaceChildren();
        for (const theIndex of theWires) {
            const theWire = this.journal.wires[theIndex];
            if (thePlan.boxes.has(theWire.from) && thePlan.boxes.has(theWire.to)) {
                this.svg.append(
                    this.makeWire(theIndex, thePlan.lines.get(theIndex) ?? this.lineBetween(theWire, thePlan.boxes))
                );
            }
        }
        this.svg.setAttribute("width", thePlan.width);
        this.svg.setAttribute("height", thePlan.height);
        this.zoom(this.scale);
    }

    makeCard(theObject, theBox) {
        const theFacts = this.journal.objects[theObject];
        const theCard = make("div", "card");
        theCard.dataset.object = theObject;
        theCard.id = "card-" + theObject;
        theCard.tabIndex = -1;
        theCard.setAttribute("role", "button");
        theCard.style.transform = `translate(${theBox.x}px, ${theBox.y}px)`;
        const theHead = make("div", "head");
        const theName = make("b", "", theFacts.name);
        theName.title = theFacts.name;
        theHead.append(theName, make("span", "", theFacts.kind));
        theCard.append(theHead);
        const theRows = new Map();
        for (const theKey of theFacts.keys.slice(0, this.mostRows)) {
            const theRow = make("div", "key");
            const theValue = make("span", "value");
            theRow.append(make("span", "name", this.journal.keys[theKey].name), theValue);
            theRows.set(theKey, { row: theRow, value: theValue });
            theCard.append(theRow);
        }
        if (theFacts.keys.length > this.mostRows) {
            theCard.append(
                make("div", "key more", showCount(theFacts.keys.length - this.mostRows, "more key", "more keys"))
            );
        }
        this.cards.set(theObject, { element: theCard, rows: theRows });
        return theCard;
    }

    makeWire(theIndex, thePoints) {
        const theWire = this.journal.wires[theIndex];
        const theGroup = draw("g", "wire " + ["binding", "dependency", "observation"][theWire.way]);
        let thePath = `M${thePoints[0]} ${thePoints[1]}`;
        for (let thePoint = 2; thePoint < thePoints.length; thePoint += 6) {
            thePath += `C${thePoints.slice(thePoint, thePoint + 6).join(" ")}`;
        }
        const theCount = thePoints.length;
        const theHead = Graph.arrow(thePoints.slice(theCount - 4, theCount - 2), thePoints.slice(theCount - 2));
        const theBackHead = Graph.arrow(thePoints.slice(2, 4), thePoints.slice(0, 2));
        theGroup.append(draw("path", "line", { d: thePath }), theHead, theBackHead);
        const theText = theWire.transform || theWire.back;
        if (theText) {
            const theLabel = draw("text", "label", Graph.middle(thePoints));
            theLabel.textContent = theText.length > 24 ? theText.slice(0, 23) + "…" : theText;
            theGroup.append(theLabel);
        }
        this.wires.set(theIndex, { group: theGroup, head: theHead, backHead: theBackHead });
        return theGroup;
    }

    static arrow([theX1, theY1], [theX2, theY2]) {
        const theLength = Math.hypot(theX2 - theX1, theY2 - theY1) || 1;
        const [theX, theY] = [(theX2 - theX1) / theLength, (theY2 - theY1) / theLength];
        const thePoints = [
            [theX2, theY2],
            [theX2 - 9 * theX - 4.5 * theY, theY2 - 9 * theY + 4.5 * theX],
            [theX2 - 9 * theX + 4.5 * theY, theY2 - 9 * theY - 4.5 * theX]
        ];
        return draw("path", "arrow", {
            d:
                "M" +
                thePoints.map(thePoint => thePoint.map(theNumber => theNumber.toFixed(1)).join(" ")).join("L") +
                "Z"
        });
    }

    static middle(thePoints) {
        const theCurve = Math.floor((thePoints.length - 2) / 12) * 6;
        const at = theAxis =>
            (thePoints[theCurve + theAxis] +
                3 * thePoints[theCurve + 2 + theAxis] +
                3 * thePoints[theCurve + 4 + theAxis] +
                thePoints[theCurve + 6 + theAxis]) /
            8;
        return { x: at(0).toFixed(1), y: (at(1) - 5).toFixed(1) };
    }

    // How things stand now, with what happened at thePlace lit up.
    show(thePlace, theChosen) {
        const theChain = thePlace < 0 ? [] : this.journal.chainOf(thePlace);
        const theObjects = this.isNear
            ? this.near(theChain, theChosen)
            : this.journal.objects.map((theObject, theIndex) => theIndex);
        const isAnew =
            theObjects.length !== this.shown.length || theObjects.some(theObject => !this.cards.has(theObject));
        if (isAnew || !this.plan) {
            this.build(theObjects);
        }
        this.light(theChain, theChosen);
        return isAnew;
    }

    light(theChain, theChosen) {
        const theLast = theChain.length > 0 ? this.journal.entries[theChain[theChain.length - 1]] : null;
        const theWay = theChain.slice(0, -1).map(thePlace => this.journal.entries[thePlace]);
        const theObjects = new Set(theWay.map(theEntry => theEntry.object));
        const theKeys = new Set(theWay.map(theEntry => theEntry.key));
        const theWires = new Map(
            theWay.filter(theEntry => theEntry.wire >= 0).map(theEntry => [theEntry.wire, theEntry.isBack])
        );
        // What a binding handed on lit its wire; so does what became of it there.
        const theHop =
            theLast && theLast.wire < 0 && theLast.parent >= 0 ? this.journal.entries[theLast.parent] : theLast;
        const theLitWire = theHop && theHop.wire >= 0 ? theHop.wire : -1;
        for (const [theObject, theCard] of this.cards) {
            this.fillCard(theObject, theCard, theLast);
            theCard.element.classList.toggle("lit", theLast !== null && theLast.object === theObject);
            theCard.element.classList.toggle("way", theObjects.has(theObject));
            theCard.element.classList.toggle("chosen", theObject === theChosen);
            theCard.element.setAttribute("aria-pressed", theObject === theChosen ? "true" : "false");
            for (const [theKey, theRow] of theCard.rows) {
                theRow.row.classList.toggle("lit", theLast !== null && theLast.key === theKey);
                theRow.row.classList.toggle("way", theKeys.has(theKey));
            }
        }
        for (const [theIndex, theDrawn] of this.wires) {
            const theWire = this.journal.wires[theIndex];
            const areThere = this.journal.isThere(theWire.from) && this.journal.isThere(theWire.to);
            const isOn = areThere && this.journal.isWired(theIndex, false);
            const isBackOn = areThere && this.journal.isWired(theIndex, true);
            const isLit = theIndex === theLitWire;
            const theClasses = theDrawn.group.classList;
            theClasses.toggle("off", !isOn && !isBackOn);
            theClasses.toggle("lit", isLit);
            theClasses.toggle("back", isLit && theHop.isBack);
            theClasses.toggle("way", theWires.has(theIndex) && !isLit);
            theDrawn.head.classList.toggle("off", isLit ? theHop.isBack : !isOn);
            theDrawn.backHead.classList.toggle("off", isLit ? !theHop.isBack : !isBackOn);
            theClasses.toggle("chosen", theChosen >= 0 && (theWire.from === theChosen || theWire.to === theChosen));
            if (isLit) {
                this.svg.append(theDrawn.group);
            }
        }
    }

    fillCard(theObject, theCard, theLast) {
        const isThere = this.journal.isThere(theObject);
        theCard.element.classList.toggle("absent", !isThere);
        const theValues = [];
        for (const [theKey, theRow] of theCard.rows) {
            const theValue = this.journal.valueOf(theKey);
            const isMove = theLast !== null && theLast.key === theKey && theLast.kind === "changed";
            const theState = (isMove ? theLast.old + "\n" : "") + theValue;
            if (theRow.state !== theState) {
                theRow.state = theState;
                theRow.value.replaceChildren();
                if (isMove && theLast.old !== kNoValue) {
                    theRow.value.append(make("s", "", theLast.old), make("i", "", "→"));
                }
                theRow.value.append(make("span", "now", theValue === "" ? "–" : theValue));
                theRow.row.title = this.journal.keys[theKey].name + (theValue === "" ? "" : " = " + theValue);
            }
            if (theValue !== "") {
                theValues.push(this.journal.keys[theKey].name + " " + theValue);
            }
        }
        const theFacts = this.journal.objects[theObject];
        theCard.element.setAttribute(
            "aria-label",
            `${theFacts.name}, ${theFacts.kind}${isThere ? "" : ", not there at this step"}: ${theValues.join(", ")}`
        );
    }

    zoom(theScale) {
        this.scale = Math.min(2, Math.max(0.15, theScale));
        this.sheet.style.transform = `scale(${this.scale})`;
        this.canvas.style.width = this.plan.width * this.scale + "px";
        this.canvas.style.height = this.plan.height * this.scale + "px";
    }

    // All of it, but not so small that nothing can be read.
    fitReadably() {
        this.fit();
        if (this.scale < kSmallestRead) {
            this.zoom(kSmallestRead);
        }
    }

    fit() {
        this.zoom(
            Math.min(
                1,
                (this.view.clientWidth - 2) / this.plan.width,
                (this.view.clientHeight - 2) / this.plan.height
            )
        );
    }

    // Brings what is lit, or theObject, into view.
    reveal(theObject) {
        const theBox = this.plan?.boxes.get(theObject);
        if (!theBox) {
            return;
        }
        const theView = this.view;
        const [theX, theY] = [theBox.x * this.scale, theBox.y * this.scale];
        const [theWidth, theHeight] = [this.width * this.scale, this.heightOf(theObject) * this.scale];
        if (theX < theView.scrollLeft || theX + theWidth > theView.scrollLeft + theView.clientWidth) {
            theView.scrollLeft = theX + theWidth / 2 - theView.clientWidth / 2;
        }
        if (theY < theView.scrollTop || theY + theHeight > theView.scrollTop + theView.clientHeight) {
            theView.scrollTop = theY + theHeight / 2 - theView.clientHeight / 2;
        }
    }
}
