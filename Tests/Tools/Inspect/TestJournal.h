// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TestJournal_h
#define TestJournal_h

// Writes the lines of a journal, as the recorder would, for tests of what reads them.

#include "Journal.h"

#include <cstdint>
#include <cstdio>
#include <string>

struct TestObject
{
    int theID;
    std::string theClass;
    std::string theName;

    std::string Text() const
    {
        return R"({"id":)" + std::to_string(theID) + R"(,"class":")" + theClass + R"(","name":")" + theName +
               R"("})";
    }
};

inline std::string TestValue(const std::string& theKind, const std::string& theContent)
{
    return R"({"kind":")" + theKind + R"(","value":)" + theContent + "}";
}
inline std::string TestUnsigned(unsigned theNumber)
{
    return TestValue("uint32", std::to_string(theNumber));
}
inline std::string TestDouble(const std::string& theNumber)
{
    return TestValue("double", theNumber);
}
inline std::string TestString(const std::string& theText)
{
    return TestValue("string", "\"" + theText + "\"");
}
inline std::string TestInvalid()
{
    return R"({"kind":"invalid"})";
}

// A record: what follows, and what it follows.
struct TestRecord
{
    int theNumber;
    TestObject theObject;
    std::string theKey;
    TestObject theFrom;
    std::string theFromKey;
    int theTransform = 0;

    std::string Ends() const
    {
        return R"("object":)" + theObject.Text() + R"(,"key":")" + theKey + R"(","from":)" + theFrom.Text() +
               R"(,"fromKey":")" + theFromKey + R"(","record":)" + std::to_string(theNumber);
    }
    std::string Transform() const
    {
        return theTransform == 0 ? std::string()
                                 : R"(,"transform":{"id":)" + std::to_string(theTransform) +
                                       R"(,"class":"LmToStringTransform"})";
    }
};

class TestJournal
{
public:
    TestJournal()
    {
        Add(0, "begin",
            R"("journal":"lmbindings","version":1,"library":"1.0.0","started":"2026-11-22T10:15:50Z","file":1,)"
            R"("strings":1000,"callerLimit":0,"pointer":8)");
    }

    // Returns the number of the entry. theCause is 0 where nothing led to it.
    std::uint64_t Add(std::uint64_t theCause, const std::string& theWhat, const std::string& theFields)
    {
        ++mNumber;
        mText += R"({"n":)" + std::to_string(mNumber);
        if (theCause != 0) {
            mText += R"(,"cause":)" + std::to_string(theCause);
        }
        mText += R"(,"t":)" + std::to_string(mNumber * 1000) + R"(,"what":")" + theWhat + "\"";
        mText += (theFields.empty() ? "" : ",") + theFields + "}\n";
        return mNumber;
    }
    // As it is, whatever it is.
    void AddText(const std::string& theText) { mText += theText; }

    std::uint64_t Made(const TestObject& theObject, const std::string& theRole)
    {
        return Add(0, "made", R"("object":)" + theObject.Text() + R"(,"role":")" + theRole + "\"");
    }
    std::uint64_t Destroyed(const TestObject& theObject)
    {
        return Add(0, "destroyed", R"("object":)" + theObject.Text());
    }
    std::uint64_t Bound(const TestRecord& theRecord)
    {
        return Add(0, "bind", theRecord.Ends() + theRecord.Transform());
    }
    std::uint64_t Unbound(std::uint64_t theCause, const TestRecord& theRecord)
    {
        return Add(theCause, "unbind", theRecord.Ends() + theRecord.Transform());
    }
    std::uint64_t Observed(std::uint64_t theCause, const std::string& theWhat, const TestObject& theStore,
                           const std::string& theKey, const TestObject& theObserver)
    {
        return Add(theCause, theWhat, Key(theStore, theKey) + R"(,"observer":)" + theObserver.Text());
    }
    // Announced and made.
    std::uint64_t Changed(std::uint64_t theCause, const TestObject& theObject, const std::string& theKey,
                          const std::string& theOld, const std::string& theNew)
    {
        const std::uint64_t theChanging =
            Add(theCause, "changing", Key(theObject, theKey) + R"(,"was":)" + theOld + R"(,"to":)" + theNew);
        return Add(theCause, "changed",
                   Key(theObject, theKey) + R"(,"was":)" + theOld + R"(,"is":)" + theNew + R"(,"changing":)" +
                       std::to_string(theChanging));
    }
    std::uint64_t Kept(std::uint64_t theCause, const std::string& theWhat, const TestObject& theObject,
                       const std::string& theKey, const std::string& theValue, const std::string& theGoal)
    {
        return Add(theCause, theWhat,
                   Key(theObject, theKey) + R"(,"is":)" + theValue + R"(,"to":)" + theGoal);
    }
    std::uint64_t Told(std::uint64_t theCause, const TestObject& theObject, const std::string& theKey,
                       const std::string& theValue, const std::string& theOf)
    {
        return Add(theCause, "told",
                   Key(theObject, theKey) + R"(,"is":)" + theValue + R"(,"of":")" + theOf + "\"");
    }
    std::uint64_t Updated(std::uint64_t theCause, const TestRecord& theRecord, const std::string& theValue)
    {
        return Add(theCause, "update", theRecord.Ends() + R"(,"to":)" + theValue);
    }
    std::uint64_t Transformed(std::uint64_t theCause, const TestRecord& theRecord,
                              const std::string& theInput, const std::string& theOutput)
    {
        return Add(theCause, "transform",
                   theRecord.Ends() + theRecord.Transform() + R"(,"in":)" + theInput + R"(,"out":)" +
                       theOutput);
    }
    std::uint64_t Action()
    {
        return Add(0, "action", R"("event":"kEventMouseDown","class":"mous","kind":1,"place":[120,40])");
    }
    std::uint64_t Event(std::uint64_t theCause, const TestObject& theObject)
    {
        return Add(theCause, "event",
                   R"("object":)" + theObject.Text() +
                       R"(,"event":"kEventControlValueFieldChanged","class":"cntl","kind":151)");
    }
    std::uint64_t Ended() { return Add(0, "end", R"("lost":0)"); }

    const std::string& GetText() const { return mText; }

private:
    static std::string Key(const TestObject& theObject, const std::string& theKey)
    {
        return R"("object":)" + theObject.Text() + R"(,"key":")" + theKey + "\"";
    }

    std::string mText;
    std::uint64_t mNumber = 0;
};

// A file that holds theText, at its beginning.
inline Inspect::FilePointer FileWith(const std::string& theText)
{
    Inspect::FilePointer theFile(std::tmpfile());
    std::fwrite(theText.data(), 1, theText.size(), theFile.get());
    std::rewind(theFile.get());
    return theFile;
}

inline Inspect::Journal JournalWith(const std::string& theText, std::ostream& theErrors)
{
    return Inspect::Journal(FileWith(theText), "test.journal", theErrors);
}

#endif
