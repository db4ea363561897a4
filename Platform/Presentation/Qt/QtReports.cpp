// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtReports.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Host {

void QtReports::Add(Report theReport, Subject theSubject, ObjectId theObject)
{
    const auto thePlace = mEntries.end() - static_cast<std::ptrdiff_t>(mWaiting);
    if (theSubject != Subject::kOther && thePlace != mEntries.begin()) {
        Entry& theLast = *std::prev(thePlace);
        if (theLast.theSubject == theSubject && theLast.theObject == theObject) {
            theLast.theReport = std::move(theReport);
            return;
        }
    }
    mEntries.insert(thePlace, {std::move(theReport), theSubject, theObject});
}

void QtReports::Clear()
{
    mEntries.clear();
    mWaiting = 0;
}

void QtReports::AddNext(Report theReport)
{
    mEntries.push_front({std::move(theReport)});
}

QtReports::Report QtReports::TakeNext()
{
    Report theReport = std::move(mEntries.front().theReport);
    mEntries.pop_front();
    mWaiting = std::min(mWaiting, mEntries.size());
    return theReport;
}

} // namespace Host
