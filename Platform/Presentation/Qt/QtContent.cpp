// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtContent.h"

#include <QRegion>

#include <algorithm>
#include <iterator>

namespace Host {

namespace {

using Places = std::vector<QRect>;

// Painting the gaps between controls is cheaper than leaving them out, up to this many times what is in them.
constexpr qint64 kMostOfGaps = 2;

qint64 AreaOf(const QRect& thePlace)
{
    return qint64{thePlace.width()} * thePlace.height();
}

// Adds the places from theFirst to before theEnd, joined to as few as there can be without touching one of
// theOthers.
void AddJoined(Places::const_iterator theFirst, Places::const_iterator theEnd, const Places& theOthers,
               QRegion& theRegion)
{
    QRect theWhole;
    qint64 theArea = 0;
    std::for_each(theFirst, theEnd, [&](const QRect& thePlace) {
        theWhole |= thePlace;
        theArea += AreaOf(thePlace);
    });
    Places theTouched;
    std::copy_if(theOthers.begin(), theOthers.end(), std::back_inserter(theTouched),
                 [&](const QRect& theOther) { return theOther.intersects(theWhole); });
    const auto theCount = theEnd - theFirst;
    if (theCount == 1 || (theTouched.empty() && AreaOf(theWhole) <= kMostOfGaps * theArea)) {
        theRegion += theWhole;
    } else {
        AddJoined(theFirst, theFirst + theCount / 2, theTouched, theRegion);
        AddJoined(theFirst + theCount / 2, theEnd, theTouched, theRegion);
    }
}

} // namespace

void QtContent::Changed(const QRect& thePlace)
{
    mChanged.push_back(thePlace);
}

// A group box or a pane around what has changed is painted with it in any case.
Places QtContent::PlacesOutside(const QRegion& theRegion) const
{
    Places thePlaces;
    for (const QObject* theChild : children()) {
        const auto* const theWidget = qobject_cast<const QWidget*>(theChild);
        if (theWidget != nullptr && theWidget->isVisible() && !theRegion.intersects(theWidget->geometry())) {
            thePlaces.push_back(theWidget->geometry());
        }
    }
    return thePlaces;
}

void QtContent::RepaintChanged()
{
    if (mChanged.empty()) {
        return;
    }
    QRegion theExact;
    for (const QRect& thePlace : mChanged) {
        theExact += thePlace;
    }
    QRegion theRegion;
    AddJoined(mChanged.begin(), mChanged.end(), PlacesOutside(theExact), theRegion);
    mChanged.clear();
    update(theRegion);
}

} // namespace Host
