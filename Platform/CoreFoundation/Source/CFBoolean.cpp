// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFRuntime.h"
#include "CFText.h"

#include <CoreFoundation/CFNumber.h>

struct __CFBoolean : Host::Object
{
    constexpr __CFBoolean()
        : Object(Host::kBooleanType, Host::kImmortal)
    {
    }
};

struct __CFNull : Host::Object
{
    constexpr __CFNull()
        : Object(Host::kNullType, Host::kImmortal)
    {
    }
};

namespace {

const __CFBoolean gTrue;
const __CFBoolean gFalse;
const __CFNull gNull;

const char* BooleanName(const Host::Object* theBoolean)
{
    return theBoolean == &gTrue ? "true" : "false";
}

CFHashCode HashBoolean(const Host::Object* theBoolean)
{
    return theBoolean == &gTrue ? 1 : 0;
}

CFStringRef DescribeBoolean(const Host::Object* theBoolean)
{
    return Host::Text()
        .AppendHeader(theBoolean)
        .Append("{value = ")
        .Append(BooleanName(theBoolean))
        .Append("}")
        .CopyString();
}

CFStringRef FormatBoolean(const Host::Object* theBoolean)
{
    return Host::Text().Append(BooleanName(theBoolean)).CopyString();
}

CFStringRef FormatNull(const Host::Object*)
{
    return Host::Text().Append("null").CopyString();
}

} // namespace

const Host::TypeOperations Host::kBooleanType = {Host::kBooleanTypeID, "CFBoolean",     nullptr,      nullptr,
                                                 HashBoolean,          DescribeBoolean, FormatBoolean};

const Host::TypeOperations Host::kNullType = {Host::kNullTypeID, "CFNull", nullptr,   nullptr,
                                              nullptr,           nullptr,  FormatNull};

const CFBooleanRef kCFBooleanTrue = &gTrue;
const CFBooleanRef kCFBooleanFalse = &gFalse;
const CFNullRef kCFNull = &gNull;

CFTypeID CFBooleanGetTypeID()
{
    return Host::kBooleanTypeID;
}

Boolean CFBooleanGetValue(CFBooleanRef inBoolean)
{
    return inBoolean == kCFBooleanTrue;
}

CFTypeID CFNullGetTypeID()
{
    return Host::kNullTypeID;
}
