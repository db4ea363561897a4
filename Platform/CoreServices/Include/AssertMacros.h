// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AssertMacros_h
#define AssertMacros_h

// Assertions, and ways out for what fails.
//
// - check(a) says that a should hold. In a production build it is gone: a is not evaluated.
// - verify(a) is the same, but a is always evaluated.
// - require(a, l) goes to the label l when a does not hold, in both builds.
// - ..._noerr takes a status, which should be noErr and is evaluated once.
// - n... turns the condition round.
// - ..._action runs a statement when the assertion fails, and before it goes to the label.
// - ..._quiet says nothing in the debugging build either; ..._string says a text of the program's with it.
//
// The build is a debugging one where DEBUG is defined as a number other than 0, or
// DEBUG_ASSERT_PRODUCTION_CODE as 0, when this header is read. An assertion that fails then prints one line
// with its text, file and line on the standard error stream. Nothing is printed otherwise, and nothing ever
// ends the program.
//
// On purpose: the names are short words in lower case, as on the platform. A program whose classes have
// members of such names includes those classes first, or undefines the names.

#include <CoreFoundation/CFBase.h>

#ifndef DEBUG_ASSERT_PRODUCTION_CODE
#if defined(DEBUG) && DEBUG + 0
#define DEBUG_ASSERT_PRODUCTION_CODE 0
#else
#define DEBUG_ASSERT_PRODUCTION_CODE 1
#endif
#endif

// Prints the line of an assertion that has failed. The message may be NULL, the error 0.
CF_EXPORT void __CoreServicesAssertionFailed(const char* inAssertion, const char* inMessage, long inError,
                                             const char* inFile, long inLine);

#if DEBUG_ASSERT_PRODUCTION_CODE
#define CoreServicesReport(inText, inMessage, inError) ((void)0)
#define CoreServicesCheck(inAssertion, inText, inMessage) ((void)0)
#define CoreServicesCheckStatus(inStatus, inText, inMessage) ((void)0)
#define debug_string(inMessage) ((void)0)
#else
#define CoreServicesReport(inText, inMessage, inError)                                                       \
    __CoreServicesAssertionFailed(inText, inMessage, inError, __FILE__, __LINE__)
#define CoreServicesCheck(inAssertion, inText, inMessage)                                                    \
    CoreServicesVerify(inAssertion, inText, inMessage, (void)0)
#define CoreServicesCheckStatus(inStatus, inText, inMessage)                                                 \
    CoreServicesVerifyStatus(inStatus, inText, inMessage)
#define debug_string(inMessage) CoreServicesReport(inMessage, NULL, 0)
#endif

#define CoreServicesVerify(inAssertion, inText, inMessage, inAction)                                         \
    do {                                                                                                     \
        if (!(inAssertion)) {                                                                                \
            CoreServicesReport(inText, inMessage, 0);                                                        \
            inAction;                                                                                        \
        }                                                                                                    \
    } while (0)
#define CoreServicesVerifyStatus(inStatus, inText, inMessage)                                                \
    do {                                                                                                     \
        const long theVerifiedStatus = (long)(inStatus);                                                     \
        if (theVerifiedStatus != 0) {                                                                        \
            CoreServicesReport(inText, inMessage, theVerifiedStatus);                                        \
        }                                                                                                    \
    } while (0)
#define CoreServicesRequire(inAssertion, inLabel, inAction, inReport)                                        \
    do {                                                                                                     \
        if (!(inAssertion)) {                                                                                \
            inReport;                                                                                        \
            {                                                                                                \
                inAction;                                                                                    \
            }                                                                                                \
            goto inLabel;                                                                                    \
        }                                                                                                    \
    } while (0)
#define CoreServicesRequireStatus(inStatus, inLabel, inAction, inText, inMessage)                            \
    do {                                                                                                     \
        const long theRequiredStatus = (long)(inStatus);                                                     \
        if (theRequiredStatus != 0) {                                                                        \
            CoreServicesReport(inText, inMessage, theRequiredStatus);                                        \
            {                                                                                                \
                inAction;                                                                                    \
            }                                                                                                \
            goto inLabel;                                                                                    \
        }                                                                                                    \
    } while (0)

