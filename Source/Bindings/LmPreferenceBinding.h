// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmPreferenceBinding_h
#define LmPreferenceBinding_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"

#include <CoreFoundation/CoreFoundation.h>

// A preference binding makes the preferences of one application available as keys: reading a key reads the
// preference, setting a key writes it. A model key that is bound to it is saved as soon as it changes:
//
//     LmPreferenceBinding thePreferences(CFSTR("com.example.thermostat"));
//     // The saved value comes in, changes go out.
//     theModel.Bind("target", &thePreferences, "Target", NULL, NULL);
//     theModel.SetKeyPathValue("target", LmValue(23L)); // is saved
//     thePreferences.Flush();                           // and on disk
//
// Any text is a key; no key has to be declared. A key that was never written reads as invalid. The kinds of
// values are kept as property list types:
//
//     boolean                    CFBoolean                 comes back as a boolean
//     32-bit integers            CFNumber, SInt32          come back signed
//     64-bit integers            CFNumber, SInt64          come back signed
//     double                     CFNumber, Float64         comes back as a double
//     string                     CFString                  comes back as a string
//     point, size, rectangle     CFData of 20 bytes        come back as what they were
//
// On purpose: unsigned integers come back signed, with the same bits. And a whole number comes back in the
// width that it was set with only until the file is read again: a file does not say how wide a number was, so
// what is read is a 64-bit integer, whatever its size. From -1 to 12 it is a 32-bit integer in any case.
//
// The 20 bytes: "poin", "size" or "rect" in ASCII, then four 32-bit floats in the machine's order: x, y, 0, 0
// or width, height, 0, 0 or x, y, width, height.
//
// The rules of LmKeyValueStore hold here too, but the diagnostics for empty names and "*" are not printed:
// both are preferences like others. A preference that changes outside of this object notifies nobody.
class LM_EXPORT LmPreferenceBinding : public LmKeyValueBinding
{
public:
    // A binding for the preferences of theApplicationID, which is retained and must not be null.
    explicit LmPreferenceBinding(CFStringRef theApplicationID);

    // Writes pending changes to disk, then removes all bindings.
    ~LmPreferenceBinding() override;

    // "[Preferences com.example.thermostat]". An identifier that has no form of at most 255 bytes in MacRoman
    // leaves its place empty.
    LmString GetDebugInfo() const override;

    // Writes pending changes to disk now, and lets changes of other programs in. Without it they are written
    // when this object dies. False when they could not be written; they are kept, and tried again next time.
    bool Flush() const;

    // Reads the preference. Each call reads it anew; the binding keeps no copy.
    //
    // The result is invalid when there is none, and when theKey is not valid UTF-8. It is invalid as well,
    // with a diagnostic, for what cannot be a value: "Unsupported value type: %ld" (its CFTypeID) for dates,
    // arrays and dictionaries; "Unknown CFNumber type: %d"; "Unknown LmData type: %ld" (its first four bytes
    // as a number, 0 when there are fewer) for data that is no geometry.
    LmValue GetKeyValue(const LmString& theKey) const override;

    // Writes the preference; it reaches the disk later, see Flush. Called by the store's SetKeyPathValue,
    // which notifies.
    //
    // Writes nothing when theKey is not valid UTF-8 or the string in theValue is null; nor, with the
    // diagnostic "Unsupported value type: %d", when theValue is invalid or a pointer. So no preference is
    // ever removed.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    CFStringRef mApplicationID; // the preference domain; one reference is owned
};

#endif
