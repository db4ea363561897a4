// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtReports_h
#define QtReports_h

#include <deque>
#include <functional>

#include <Presentation/PresenterEvents.h>

namespace Host {

// What the person did and the gate has not been told yet, in the order in which it was done.
//
// Qt tells of input from inside its own functions, with widgets on the stack. A handler of the program may
// dispose those widgets, stop the presenter or run a loop of its own, so reports wait here and are made
// between Qt's events.
class QtReports
{
public:
    using Report = std::function<void(PresenterEvents&)>;

    // What a report speaks of. Of several that wait in a row about the same, only the latest is made: a fast
    // pointer moves more often than a program looks.
    enum class Subject
    {
        kOther, // never the same
        kPointerMove,
        kDrag,
        kTextEdit,
    };

    void Add(Report theReport, Subject theSubject = Subject::kOther, ObjectId theObject = kNoObject);

    // Puts a report before those that wait.
    void AddNext(Report theReport);

    // While one of these lives, reports are put before those that wait when it began, in the order in which
    // they are added: what a widget makes of an old key comes before the keys that were pressed after it.
    class Overtaking
    {
    public:
        explicit Overtaking(QtReports& theReports)
            : mReports(theReports),
              mWaiting(theReports.mWaiting)
        {
            theReports.mWaiting = theReports.mEntries.size();
        }
        ~Overtaking() { mReports.mWaiting = mWaiting; }
        Overtaking(const Overtaking&) = delete;
        Overtaking& operator=(const Overtaking&) = delete;

    private:
        QtReports& mReports;
        size_t mWaiting;
    };

    bool IsEmpty() const { return mEntries.empty(); }
    void Clear();

    // Takes the oldest report; there is one.
    Report TakeNext();

private:
    struct Entry
    {
        Report theReport;
        Subject theSubject = Subject::kOther;
        ObjectId theObject = kNoObject;
    };

    std::deque<Entry> mEntries;
    size_t mWaiting = 0; // how many at the end are being overtaken
};

} // namespace Host

#endif
