// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Images_h
#define ControlKinds_Images_h

#include "Buttons.h"
#include "Creation.h"
#include "DataTags.h"

namespace Host {

// What a control shows beside its title or instead of it. Holds a count on an icon or an image.
class HeldContent
{
public:
    HeldContent();
    ~HeldContent();
    HeldContent(const HeldContent&) = delete;
    HeldContent& operator=(const HeldContent&) = delete;

    // False for a type that does not exist, and for an icon that is none.
    static bool IsContent(const ControlButtonContentInfo& theContent);

    // paramErr, and nothing changed, for what is no content.
    OSErr Set(const ControlButtonContentInfo& theContent);
    const ControlButtonContentInfo& Get() const { return mContent; }

    // A count for whoever has read it.
    static void Hold(const ControlButtonContentInfo& theContent);

    PictureShape Picture() const;

private:
    ControlButtonContentInfo mContent;
};

// The tag of a member that is the content.
template <class Kind, HeldContent Kind::*kMember>
ControlDataTag ContentTag()
{
    ControlDataTag theEntry = {kControlContentTag, sizeof(ControlButtonContentInfo), nullptr, nullptr,
                               nullptr};
    theEntry.theRead = [](const Control& theControl, void* theBuffer) {
        const HeldContent& theContent = static_cast<const Kind&>(theControl).*kMember;
        HeldContent::Hold(theContent.Get());
        Put(theBuffer, theContent.Get());
    };
    theEntry.theWrite = [](Control& theControl, const void* theData, size_t) {
        return (static_cast<Kind&>(theControl).*kMember).Set(Take<ControlButtonContentInfo>(theData));
    };
    return theEntry;
}

// Makes a control with a member mContent, for the content that the call was given. It may be null, for
// nothing, if theCanBeNothing.
template <class Kind, class... Arguments>
OSStatus CreateWithContent(const CreationRequest& theRequest, const ControlButtonContentInfo* theContent,
                           bool theCanBeNothing, const Arguments&... theArguments)
{
    if (theContent == nullptr ? !theCanBeNothing : !HeldContent::IsContent(*theContent)) {
        return Refuse(theRequest.theControl);
    }
    return Make(theRequest, [&] {
        auto theNew = std::make_shared<Kind>(theArguments...);
        if (theContent != nullptr) {
            theNew->mContent.Set(*theContent);
        }
        return theNew;
    });
}

// An icon, a picture or an image well.
class ImageControl : public Button
{
public:
    ImageControl(OSType theKind, ControlPartCode thePart, bool theIsTracked);
    ControlPartCode PartAt(Point thePoint) const override;
    OSStatus PressKey(const KeyPress& theKey) override;
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    const ControlDataTag* FindTag(ResType theTag) const override;
    void AddToLook(ControlLook& theLook) const override;

    HeldContent mContent;
    SInt16 mTransform = 0;
    SInt16 mAlignment = 0;
    bool mIsDragDestination = false;

private:
    bool mIsTracked;
};

class ImageView : public Control
{
public:
    ImageView();
    void AddToLook(ControlLook& theLook) const override;

    HeldContent mContent;
    bool mIsScaled = false;
    bool mIsOpaque = false;
    CGFloat mAlpha = 1;
};

} // namespace Host

#endif
