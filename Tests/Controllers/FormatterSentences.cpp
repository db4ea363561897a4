// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Prints what formatters have against some texts. FormatterSentencesTests.sh starts it with bundles and
// languages of its own: a program has the same ones as long as it runs.

#include "LmConveniences.h"
#include "LmDateFormatter.h"
#include "LmNumberFormatters.h"
#include "LmWordFormatters.h"

#include <cstdio>

namespace {

void PrintProblem(const LmFormatter& theFormatter, CFStringRef theText)
{
    std::puts(LmGetStdString(theFormatter.Parse(theText).theProblem).c_str());
}

} // namespace

int main()
{
    PrintProblem(LmIntegerFormatter(0, 100), CFSTR("many"));
    PrintProblem(LmIntegerFormatter(0, 100), CFSTR("101"));
    PrintProblem(LmDateFormatter(kCFDateFormatterShortStyle), CFSTR("soon"));
    PrintProblem(LmWordFormatter({"Small", "Large"}), CFSTR("Huge"));
    return 0;
}
