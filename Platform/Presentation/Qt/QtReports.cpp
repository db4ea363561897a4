// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtReports.h"

#include <utility>

namespace Host {

void QtReports::Add(Report theReport, Subject theSubject, ObjectId theObject)
{
    const bool theIsLatest = theSubject != Subject::kOther && !mEntries.empty() &&
                             mEntries.back().theSubject == theSubject &&
                             mEntries.back().theObject == theObject;
    if (theIsLatest) {
        mEntries.back().theReport = std::move(theReport);
    } else {
        mEntries.push_back({std::move(theReport), theSubject, theObject});
    }
}

void QtReports::AddNext(Report theReport)
{
    mEntries.push_front({std::move(theReport)});
}

QtReports::Report QtReports::TakeNext()
{
    Report theReport = std::move(mEntries.front().theReport);
    mEntries.pop_front();
    return theReport;
}

} // namespace Host
