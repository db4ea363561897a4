// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef DateTimeUtils_h
#define DateTimeUtils_h

// A moment as a calendar and a clock show it.

#include <CoreFoundation/CFBase.h>

// The same as fields and as a list.
union LongDateRec
{
    struct
    {
        SInt16 era; // 0 after the birth of Christ
        SInt16 year;
        SInt16 month; // from 1 to 12
        SInt16 day;   // from 1 on
        SInt16 hour;  // from 0 to 23
        SInt16 minute;
        SInt16 second;
        SInt16 dayOfWeek;  // 1 is Sunday
        SInt16 dayOfYear;  // from 1 on
        SInt16 weekOfYear; // from 1 on
        SInt16 pm;         // 1 from noon on
        SInt16 res1;
        SInt16 res2;
        SInt16 res3;
    } ld;
    SInt16 list[14];
};
typedef union LongDateRec LongDateRec;

#endif
