// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Options.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <getopt.h>
#include <iterator>
#include <sstream>
#include <string_view>

namespace Inspect {

namespace {

// What an option stands for in the long list.
enum Letter : int
{
    kHelp = 'h',
    kVersion = 'V',
    kObject = 'O',
    kKey = 'k',
    kKind = 'K',
    kCaller = 'c',
    kSince = 's',
    kUntil = 'u',
    kAll = 'a',
    kCauses = 'w',
    kCallers = 'C',
    kNth = 'n',
    kAt = 't',
    kDot = 'd',
    kOutput = 'o',
    kQuestion = 'q'
};

struct CommandName
{
    std::string_view theName;
    Command theCommand;
    std::string_view theLetters; // of the options that it has
};

constexpr std::array<CommandName, 10> kCommands = {{{"log", Command::Log, "OkKcsuawC"},
                                                    {"why", Command::Why, "n"},
                                                    {"graph", Command::Graph, "td"},
                                                    {"page", Command::Page, "o"},
                                                    {"lint", Command::Lint, ""},
                                                    {"diff", Command::Diff, ""},
                                                    {"run", Command::Run, "OkKcsuawCoq"},
                                                    {"attach", Command::Attach, "OkKcsuawCo"},
                                                    {"detach", Command::Detach, ""},
                                                    {"ask", Command::Ask, ""}}};

const std::array<option, 17> kOptions = {{{"help", no_argument, nullptr, kHelp},
                                          {"version", no_argument, nullptr, kVersion},
                                          {"object", required_argument, nullptr, kObject},
                                          {"key", required_argument, nullptr, kKey},
                                          {"kind", required_argument, nullptr, kKind},
                                          {"caller", required_argument, nullptr, kCaller},
                                          {"since", required_argument, nullptr, kSince},
                                          {"until", required_argument, nullptr, kUntil},
                                          {"all", no_argument, nullptr, kAll},
                                          {"causes", no_argument, nullptr, kCauses},
                                          {"callers", no_argument, nullptr, kCallers},
                                          {"nth", required_argument, nullptr, kNth},
                                          {"at", required_argument, nullptr, kAt},
                                          {"dot", no_argument, nullptr, kDot},
                                          {"output", required_argument, nullptr, kOutput},
                                          {"command", required_argument, nullptr, kQuestion},
                                          {nullptr, 0, nullptr, 0}}};

std::vector<std::string> CommandNames()
{
    std::vector<std::string> theNames;
    theNames.reserve(kCommands.size());
    for (const CommandName& theName : kCommands) {
        theNames.emplace_back(theName.theName);
    }
    return theNames;
}

std::string DidYouMean(std::string_view theName, const std::vector<std::string>& theNames)
{
    const std::vector<std::string> theNearest = NearestNames(theName, theNames);
    return theNearest.empty() ? std::string() : "; did you mean " + JoinWithOr(theNearest) + "?";
}

std::string ReadKinds(const std::string& theList, std::set<What>& theKinds)
{
    std::size_t theBegin = 0;
    while (theBegin <= theList.size()) {
        const std::size_t theEnd = std::min(theList.find(',', theBegin), theList.size());
        const std::string theName = theList.substr(theBegin, theEnd - theBegin);
        const What theKind = WhatOf(theName);
        if (theKind == What::Unknown) {
            const std::vector<std::string_view> theNames = AllNames();
            return "there is no kind of entry called \"" + Escape(theName) + "\"" +
                   DidYouMean(theName, {theNames.begin(), theNames.end()});
        }
        theKinds.insert(theKind);
        theBegin = theEnd + 1;
    }
    return {};
}

std::string ReadTime(const std::string& theText, std::uint64_t& theTime)
{
    return ReadSeconds(theText, theTime) ? std::string()
                                         : "\"" + Escape(theText) + "\" is no number of seconds, such as 1.5";
}

std::string ReadNumber(const std::string& theText, std::uint64_t& theNumber)
{
    return ReadCount(theText, theNumber) ? std::string()
                                         : "\"" + Escape(theText) + "\" is no number from 1 on";
}

// Returns what is wrong with it.
std::string TakeOption(int theLetter, const std::string& theText, Options& theOptions)
{
    LogOptions& theLog = theOptions.theLog;
    switch (theLetter) {
    case kObject:
        theLog.theFilter.theObject = theText;
        return {};
    case kKey:
        theLog.theFilter.theKey = theText;
        return {};
    case kKind:
        return ReadKinds(theText, theLog.theFilter.theKinds);
    case kCaller:
        theLog.theFilter.theCaller = theText;
        return {};
    case kSince:
        return ReadTime(theText, theLog.theFilter.theEarliest);
    case kUntil:
        return ReadTime(theText, theLog.theFilter.theLatest);
    case kAll:
        theLog.isAll = true;
        return {};
    case kCauses:
        theLog.hasCauses = true;
        return {};
    case kCallers:
        theLog.hasCallers = true;
        return {};
    case kNth:
        return ReadNumber(theText, theOptions.theTime);
    case kAt:
        return ReadNumber(theText, theOptions.theGraph.theEntry);
    case kDot:
        theOptions.theGraph.isDot = true;
        return {};
    case kOutput:
        theOptions.theOutput = theText;
        return theText.empty() ? "--output needs the name of a file" : std::string();
    case kQuestion:
        theOptions.theQuestion = {theText};
        return {};
    default:
        return {};
    }
}

std::vector<std::string> OptionNames()
{
    std::vector<std::string> theNames;
    for (const option& theOption : kOptions) {
        if (theOption.name != nullptr) {
            theNames.push_back("--" + std::string(theOption.name));
        }
    }
    return theNames;
}

std::string NameOfLetter(int theLetter)
{
    for (const option& theOption : kOptions) {
        if (theOption.name != nullptr && theOption.val == theLetter) {
            return "--" + std::string(theOption.name);
        }
    }
    return {};
}

// getopt's state is the process's, so it is set up anew for each command line.
class Scanner
{
public:
    explicit Scanner(const std::vector<std::string>& theArguments)
        : mTexts(theArguments),
          mIsForProgram(!theArguments.empty() &&
                        (theArguments.front() == "run" || theArguments.front() == "ask"))
    {
        if (!mIsForProgram) {
            mTexts.insert(mTexts.begin(), "lminspect");
        }
        for (std::string& theText : mTexts) {
            mPointers.push_back(theText.data());
        }
        mPointers.push_back(nullptr);
        optind = 0;
        opterr = 0;
    }

