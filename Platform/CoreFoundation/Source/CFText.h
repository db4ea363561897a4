// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFText_h
#define CFText_h

// Text under construction, for descriptions and formats. Throws std::bad_alloc when there is no memory.

#include "CFRuntime.h"

#include <memory_resource>
#include <string>
#include <vector>

namespace Host {

// Where units lie: on the heap, or, for constants, in memory that is set aside for them.
template <class Value>
class ConstantAllocator
{
public:
    using value_type = Value;

    ConstantAllocator() = default;
    explicit ConstantAllocator(std::pmr::memory_resource* theMemory)
        : mMemory(theMemory)
    {
    }

    Value* allocate(size_t theCount)
    {
        return mMemory == nullptr ? std::allocator<Value>().allocate(theCount)
                                  : std::pmr::polymorphic_allocator<Value>(mMemory).allocate(theCount);
    }

    void deallocate(Value* theValues, size_t theCount)
    {
        if (mMemory == nullptr) {
            std::allocator<Value>().deallocate(theValues, theCount);
        }
    }

    // Copies of a constant's units are no constants.
    ConstantAllocator select_on_container_copy_construction() const { return ConstantAllocator(); }

    bool operator==(const ConstantAllocator& theOther) const { return mMemory == theOther.mMemory; }
    bool operator!=(const ConstantAllocator& theOther) const { return mMemory != theOther.mMemory; }

private:
    std::pmr::memory_resource* mMemory = nullptr; // not owned; null for the heap
};

using Units = std::vector<UniChar, ConstantAllocator<UniChar>>;

class Text
{
public:
    // Characters of ASCII.
    Text& Append(const char* theText);
    Text& Append(const std::string& theText) { return Append(theText.c_str()); }
    Text& Append(CFStringRef theString);
    Text& Append(const Units& theUnits);

    // "<CFType address [address of the allocator]>", the start of every description.
    Text& AppendHeader(const Object* theObject);

    // An object's description, or "(null)". theCopy makes it and may be null: then the address is shown.
    Text& AppendDescription(const void* theValue, CFStringRef (*theCopy)(const void* theValue));

    // A new string; the caller releases it.
    CFStringRef CopyString();

private:
    Units mUnits;
};

// What %@ shows for an object. The caller releases it.
CFStringRef CopyFormatText(CFTypeRef theObject);

// printf and strtod as the "C" locale has them, whatever the process's locale is.
std::string FormatInCLocale(const char* theFormat, ...) __attribute__((format(printf, 1, 2)));
double ParseInCLocale(const std::string& theText);

// How long the number is that theText starts with, in bytes; 0 when there is none.
size_t NumberLength(const std::string& theText);

} // namespace Host

#endif
