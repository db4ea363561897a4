// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"use strict";

// What the test of a page looks at in the browser.

const kCanvas = document.createElement("canvas").getContext("2d", { willReadFrequently: true });

// Red, green and blue up to 255, and how opaque.
function readColour(theText) {
    kCanvas.clearRect(0, 0, 1, 1);
    kCanvas.fillStyle = theText;
    kCanvas.fillRect(0, 0, 1, 1);
    const [theRed, theGreen, theBlue, theAlpha] = kCanvas.getImageData(0, 0, 1, 1).data;
    return [theRed, theGreen, theBlue, theAlpha / 255];
}

function lay(theTop, theBelow) {
    return [0, 1, 2].map(i => theTop[i] * theTop[3] + theBelow[i] * (1 - theTop[3])).concat(1);
}

// The relative luminance of the guidelines for accessible content.
function luminanceOf(theColour) {
    const theParts = theColour.slice(0, 3).map(thePart => thePart / 255);
    const theLinear = theParts.map(thePart =>
        thePart <= 0.03928 ? thePart / 12.92 : ((thePart + 0.055) / 1.055) ** 2.4);
    return 0.2126 * theLinear[0] + 0.7152 * theLinear[1] + 0.0722 * theLinear[2];
}

function groundOf(theElement) {
    const theOwn = readColour(getComputedStyle(theElement).backgroundColor);
    return theOwn[3] === 1 || !theElement.parentElement ? theOwn : lay(theOwn, groundOf(theElement.parentElement));
}

function isRead(theElement) {
    return theElement.checkVisibility({ visibilityProperty: true }) &&
        !theElement.closest("button:disabled, script, .unseen, .skip");
}

// The least contrast of the texts that can be seen, and which it is; what is large may have less.
function leastContrast() {
    let theLeast = [99, ""];
    const theWalker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    while (theWalker.nextNode()) {
        const theElement = theWalker.currentNode.parentElement;
        if (theWalker.currentNode.textContent.trim() === "" || !isRead(theElement)) {
            continue;
        }
        const theStyle = getComputedStyle(theElement);
        const isDrawn = theElement instanceof SVGElement;
        const theGround = groundOf(isDrawn ? document.getElementById("graph") : theElement);
        const theInk = lay(readColour(isDrawn ? theStyle.fill : theStyle.color), theGround);
        const theLights = [luminanceOf(theInk), luminanceOf(theGround)];
        const theSize = parseFloat(theStyle.fontSize);
        const isLarge = theSize >= 24 || (theSize >= 18.66 && theStyle.fontWeight >= 700);
        const theRatio = ((Math.max(...theLights) + 0.05) / (Math.min(...theLights) + 0.05)) * (isLarge ? 1.5 : 1);
        if (theRatio < theLeast[0]) {
            theLeast = [theRatio, theElement.outerHTML.slice(0, 200)];
        }
    }
    return theLeast;
}

// What can be used and says nothing of what it is.
function findNameless() {
    const theUsed = "button, input, [role=button], [role=tab], [role=tabpanel], [tabindex='0'], section";
    return [...document.querySelectorAll(theUsed)]
        .filter(theElement => theElement.checkVisibility())
        .filter(theElement => !theElement.ariaLabel && !theElement.getAttribute("aria-labelledby"))
        .filter(theElement => !theElement.labels?.length && theElement.textContent.trim() === "")
        .map(theElement => theElement.outerHTML.slice(0, 200));
}

// What the cards show: each key with its value, but for those about which nothing is known.
function readCards() {
    const theValues = {};
    for (const theCard of document.querySelectorAll(".card")) {
        for (const theRow of theCard.querySelectorAll(".key:not(.more)")) {
            const theKey = theCard.querySelector("b").textContent + "." + theRow.querySelector(".name").textContent;
            const theValue = theRow.querySelector(".now").textContent;
            if (theValue !== "–") {
                theValues[theKey] = theValue;
            }
        }
    }
    return theValues;
}

// How long it takes until the next step is shown, theCount times, in milliseconds.
function timeSteps(theCount) {
    return Array.from({ length: theCount }, () => {
        const theBegin = performance.now();
        document.body.dispatchEvent(new KeyboardEvent("keydown", { key: "ArrowRight", bubbles: true }));
        document.body.getBoundingClientRect();
        return performance.now() - theBegin;
    });
}
