// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FunctionName.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace Inspect {

namespace {

// Longer template arguments are left out: what a compiler makes of a std::function fills lines.
constexpr std::size_t kLongestArguments = 30;
// What is nested deeper than this is left as it is.
constexpr int kDeepest = 16;

bool BeginsWith(std::string_view theText, std::string_view theBeginning)
{
    return theText.substr(0, theBeginning.size()) == theBeginning;
}

bool IsOfAName(char theCharacter)
{
    return std::isalnum(static_cast<unsigned char>(theCharacter)) != 0 || theCharacter == '_';
}

void Remove(std::string& theText, std::string_view theWhat)
{
    for (std::size_t thePlace = theText.find(theWhat); thePlace != std::string::npos;
         thePlace = theText.find(theWhat, thePlace)) {
        theText.erase(thePlace, theWhat.size());
    }
}

// What a compiler puts behind the name of a part that it has taken out of a function: "Run() [clone .cold]",
// or "main.cold" where nothing was mangled.
void RemoveClone(std::string& theName)
{
    theName.erase(std::min(theName.find(" [clone "), theName.size()));
    constexpr std::array<std::string_view, 6> kMarks = {".cold",      ".part.", ".constprop.",
                                                        ".lto_priv.", ".isra.", ".llvm."};
    for (const std::string_view theMark : kMarks) {
        theName.erase(std::min(theName.find(theMark), theName.size()));
    }
}

void RemoveBeginning(std::string& theName, std::string_view theBeginning)
{
    if (BeginsWith(theName, theBeginning)) {
        theName.erase(0, theBeginning.size());
    }
}

// The place behind the bracket that closes the one at thePlace; the end when none does.
std::size_t BehindBrackets(std::string_view theName, std::size_t thePlace)
{
    int theDepth = 0;
    for (; thePlace < theName.size(); ++thePlace) {
        const char theCharacter = theName[thePlace];
        const bool isArrow = theCharacter == '>' && thePlace > 0 && theName[thePlace - 1] == '-';
        if (theCharacter == '(' || theCharacter == '<' || theCharacter == '{' || theCharacter == '[') {
            ++theDepth;
        } else if ((theCharacter == ')' || theCharacter == '>' || theCharacter == '}' ||
                    theCharacter == ']') &&
                   !isArrow && --theDepth == 0) {
            return thePlace + 1;
        }
    }
    return theName.size();
}

bool IsOperator(std::string_view theName, std::size_t thePlace)
{
    constexpr std::string_view kOperator = "operator";
    const std::size_t theEnd = thePlace + kOperator.size();
    return BeginsWith(theName.substr(thePlace), kOperator) &&
           (thePlace == 0 || !IsOfAName(theName[thePlace - 1])) &&
           (theEnd == theName.size() || !IsOfAName(theName[theEnd]));
}

// Where the parameters of the operator begin whose name stands at thePlace: its own signs are no brackets.
std::size_t EndOfOperator(std::string_view theName, std::size_t thePlace)
{
    constexpr std::string_view kCall = "operator()";
    const bool isCall = BeginsWith(theName.substr(thePlace), kCall);
    return std::min(theName.find('(', thePlace + (isCall ? kCall.size() : 0)), theName.size());
}

bool IsLambda(std::string_view theName)
{
    return BeginsWith(theName, "{lambda(") || BeginsWith(theName, "$_") || BeginsWith(theName, "'lambda");
}

std::string LambdaIn(const std::string& theFunction)
{
    if (theFunction.empty()) {
        return "lambda";
    }
    return BeginsWith(theFunction, "lambda") ? theFunction : "lambda in " + theFunction;
}

// Long arguments of templates as "<...>".
std::string WithShortArguments(std::string_view theName)
{
    std::string theResult;
    std::size_t thePlace = 0;
    while (thePlace < theName.size()) {
        const bool isOperator = IsOperator(theName, thePlace);
        if (isOperator || theName[thePlace] != '<') {
            const std::size_t theLength = isOperator ? EndOfOperator(theName, thePlace) - thePlace : 1;
            theResult += theName.substr(thePlace, theLength);
            thePlace += theLength;
            continue;
        }
        const std::size_t theEnd = BehindBrackets(theName, thePlace);
        const std::size_t theLength = theEnd - thePlace;
        theResult += theLength > kLongestArguments ? "<...>" : theName.substr(thePlace, theLength);
        thePlace = theEnd;
    }
    return theResult;
}

std::string Read(std::string_view theName, int theDepth);

// The name of what stands in theName[theBegin, theEnd), whose parameters begin at theEnd. A name may go on
// behind them, with what stands in that function.
std::string ReadFunction(std::string_view theName, std::size_t theBegin, std::size_t theEnd, int theDepth)
{
    std::string theFunction = WithShortArguments(theName.substr(theBegin, theEnd - theBegin));
    std::string_view theRest = theName.substr(BehindBrackets(theName, theEnd));
    constexpr std::string_view kConst = " const";
    if (BeginsWith(theRest, kConst)) {
        theRest.remove_prefix(kConst.size());
    }
    if (!BeginsWith(theRest, "::") || theDepth == kDeepest) {
        return theFunction;
    }
    theRest.remove_prefix(2);
    return IsLambda(theRest) ? LambdaIn(theFunction) : theFunction + "::" + Read(theRest, theDepth + 1);
}

std::string Read(std::string_view theName, int theDepth)
{
    constexpr std::string_view kAnonymous = "(anonymous namespace)";
    constexpr std::string_view kType = "decltype ";
    std::size_t theBegin = 0; // behind the type of the result, which stands before the name of a template
    std::size_t thePlace = 0;
    while (thePlace < theName.size()) {
        const std::string_view theRest = theName.substr(thePlace);
        if (IsOperator(theName, thePlace)) {
            return ReadFunction(theName, theBegin, EndOfOperator(theName, thePlace), theDepth);
        }
        if (IsLambda(theRest)) {
            const std::size_t theColons = thePlace >= theBegin + 2 ? 2 : 0;
            return LambdaIn(WithShortArguments(theName.substr(theBegin, thePlace - theBegin - theColons)));
        }
        if (BeginsWith(theRest, kAnonymous)) {
            thePlace += kAnonymous.size();
        } else if (BeginsWith(theRest, kType)) {
            thePlace = BehindBrackets(theName, thePlace + kType.size());
        } else if (theRest.front() == '(') {
            return ReadFunction(theName, theBegin, thePlace, theDepth);
        } else if (theRest.front() == '<' || theRest.front() == '{' || theRest.front() == '[') {
            thePlace = BehindBrackets(theName, thePlace);
        } else {
            ++thePlace;
            theBegin = theRest.front() == ' ' ? thePlace : theBegin;
        }
    }
    return WithShortArguments(theName.substr(theBegin));
}

} // namespace

std::string ReadableName(const std::string& theName)
{
    if (BeginsWith(theName, "_GLOBAL__sub_I_") || BeginsWith(theName, "__static_initialization_and_")) {
        return "what runs before main";
    }
    std::string theText = theName;
    RemoveClone(theText);
    RemoveBeginning(theText, "non-virtual thunk to ");
    RemoveBeginning(theText, "virtual thunk to ");
    Remove(theText, "[abi:cxx11]");
    return Read(theText, 0);
}

} // namespace Inspect
