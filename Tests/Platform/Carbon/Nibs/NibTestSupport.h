// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef NibTestSupport_h
#define NibTestSupport_h

#include "ManagerTestSupport.h"
#include "StandardErrorCapture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

// A folder with nibs, which is a bundle, and a nib that was read from it.
class NibTest : public ManagerTest
{
protected:
    NibTest()
    {
        std::string theTemplate = (std::filesystem::temp_directory_path() / "Nibs.XXXXXX").string();
        EXPECT_NE(mkdtemp(theTemplate.data()), nullptr);
        mFolder = theTemplate;
        const CFURLRef theURL = CFURLCreateFromFileSystemRepresentation(
            nullptr, reinterpret_cast<const UInt8*>(theTemplate.data()),
            static_cast<CFIndex>(theTemplate.size()), true);
        mBundle = CFBundleCreate(nullptr, theURL);
        CFRelease(theURL);
    }

    ~NibTest() override
    {
        if (mMade != nullptr) {
            DisposeWindow(mMade);
        }
        DisposeNibReference(mNib);
        CFRelease(mBundle);
        std::error_code theError;
        std::filesystem::remove_all(mFolder, theError);
    }

    // objects.xib of the nib of that name, which may begin with the folder of a language.
    void Write(const std::string& theText, const std::string& theName = "Main") const
    {
        const std::filesystem::path theNib = mFolder / (theName + ".nib");
        std::filesystem::create_directories(theNib);
        std::ofstream(theNib / "objects.xib", std::ios::binary) << theText;
    }

    // The text of a nib with the objects and a name for the object 1.
    static std::string NibWith(const std::string& theObjects)
    {
        return "<?xml version=\"1.0\" standalone=\"yes\"?>\n<object class=\"NSIBObjectData\">\n"
               "<string name=\"targetFramework\">IBCarbonFramework</string>\n<array name=\"allObjects\">\n" +
               theObjects +
               "</array>\n<dictionary name=\"nameTable\">\n"
               "<string>File's Owner</string><reference idRef=\"99\"/>\n"
               "<string>It</string><reference idRef=\"1\"/>\n</dictionary>\n</object>\n";
    }

    OSStatus Open(const std::string& theText)
    {
        Write(theText);
        DisposeNibReference(mNib);
        return CreateNibReferenceWithCFBundle(mBundle, CFSTR("Main"), &mNib);
    }

    // A window with those attributes and, in its root control, those views.
    static std::string WindowWith(const std::string& theAttributes, const std::string& theViews = "")
    {
        return NibWith("<object class=\"IBCarbonWindow\" id=\"1\">\n"
                       "<string name=\"windowRect\">100 120 300 520 </string>\n" +
                       theAttributes +
                       "<object name=\"rootControl\" class=\"IBCarbonRootControl\" id=\"2\">\n"
                       "<string name=\"bounds\">0 0 200 400 </string>\n<array name=\"subviews\">\n" +
                       theViews + "</array></object></object>\n");
    }

    // A view at 20, 10 of 200 by 30, with the name ('Nibs', 1).
    static std::string View(const std::string& theClass, const std::string& theAttributes = "")
    {
        return "<object class=\"" + theClass +
               "\">\n<string name=\"bounds\">10 20 40 220 </string>\n"
               "<ostype name=\"controlSignature\">Nibs</ostype><int name=\"controlID\">1</int>\n" +
               theAttributes + "</object>\n";
    }

    OSStatus MakeWindow(const std::string& theText)
    {
        EXPECT_EQ(Open(theText), noErr);
        if (mMade != nullptr) {
            DisposeWindow(mMade);
        }
        return CreateWindowFromNib(mNib, CFSTR("It"), &mMade);
    }

    // The control ('Nibs', theNumber) of the window that was made.
    ControlRef Find(SInt32 theNumber = 1) const
    {
        const ControlID theID = {'Nibs', theNumber};
        ControlRef theControl = nullptr;
        EXPECT_EQ(GetControlByID(mMade, &theID, &theControl), noErr) << theNumber;
        return theControl;
    }

    // The control of a window that has a view of the class alone.
    ControlRef MakeControl(const std::string& theClass, const std::string& theAttributes = "")
    {
        EXPECT_EQ(MakeWindow(WindowWith("", View(theClass, theAttributes))), noErr) << theClass;
        return Find();
    }

    std::filesystem::path mFolder;
    CFBundleRef mBundle = nullptr;
    IBNibRef mNib = nullptr;
    WindowRef mMade = nullptr;
};

#endif