    int Next()
    {
        // What stands behind a program that is to be run, or asked, is its own.
        return getopt_long(static_cast<int>(mTexts.size()), mPointers.data(),
                           mIsForProgram ? "+:hVo:" : ":hVo:", kOptions.data(), nullptr);
    }

    // What could not be read as an option.
    std::string GetBad(int theResult) const
    {
        const std::string theText = mPointers[static_cast<std::size_t>(optind) - 1];
        if (theResult == ':') {
            return Escape(theText) + " needs a value";
        }
        if (optopt != 0 && !NameOfLetter(optopt).empty() && theText.find('=') != std::string::npos) {
            return NameOfLetter(optopt) + " takes no value";
        }
        const std::string theName = theText.substr(0, theText.find('='));
        return "there is no option " + Escape(theName) + DidYouMean(theName, OptionNames());
    }

    // getopt has moved the options to the front.
    std::vector<std::string> GetRest() const
    {
        std::vector<std::string> theRest(mPointers.begin() + optind, mPointers.end() - 1);
        if (mIsForProgram) {
            theRest.insert(theRest.begin(), mTexts.front());
        }
        return theRest;
    }

private:
    std::vector<std::string> mTexts;
    std::vector<char*> mPointers;
    // Run or ask, which takes the place of this program's name, so that no option stands before it.
    bool mIsForProgram;
};

const CommandName* FindCommand(std::string_view theName)
{
    const auto* const theFound =
        std::find_if(kCommands.begin(), kCommands.end(),
                     [&](const CommandName& theCommand) { return theCommand.theName == theName; });
    return theFound == kCommands.end() ? nullptr : theFound;
}

// OBJECT.KEY, perhaps behind "not". What is left is the journal.
void TakeTarget(std::vector<std::string>& theRest, Options& theOptions)
{
    if (!theRest.empty() && theRest.front() == "not") {
        theOptions.theCommand = Command::WhyNot;
        theRest.erase(theRest.begin());
    }
    if (theRest.empty() || theRest.size() > 2) {
        theOptions.theError = "why takes OBJECT.KEY and a journal";
    } else if (theOptions.theCommand == Command::WhyNot && theOptions.theTime != 0) {
        theOptions.theError = "why not has no option --nth";
    } else {
        theOptions.theTarget = theRest.front();
        theRest.erase(theRest.begin());
    }
}

// A program to run with its arguments, or one that runs already. To attach to none of them, or to ask none,
// lists them.
void TakeProgram(Command theCommand, const std::vector<std::string>& theRest, Options& theOptions)
{
    const bool isThere = !theRest.empty() && !theRest.front().empty();
    if (theCommand == Command::Run && !isThere) {
        theOptions.theError = "run takes a program and its arguments";
    } else if (theCommand == Command::Attach && theRest.size() > 1) {
        theOptions.theError = "attach takes one program";
    } else if (theCommand == Command::Detach && (!isThere || theRest.size() > 1)) {
        theOptions.theError = "detach takes a program";
    }
    theOptions.theProgram = theRest;
}

// What stands behind the command.
void TakeOperands(const CommandName& theCommand, std::vector<std::string> theRest, Options& theOptions)
{
    if (theCommand.theCommand >= Command::Run) {
        TakeProgram(theCommand.theCommand, theRest, theOptions);
        return;
    }
    if (theCommand.theCommand == Command::Why) {
        TakeTarget(theRest, theOptions);
    } else if (theCommand.theCommand == Command::Diff) {
        if (theRest.size() != 2) {
            theOptions.theError = "diff takes two journals";
            return;
        }
        theOptions.theOtherJournal = theRest.back();
        theRest.pop_back();
    } else if (theRest.size() > 1) {
        theOptions.theError = std::string(theCommand.theName) + " takes one journal";
    }
    theOptions.theJournal = theRest.empty() ? "-" : theRest.front();
}

void TakeCommand(const std::vector<std::string>& theRest, const std::vector<int>& theLetters,
                 Options& theOptions)
{
    if (theRest.empty()) {
        theOptions.theError = "which command? " + JoinWithOr(CommandNames());
        return;
    }
    const CommandName* const theCommand = FindCommand(theRest.front());
    if (theCommand == nullptr) {
        theOptions.theError =
            "there is no command " + Escape(theRest.front()) + DidYouMean(theRest.front(), CommandNames());
        return;
    }
    for (const int theLetter : theLetters) {
        if (theCommand->theLetters.find(static_cast<char>(theLetter)) == std::string_view::npos) {
            theOptions.theError =
                std::string(theCommand->theName) + " has no option " + NameOfLetter(theLetter);
            return;
        }
    }
    theOptions.theCommand = theCommand->theCommand;
    TakeOperands(*theCommand, {theRest.begin() + 1, theRest.end()}, theOptions);
}

} // namespace

bool ReadSeconds(const std::string& theText, std::uint64_t& theTime)
{
    char* theEnd = nullptr;
    const double theSeconds = std::strtod(theText.c_str(), &theEnd);
    if (theText.empty() || *theEnd != '\0' || !(theSeconds >= 0) || theSeconds > 1e10) {
        return false;
    }
    theTime = static_cast<std::uint64_t>(std::llround(theSeconds * 1e9));
    return true;
}

bool ReadCount(const std::string& theText, std::uint64_t& theCount)
{
    if (theText.empty() || theText.size() > 18 ||
        theText.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    theCount = std::strtoull(theText.c_str(), nullptr, 10);
    return theCount > 0;
}

namespace {

Options ReadLine(const std::vector<std::string>& theArguments)
{
    Options theOptions;
    Scanner theScanner(theArguments);
    std::vector<int> theLetters;
    for (int theLetter = theScanner.Next(); theLetter != -1; theLetter = theScanner.Next()) {
        if (theLetter == '?' || theLetter == ':') {
            theOptions.theError = theScanner.GetBad(theLetter);
            return theOptions;
        }
        if (theLetter == kHelp || theLetter == kVersion) {
            theOptions.theCommand = theLetter == kHelp ? Command::Help : Command::Version;
            return theOptions;
        }
        theLetters.push_back(theLetter);
        theOptions.theError = TakeOption(theLetter, optarg == nullptr ? "" : optarg, theOptions);
        if (!theOptions.theError.empty()) {
            return theOptions;
        }
    }
    TakeCommand(theScanner.GetRest(), theLetters, theOptions);
    return theOptions;
}

std::vector<std::string> WordsOf(const std::string& theText)
{
    std::istringstream theStream(theText);
    return {std::istream_iterator<std::string>(theStream), std::istream_iterator<std::string>()};
}

// A command line as it would stand behind lminspect, for a journal that is not there yet. What why is asked
// of may have blanks in it, so it is the rest of the line.
std::string ReadQuestion(std::vector<std::string>& theQuestion)
{
    theQuestion = WordsOf(theQuestion.front());
    const std::size_t theTarget = theQuestion.size() > 1 && theQuestion[1] == "not" ? 2 : 1;
    if (theQuestion.size() > theTarget + 1 && theQuestion.front() == "why" &&
        theQuestion[theTarget].front() != '-') {
        for (std::size_t theIndex = theTarget + 1; theIndex < theQuestion.size(); ++theIndex) {
            theQuestion[theTarget] += " " + theQuestion[theIndex];
        }
        theQuestion.resize(theTarget + 1);
    }
    const Options theOptions = ReadOptions(theQuestion);
    if (!theOptions.theError.empty()) {
        return theOptions.theError;
    }
    const bool isOfAJournal =
        theOptions.theCommand == Command::Log || theOptions.theCommand == Command::Why ||
        theOptions.theCommand == Command::WhyNot || theOptions.theCommand == Command::Graph ||
        theOptions.theCommand == Command::Lint || theOptions.theCommand == Command::Page;
    return isOfAJournal && theOptions.theJournal == "-"
               ? std::string()
               : "--command takes a command without a journal, such as lint";
}

} // namespace

Options ReadOptions(const std::vector<std::string>& theArguments)
{
    Options theOptions = ReadLine(theArguments);
    if (theOptions.theError.empty() && !theOptions.theQuestion.empty()) {
        theOptions.theError = ReadQuestion(theOptions.theQuestion);
    }
    return theOptions;
}

std::string GetUsage()
{
    return "usage: lminspect log [OPTION]... [JOURNAL]\n"
           "       lminspect why [--nth=N] OBJECT.KEY [JOURNAL]\n"
           "       lminspect why not OBJECT.KEY [JOURNAL]\n"
           "       lminspect graph [--at=N] [--dot] [JOURNAL]\n"
           "       lminspect page [-o FILE] [JOURNAL]\n"
           "       lminspect lint [JOURNAL]\n"
           "       lminspect diff JOURNAL JOURNAL\n"
           "       lminspect run [OPTION]... PROGRAM [ARGUMENT]...\n"
           "       lminspect attach [OPTION]... [PROGRAM]\n"
           "       lminspect detach PROGRAM\n"
           "       lminspect ask [PROGRAM [QUESTION]...]\n"
           "\n"
           "Answers why a value moved, or did not, from the journal of a program that uses\n"
           "LmBindings (LM_JOURNAL=FILE ./program). JOURNAL is a file; - or nothing is the\n"
           "standard input.\n"
           "\n"
           "log: what happened, as a tree; what an entry led to stands below it\n"
           "  --object=NAME   only of this object: its name or class, with * and ?, or #3\n"
           "  --key=NAME      only of this key; * and ? may stand in it\n"
           "  --kind=KIND,... only entries of these kinds, as the journal calls them\n"
           "  --caller=TEXT   only calls made from a function or file with this in its name\n"
           "  --since=SECONDS, --until=SECONDS\n"
           "                  only what happened at that time; 0 is where the journal begins\n"
           "  --all           also what is of interest only to who looks closely\n"
           "  --causes        also what led to the entries that are shown\n"
           "  --callers       with the function and line that made the call\n"
           "\n"
           "why: how a key got its value, back to a person's action or a line of code\n"
           "  --nth=N         its N-th value instead of the last one\n"
           "\n"
           "why not: what a key follows, and what kept a change from it\n"
           "\n"
           "graph: a picture (SVG) of the objects, their keys and bindings\n"
           "  --at=N          as it was at entry N\n"
           "  --dot           in Graphviz's language instead\n"
           "\n"
           "page: a page for a browser: the graph, to be stepped through, with all causes\n"
           "  -o, --output=FILE\n"
           "                  into this file instead of the standard output\n"
           "\n"
           "lint: what is probably wrong in the program\n"
           "\n"
           "diff: the first place where two journals of the same session part\n"
           "\n"
           "run: starts a program and shows its log while it runs\n"
           "  --command=COMMAND\n"
           "                  the answer to this instead: 'why radio.volume', lint\n"
           "  -o, --output=FILE\n"
           "                  keeps the journal in FILE instead of showing it\n"
           "  and the options of log\n"
           "\n"
           "attach: shows the log of a program that runs already and was started with\n"
           "        LM_JOURNAL_SOCKET=1, until Ctrl+C; without a program, lists those that there are\n"
           "  -o, --output=FILE\n"
           "                  lets it write its journal to FILE instead, until detach\n"
           "  and the options of log\n"
           "\n"
           "detach: ends the journal that attach has begun\n"
           "\n"
           "ask: asks a program that runs and was started with LM_INSPECTOR=1: objects,\n"
           "     keys OBJECT, bound OBJECT, why OBJECT.KEY, changes, set OBJECT.KEY VALUE, help\n"
           "\n"
           "OBJECT is a name, a class, or a number as #3.\n"
           "\n"
           "  -h, --help      prints this\n"
           "  -V, --version   prints the version\n"
           "\n"
           "The status is 0 when all went well, 1 when lint or diff have found something, and\n"
           "2 when the question could not be answered.\n";
}

} // namespace Inspect