// Remarks
#define check(inAssertion) CoreServicesCheck(inAssertion, #inAssertion, NULL)
#define check_string(inAssertion, inMessage) CoreServicesCheck(inAssertion, #inAssertion, inMessage)
#define check_noerr(inStatus) CoreServicesCheckStatus(inStatus, #inStatus, NULL)
#define check_noerr_string(inStatus, inMessage) CoreServicesCheckStatus(inStatus, #inStatus, inMessage)
#define ncheck(inAssertion) CoreServicesCheck(!(inAssertion), "!(" #inAssertion ")", NULL)
#define ncheck_string(inAssertion, inMessage)                                                                \
    CoreServicesCheck(!(inAssertion), "!(" #inAssertion ")", inMessage)

#define verify(inAssertion) CoreServicesVerify(inAssertion, #inAssertion, NULL, (void)0)
#define verify_string(inAssertion, inMessage)                                                                \
    CoreServicesVerify(inAssertion, #inAssertion, inMessage, (void)0)
#define verify_noerr(inStatus) CoreServicesVerifyStatus(inStatus, #inStatus, NULL)
#define verify_noerr_string(inStatus, inMessage) CoreServicesVerifyStatus(inStatus, #inStatus, inMessage)
#define verify_action(inAssertion, inAction) CoreServicesVerify(inAssertion, #inAssertion, NULL, inAction)
#define nverify(inAssertion) CoreServicesVerify(!(inAssertion), "!(" #inAssertion ")", NULL, (void)0)
#define nverify_string(inAssertion, inMessage)                                                               \
    CoreServicesVerify(!(inAssertion), "!(" #inAssertion ")", inMessage, (void)0)

// Ways out
#define require(inAssertion, inLabel)                                                                        \
    CoreServicesRequire(inAssertion, inLabel, (void)0, CoreServicesReport(#inAssertion, NULL, 0))
#define require_quiet(inAssertion, inLabel) CoreServicesRequire(inAssertion, inLabel, (void)0, (void)0)
#define require_string(inAssertion, inLabel, inMessage)                                                      \
    CoreServicesRequire(inAssertion, inLabel, (void)0, CoreServicesReport(#inAssertion, inMessage, 0))
#define require_action(inAssertion, inLabel, inAction)                                                       \
    CoreServicesRequire(inAssertion, inLabel, inAction, CoreServicesReport(#inAssertion, NULL, 0))
#define require_action_quiet(inAssertion, inLabel, inAction)                                                 \
    CoreServicesRequire(inAssertion, inLabel, inAction, (void)0)
#define require_action_string(inAssertion, inLabel, inAction, inMessage)                                     \
    CoreServicesRequire(inAssertion, inLabel, inAction, CoreServicesReport(#inAssertion, inMessage, 0))

#define require_noerr(inStatus, inLabel)                                                                     \
    CoreServicesRequireStatus(inStatus, inLabel, (void)0, #inStatus, NULL)
#define require_noerr_quiet(inStatus, inLabel) CoreServicesRequire((inStatus) == 0, inLabel, (void)0, (void)0)
#define require_noerr_string(inStatus, inLabel, inMessage)                                                   \
    CoreServicesRequireStatus(inStatus, inLabel, (void)0, #inStatus, inMessage)
#define require_noerr_action(inStatus, inLabel, inAction)                                                    \
    CoreServicesRequireStatus(inStatus, inLabel, inAction, #inStatus, NULL)
#define require_noerr_action_quiet(inStatus, inLabel, inAction)                                              \
    CoreServicesRequire((inStatus) == 0, inLabel, inAction, (void)0)
#define require_noerr_action_string(inStatus, inLabel, inAction, inMessage)                                  \
    CoreServicesRequireStatus(inStatus, inLabel, inAction, #inStatus, inMessage)

#define nrequire(inAssertion, inLabel)                                                                       \
    CoreServicesRequire(!(inAssertion), inLabel, (void)0, CoreServicesReport("!(" #inAssertion ")", NULL, 0))
#define nrequire_quiet(inAssertion, inLabel) require_quiet(!(inAssertion), inLabel)
#define nrequire_string(inAssertion, inLabel, inMessage)                                                     \
    CoreServicesRequire(!(inAssertion), inLabel, (void)0,                                                    \
                        CoreServicesReport("!(" #inAssertion ")", inMessage, 0))
#define nrequire_action(inAssertion, inLabel, inAction)                                                      \
    CoreServicesRequire(!(inAssertion), inLabel, inAction, CoreServicesReport("!(" #inAssertion ")", NULL, 0))
#define nrequire_action_quiet(inAssertion, inLabel, inAction)                                                \
    require_action_quiet(!(inAssertion), inLabel, inAction)
#define nrequire_action_string(inAssertion, inLabel, inAction, inMessage)                                    \
    CoreServicesRequire(!(inAssertion), inLabel, inAction,                                                   \
                        CoreServicesReport("!(" #inAssertion ")", inMessage, 0))

#endif
