// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NibProperties.h"

#include "Common/NeverDestroyed.h"
#include "NibControlKinds.h"

#include <algorithm>
#include <cstring>
#include <deque>

namespace Host {

namespace {

ControlSize SizeOf(const NibObject& theObject)
{
    const bool theIsSmall = theObject.Flag("small");
    if (theObject.Class() == "IBCarbonProgressBar") {
        return theIsSmall ? kControlSizeNormal : kControlSizeLarge;
    }
    return static_cast<ControlSize>(
        theObject.Number("controlSize", theIsSmall ? kControlSizeSmall : kControlSizeNormal));
}

// The tabs of a nib have sizes of their own.
void SetSize(const NibObject& theObject, ControlRef theControl)
{
    const ControlSize theSize = SizeOf(theObject);
    if (theSize != kControlSizeNormal && theObject.Class() != "IBCarbonTab") {
        SetControlData(theControl, kControlEntireControl, kControlSizeTag, sizeof theSize, &theSize);
    }
}

UInt16 ColourPart(double thePart)
{
    return static_cast<UInt16>(std::clamp(thePart, 0.0, 65535.0));
}

void SetStyle(const NibObject& theObject, ControlRef theControl)
{
    ControlFontStyleRec theStyle = {};
    const ControlSize theSize = SizeOf(theObject);
    int theFlags = 0;
    if (theSize == kControlSizeSmall || theSize == kControlSizeMini || theObject.Has("fontStyle")) {
        const SInt16 theUsual =
            theSize == kControlSizeMini ? kControlFontMiniSystemFont : kControlFontSmallSystemFont;
        theStyle.font = theObject.Short("fontStyle", theUsual);
        theFlags |= theStyle.font < 0 ? kControlUseFontMask : kControlUseThemeFontIDMask;
    }
    if (theObject.Has("justification")) {
        theStyle.just = theObject.Short("justification");
        theFlags |= kControlUseJustMask;
    }
    const std::vector<double> theColour = theObject.Numbers("foreColor");
    if (theColour.size() == 3) {
        theStyle.foreColor = {ColourPart(theColour[0]), ColourPart(theColour[1]), ColourPart(theColour[2])};
        theFlags |= kControlUseForeColorMask;
    }
    if (theFlags != 0) {
        theStyle.flags = static_cast<SInt16>(theFlags);
        SetControlFontStyle(theControl, &theStyle);
    }
}

void SetName(const NibObject& theObject, ControlRef theControl)
{
    const ControlID theID = {theObject.Code("controlSignature"), theObject.Number("controlID")};
    if (theID.signature != 0 || theID.id != 0) {
        SetControlID(theControl, &theID);
    }
    if (theObject.Has("command")) {
        SetControlCommandID(theControl, theObject.Code("command"));
    }
    if (theObject.Has("title") && !IsNibText(theObject.Class())) {
        SetControlTitleWithCFString(theControl, NibString(theObject.String("title")));
    }
}

void SetLayout(const NibObject& theObject, ControlRef theControl)
{
    if (const NibObject theLayout = theObject.Object("layoutInfo")) {
        HILayoutInfo theInfo = {};
        theInfo.version = kHILayoutInfoVersionZero;
        theInfo.binding.top.kind = static_cast<HIBindingKind>(theLayout.Number("bindingTopKind"));
        theInfo.binding.left.kind = static_cast<HIBindingKind>(theLayout.Number("bindingLeftKind"));
        theInfo.binding.bottom.kind = static_cast<HIBindingKind>(theLayout.Number("bindingBottomKind"));
        theInfo.binding.right.kind = static_cast<HIBindingKind>(theLayout.Number("bindingRightKind"));
        HIViewSetLayoutInfo(theControl, &theInfo);
    }
    if (theObject.Flag("layoutSuspended")) {
        HIViewSuspendLayout(theControl);
    }
}

void SetHelp(const NibObject& theObject, ControlRef theControl)
{
    if (!theObject.Has("helpTagText") && !theObject.Has("helpTagExtendedText")) {
        return;
    }
    const NibString theText(theObject.String("helpTagText"));
    const NibString theExtendedText(theObject.String("helpTagExtendedText"));
    HMHelpContentRec theHelp = {};
    theHelp.version = kMacHelpVersion;
    theHelp.tagSide = theObject.Short("helpTagDisplaySide", kHMDefaultSide);
    theHelp.content[0].contentType = kHMCFStringContent;
    theHelp.content[0].u.tagCFString = theText;
    theHelp.content[1].contentType = kHMNoContent;
    if (theObject.Has("helpTagExtendedText")) {
        theHelp.content[1].contentType = kHMCFStringContent;
    }
    theHelp.content[1].u.tagCFString = theExtendedText;
    HMSetControlHelpContent(theControl, &theHelp);
}

// Properties ---------------------------------------------------------------------------------------------

// As the editor numbers them.
enum PropertyType : SInt32
{
    kStringProperty,
    kBytesProperty,
    kBooleanProperty,
    kRangeProperty,
    kFloatProperty,
    kCodeProperty,
    kSignedProperty,
    kUnsignedProperty,
    kPointProperty,
    kSizeProperty,
    kRectProperty
};

struct ControlPropertyName
{
    ControlRef theControl;
    OSType theCreator;
    OSType theTag;
};

template <class Value>
void SetValue(const ControlPropertyName& theName, const Value& theValue)
{
    SetControlProperty(theName.theControl, theName.theCreator, theName.theTag, sizeof theValue, &theValue);
}

// The property is the reference alone, so the string stays for as long as the program.
void SetString(const ControlPropertyName& theName, const Text& theText)
{
    static NeverDestroyed<std::deque<NibString>> sStrings;
    sStrings.Get().emplace_back(theText);
    SetValue(theName, static_cast<CFStringRef>(sStrings.Get().back()));
}

// The numbers of "1, 2.5"; zeros where there are fewer.
void SetNumbers(const ControlPropertyName& theName, SInt32 theType, std::vector<double> theNumbers)
{
    theNumbers.resize(4);
    const auto thePart = [&](size_t theIndex) { return CGFloat(theNumbers[theIndex]); };
    const auto theWhole = [&](size_t theIndex) {
        return static_cast<CFIndex>(std::clamp(theNumbers[theIndex], -2147483648.0, 2147483647.0));
    };
    switch (theType) {
    case kRangeProperty:
        SetValue(theName, CFRangeMake(theWhole(0), theWhole(1)));
        break;
    case kFloatProperty:
        SetValue(theName, static_cast<float>(theNumbers[0]));
        break;
    case kPointProperty:
        SetValue(theName, CGPointMake(thePart(0), thePart(1)));
        break;
    case kSizeProperty:
        SetValue(theName, CGSizeMake(thePart(0), thePart(1)));
        break;
    case kRectProperty:
        SetValue(theName, CGRectMake(thePart(0), thePart(1), thePart(2), thePart(3)));
        break;
    default:
        break;
    }
}

void SetProperty(const ControlPropertyName& theName, SInt32 theType, const NibObject& theValue)
{
    const Text theText = theValue.Value();
    switch (theType) {
    case kStringProperty:
        SetString(theName, theText);
        break;
    case kBytesProperty: {
        const std::string theBytes = Utf8Of(theText);
        SetControlProperty(theName.theControl, theName.theCreator, theName.theTag,
                           static_cast<ByteCount>(theBytes.size() + 1), theBytes.c_str());
        break;
    }
    case kBooleanProperty:
        SetValue(theName, static_cast<Boolean>(theText == u"TRUE" || theText == u"1"));
        break;
    case kCodeProperty:
        SetValue(theName, theValue.CodeValue());
        break;
    case kSignedProperty:
    case kUnsignedProperty:
        SetValue(theName, theValue.NumberValue());
        break;
    default:
        SetNumbers(theName, theType, theValue.NumberValues());
        break;
    }
}

void SetOwnProperties(const NibObject& theObject, ControlRef theControl)
{
    const NibObject theOwn = theObject.Attribute("auxiliaryDictionary");
    const auto theCreators = theOwn.Entry("creators").Elements();
    const auto theTags = theOwn.Entry("tags").Elements();
    const auto theTypes = theOwn.Entry("types").Elements();
    const auto theValues = theOwn.Entry("values").Elements();
    const size_t theCount = std::min({theCreators.size(), theTags.size(), theTypes.size(), theValues.size()});
    for (size_t theIndex = 0; theIndex < theCount; ++theIndex) {
        SetProperty({theControl, theCreators[theIndex].CodeValue(), theTags[theIndex].CodeValue()},
                    theTypes[theIndex].NumberValue(), theValues[theIndex]);
    }
}

} // namespace

void SetNibProperties(const NibObject& theObject, ControlRef theControl)
{
    SetName(theObject, theControl);
    SetSize(theObject, theControl);
    SetStyle(theObject, theControl);
    SetLayout(theObject, theControl);
    SetHelp(theObject, theControl);
    SetOwnProperties(theObject, theControl);
    HIViewSetVisible(theControl, !theObject.Flag("hidden"));
    if (!theObject.Flag("enabled", true)) {
        DisableControl(theControl);
    }
}

} // namespace Host
