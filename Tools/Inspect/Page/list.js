// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A list of any length of which only the rows that can be seen are elements. All rows are equally high. The list has
// the focus, and names the row that the keys are at (aria-activedescendant).
class List {
    // theOptions: height of a row; role of a row; fill(element, index); choose(index); follows: whether going to a row
    // chooses it; head: an element above the rows.
    constructor(theElement, theOptions) {
        this.element = theElement;
        this.options = theOptions;
        this.count = 0;
        this.active = -1;
        this.rows = new Map();
        this.space = make("div", "space");
        if (theOptions.head) {
            theElement.append(theOptions.head);
        }
        if (theOptions.role === "row") {
            theElement.setAttribute("role", "grid");
            this.space.setAttribute("role", "rowgroup");
        } else {
            this.space.setAttribute("role", "none");
        }
        theElement.append(this.space);
        theElement.addEventListener("scroll", () => this.draw());
        theElement.addEventListener("keydown", theEvent => this.onKey(theEvent));
        this.space.addEventListener("click", theEvent => {
            const theRow = theEvent.target.closest(".row");
            if (theRow) {
                this.setActive(Number(theRow.dataset.index));
                this.options.choose(this.active, theEvent);
            }
        });
        new ResizeObserver(() => this.draw()).observe(theElement);
    }

    // theCount rows, which are filled anew.
    reset(theCount) {
        this.count = theCount;
        this.space.style.height = theCount * this.options.height + "px";
        if (this.options.role === "row") {
            this.element.setAttribute("aria-rowcount", theCount + 1);
        }
        this.active = Math.min(this.active, theCount - 1);
        this.refresh();
    }

    // The rows are filled anew.
    refresh() {
        this.rows.clear();
        this.space.replaceChildren();
        this.draw();
    }

    draw() {
        const theHeight = this.element.clientHeight;
        if (theHeight === 0) {
            return;
        }
        const theFirst = Math.max(
            0,
            Math.floor((this.element.scrollTop - this.headHeight()) / this.options.height) - 4
        );
        const theEnd = Math.min(this.count, theFirst + Math.ceil(theHeight / this.options.height) + 9);
        for (const [theIndex, theRow] of this.rows) {
            if (theIndex < theFirst || theIndex >= theEnd) {
                theRow.remove();
                this.rows.delete(theIndex);
            }
        }
        for (let theIndex = theFirst; theIndex < theEnd; ++theIndex) {
            if (!this.rows.has(theIndex)) {
                this.rows.set(theIndex, this.makeRow(theIndex));
            }
        }
        this.mark();
    }

    makeRow(theIndex) {
        const theRow = make("div", "row");
        theRow.id = this.element.id + "-" + theIndex;
        theRow.dataset.index = theIndex;
        theRow.setAttribute("role", this.options.role);
        if (this.options.role === "row") {
            theRow.setAttribute("aria-rowindex", theIndex + 2);
        } else {
            theRow.setAttribute("aria-posinset", theIndex + 1);
            theRow.setAttribute("aria-setsize", this.count);
        }
        theRow.style.top = theIndex * this.options.height + "px";
        theRow.style.height = this.options.height + "px";
        this.options.fill(theRow, theIndex);
        this.space.append(theRow);
        return theRow;
    }

    mark() {
        for (const [theIndex, theRow] of this.rows) {
            theRow.classList.toggle("active", theIndex === this.active);
            theRow.setAttribute("aria-selected", theIndex === this.active ? "true" : "false");
        }
        if (this.rows.has(this.active)) {
            this.element.setAttribute("aria-activedescendant", this.element.id + "-" + this.active);
        } else {
            this.element.removeAttribute("aria-activedescendant");
        }
    }

    headHeight() {
        return this.options.head ? this.options.head.offsetHeight : 0;
    }

    setActive(theIndex) {
        this.active = theIndex;
        if (theIndex >= 0 && this.element.clientHeight > 0) {
            const theTop = theIndex * this.options.height;
            const theRoom = this.element.clientHeight - this.headHeight() - this.options.height;
            if (theTop < this.element.scrollTop || theTop > this.element.scrollTop + theRoom) {
                this.element.scrollTop = Math.max(0, theTop - theRoom / 2);
            }
        }
        this.draw();
    }

    onKey(theEvent) {
        const thePage = Math.max(1, Math.floor(this.element.clientHeight / this.options.height) - 1);
        const theMoves = {
            ArrowUp: -1,
            ArrowDown: 1,
            PageUp: -thePage,
            PageDown: thePage,
            Home: -this.count,
            End: this.count
        };
        if (theEvent.ctrlKey || theEvent.metaKey || theEvent.altKey || this.count === 0) {
            return;
        }
        if (theEvent.key in theMoves) {
            this.setActive(Math.min(this.count - 1, Math.max(0, this.active + theMoves[theEvent.key])));
            if (this.options.follows) {
                this.options.choose(this.active, theEvent);
            }
        } else if ((theEvent.key === "Enter" || theEvent.key === " ") && this.active >= 0) {
            this.options.choose(this.active, theEvent);
        } else {
            return;
        }
        theEvent.preventDefault();
        theEvent.stopPropagation();
    }
}
