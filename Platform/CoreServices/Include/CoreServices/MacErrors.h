// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The statuses that the managers answer with, and those that programs compare them with. Zero, noErr, is
// success.

#ifndef MacErrors_h
#define MacErrors_h

#include <MacTypes.h>

// General
enum
{
    paramErr = -50,
    unimpErr = -4,
    userCanceledErr = -128
};

// Memory, resources and processes
enum
{
    memFullErr = -108,
    nilHandleErr = -109,
    memWZErr = -111,
    memPurErr = -112,
    resNotFound = -192,
    resFNotFound = -193,
    procNotFound = -600,
    appIsDaemon = -606
};

// Files
enum
{
    dskFulErr = -34,
    nsvErr = -35,
    ioErr = -36,
    bdNamErr = -37,
    fnOpnErr = -38,
    eofErr = -39,
    posErr = -40,
    tmfoErr = -42,
    fnfErr = -43,
    wPrErr = -44,
    fLckdErr = -45,
    vLckdErr = -46,
    fBsyErr = -47,
    dupFNErr = -48,
    opWrErr = -49,
    rfNumErr = -51,
    permErr = -54,
    wrPermErr = -61,
    dirNFErr = -120,
    notAFileErr = -1302,
    errFSBadFSRef = -1401,
    errFSBadForkName = -1402,
    errFSNotAFolder = -1407,
    errFSNameTooLong = -1410,
    errFSMissingName = -1411,
    errFSNoMoreItems = -1417,
    errFSRefsDifferent = -1420,
    pathTooLongErr = -2110,
    afpAccessDenied = -5000
};

// Gestalt
enum
{
    gestaltUnknownErr = -5550,
    gestaltUndefSelectorErr = -5551,
    gestaltDupSelectorErr = -5552,
    gestaltLocationErr = -5553
};

// CoreFoundation, where it answers with a status
enum
{
    coreFoundationUnknownErr = -4960
};

// Apple events and descriptors
enum
{
    errAECoercionFail = -1700,
    errAEDescNotFound = -1701,
    errAECorruptData = -1702,
    errAEWrongDataType = -1703,
    errAENotAEDesc = -1704,
    errAEBadListItem = -1705,
    errAENewerVersion = -1706,
    errAENotAppleEvent = -1707,
    errAEEventNotHandled = -1708,
    errAEReplyNotValid = -1709,
    errAEUnknownSendMode = -1710,
    errAEWaitCanceled = -1711,
    errAETimeout = -1712,
    errAENoUserInteraction = -1713,
    errAENotASpecialFunction = -1714,
    errAEParamMissed = -1715,
    errAEUnknownAddressType = -1716,
    errAEHandlerNotFound = -1717,
    errAEReplyNotArrived = -1718,
    errAEIllegalIndex = -1719,
    errAENoSuchObject = -1728,
    errAEDuplicateHandler = -1736,
    errAEBufferTooSmall = -1741,
    errAEEventFailed = -10000
};

// Carbon Event Manager
enum
{
    eventAlreadyPostedErr = -9860,
    eventTargetBusyErr = -9861,
    eventHandlerAlreadyInstalledErr = -9866,
    eventInternalErr = -9868,
    eventParameterNotFoundErr = -9870,
    eventNotHandledErr = -9874,
    eventLoopTimedOutErr = -9875,
    eventLoopQuitErr = -9876,
    eventNotInQueueErr = -9877,
    eventPassToNextTargetErr = -9880
};

// HIObject
enum
{
    hiObjectClassExistsErr = -22080,
    hiObjectClassHasInstancesErr = -22081,
    hiObjectClassHasSubclassesErr = -22082,
    hiObjectClassIsAbstractErr = -22083
};

// Dialogs and nibs
enum
{
    dialogNoTimeoutErr = -5640,
    kIBCarbonRuntimeCantFindNibFile = -10960,
    kIBCarbonRuntimeObjectNotOfRequestedType = -10961,
    kIBCarbonRuntimeCantFindObject = -10962
};

// Control Manager
enum
{
    errMessageNotSupported = -30580,
    errDataNotSupported = -30581,
    errControlDoesntSupportFocus = -30582,
    errUnknownControl = -30584,
    errCouldntSetFocus = -30585,
    errNoRootControl = -30586,
    errRootAlreadyExists = -30587,
    errInvalidPartCode = -30588,
    errControlsAlreadyExist = -30589,
    errControlIsNotEmbedder = -30590,
    errDataSizeMismatch = -30591,
    errControlHiddenOrDisabled = -30592,
    errCantEmbedIntoSelf = -30594,
    errCantEmbedRoot = -30595,
    errNeedsCompositedWindow = -30598,
    controlPropertyInvalid = -5603,
    controlPropertyNotFoundErr = -5604,
    controlHandleInvalidErr = -30599
};

// Menu Manager
enum
{
    menuPropertyInvalidErr = -5603,
    menuPropertyNotFoundErr = -5604,
    menuNotFoundErr = -5620,
    menuUsesSystemDefErr = -5621,
    menuItemNotFoundErr = -5622,
    menuInvalidErr = -5623
};

// Window Manager
enum
{
    errInvalidWindowPtr = -5600,
    errInvalidWindowRef = -5600,
    errUnsupportedWindowAttributesForClass = -5601,
    errInvalidWindowProperty = -5603,
    errWindowPropertyNotFound = -5604,
    errUnrecognizedWindowClass = -5605,
    errUserWantsToDragWindow = -5607,
    errWindowNotFound = -5610,
    errWindowDoesNotFitOnscreen = -5611,
    windowAttributeImmutableErr = -5612,
    windowAttributesConflictErr = -5613,
    windowManagerInternalErr = -5614,
    windowWrongStateErr = -5615,
    windowGroupInvalidErr = -5616,
    windowAppModalStateAlreadyExistsErr = -5617,
    windowNoAppModalStateErr = -5618,
    errWindowDoesntSupportFocus = -30583,
    errWindowRegionCodeInvalid = -30593
};

#endif
