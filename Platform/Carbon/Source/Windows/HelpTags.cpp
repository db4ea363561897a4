// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "HelpTags.h"

#include "Base/Guarded.h"
#include "Base/Text.h"
#include "Common/NeverDestroyed.h"
#include "Control.h"
#include "Window.h"

#include <memory>
#include <unordered_map>

namespace Host {

namespace {

HMHelpContentRec NoHelp()
{
    HMHelpContentRec theRecord = {};
    theRecord.version = kMacHelpVersion;
    for (HMHelpContent& theContent : theRecord.content) {
        theContent.contentType = kHMNoContent;
    }
    return theRecord;
}

bool IsString(const HMHelpContent& theContent)
{
    return theContent.contentType == kHMCFStringContent ||
           theContent.contentType == kHMCFStringLocalizedContent;
}

// A record with a count on its strings.
class HelpContent
{
public:
    explicit HelpContent(const HMHelpContentRec& theRecord)
        : mRecord(theRecord)
    {
        ForEachString([](CFStringRef theString) { CFRetain(theString); });
    }
    ~HelpContent()
    {
        ForEachString([](CFStringRef theString) { CFRelease(theString); });
    }
    HelpContent(const HelpContent&) = delete;
    HelpContent& operator=(const HelpContent&) = delete;

    const HMHelpContentRec& Record() const { return mRecord; }
    std::string Words() const;

private:
    template <class Action>
    void ForEachString(const Action& theAction) const
    {
        for (const HMHelpContent& theContent : mRecord.content) {
            if (IsString(theContent) && theContent.u.tagCFString != nullptr) {
                theAction(theContent.u.tagCFString);
            }
        }
    }

    HMHelpContentRec mRecord;
};

Text LocalizedTextOf(CFStringRef theKey)
{
    const CFBundleRef theBundle = theKey == nullptr ? nullptr : CFBundleGetMainBundle();
    if (theBundle == nullptr) {
        return TextOf(theKey);
    }
    CFStringRef theString = CFBundleCopyLocalizedString(theBundle, theKey, theKey, nullptr);
    Text theText = TextOf(theString);
    if (theString != nullptr) {
        CFRelease(theString);
    }
    return theText;
}

Text TextIn(const HMHelpContent& theContent)
{
    switch (theContent.contentType) {
    case kHMCFStringContent:
        return TextOf(theContent.u.tagCFString);
    case kHMCFStringLocalizedContent:
        return LocalizedTextOf(theContent.u.tagCFString);
    case kHMPascalStrContent:
        return TextOfPascalString(theContent.u.tagString);
    default:
        return {};
    }
}

std::string HelpContent::Words() const
{
    const Text theShort = TextIn(mRecord.content[kHMMinimumContentIndex]);
    const Text theLong = TextIn(mRecord.content[kHMMaximumContentIndex]);
    return Utf8Of(theShort.empty() || theLong.empty() ? theShort + theLong : theShort + u"\n" + theLong);
}

using Helps = std::unordered_map<ObjectId, std::unique_ptr<HelpContent>>;

Helps& AllHelps()
{
    static NeverDestroyed<Helps> sHelps;
    return sHelps.Get();
}

bool gAreTagsDisplayed = true;

const HelpContent* HelpOf(const Control& theControl)
{
    const auto theFound = AllHelps().find(theControl.Identifier());
    return theFound == AllHelps().end() ? nullptr : theFound->second.get();
}

std::string WordsFor(const Control& theControl)
{
    if (const HelpContent* const theHelp = HelpOf(theControl)) {
        return theHelp->Words();
    }
    const SharedControl theParent = theControl.Parent();
    return theParent == nullptr ? std::string() : WordsFor(*theParent);
}

} // namespace

void AddHelpToLook(const Control& theControl, ControlLook& theLook)
{
    if (AllHelps().empty() || !gAreTagsDisplayed) {
        return;
    }
    std::string theWords = WordsFor(theControl);
    if (!theWords.empty()) {
        RareLook theRareLook = theLook.Rare();
        theRareLook.theHelp = std::move(theWords);
        theLook.theRareLook = std::make_shared<const RareLook>(std::move(theRareLook));
    }
}

void RemoveHelp(const Control& theControl)
{
    AllHelps().erase(theControl.Identifier());
}

} // namespace Host

// The interface ------------------------------------------------------------------------------------------

using namespace Host;

OSStatus HMSetControlHelpContent(ControlRef inControl, const HMHelpContentRec* inContent)
{
    const SharedControl theFound = Host::FindControl(inControl);
    if (theFound == nullptr) {
        return errUnknownControl;
    }
    if (inContent != nullptr && inContent->version != kMacHelpVersion) {
        return paramErr;
    }
    const OSStatus theStatus = Guarded([&] {
        if (inContent == nullptr) {
            RemoveHelp(*theFound);
        } else {
            AllHelps()[theFound->Identifier()] = std::make_unique<HelpContent>(*inContent);
        }
        return OSStatus{noErr};
    });
    theFound->ShowAll();
    return theStatus;
}

OSStatus HMGetControlHelpContent(ControlRef inControl, HMHelpContentRec* outContent)
{
    if (outContent == nullptr) {
        return paramErr;
    }
    const SharedControl theFound = Host::FindControl(inControl);
    const HelpContent* const theHelp = theFound == nullptr ? nullptr : HelpOf(*theFound);
    *outContent = theHelp == nullptr ? NoHelp() : theHelp->Record();
    return theFound == nullptr ? OSStatus{errUnknownControl} : OSStatus{noErr};
}

OSStatus HMSetHelpTagsDisplayed(Boolean inDisplayTags)
{
    gAreTagsDisplayed = inDisplayTags != 0;
    for (const auto& theHelp : AllHelps()) {
        if (const SharedControl theControl = Host::FindControl(theHelp.first)) {
            theControl->ShowAll();
        }
    }
    return noErr;
}

Boolean HMAreHelpTagsDisplayed(void)
{
    return gAreTagsDisplayed;
}
