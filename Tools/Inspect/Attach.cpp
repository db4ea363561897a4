// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Attach.h"

#include "Status.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <ostream>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace Inspect {

namespace {

// A program answers between two events of its main loop.
constexpr int kPatience = 5000;
constexpr std::size_t kLongestAnswer = 8192;

// How the sockets for a wish are called, and what is said where there is none.
struct WishText
{
    const char* theSuffix;
    const char* theDeed;
    const char* thePermission;
};

const WishText& TextOf(Wish theWish)
{
    static const WishText kJournal = {"", "be attached to",
                                      "LM_JOURNAL_SOCKET=1 in its environment allows it"};
    static const WishText kAnswer = {
        ".inspector", "be asked",
        "LM_INSPECTOR=1 in the environment of a program with the inspector allows it"};
    return theWish == Wish::Journal ? kJournal : kAnswer;
}

// Whether it is a folder that nobody but this user can look into or change.
bool IsPrivate(const std::string& thePath)
{
    struct stat theStatus = {};
    return ::lstat(thePath.c_str(), &theStatus) == 0 && S_ISDIR(theStatus.st_mode) &&
           theStatus.st_uid == ::geteuid() && (theStatus.st_mode & 077U) == 0;
}

// Where programs put their sockets; they find it in the same way. Empty when there is none.
std::string FindFolder()
{
    const std::string theUser = std::to_string(::geteuid());
    const char* const theVariable = std::getenv("XDG_RUNTIME_DIR");
    std::string theFolder = "/tmp/lminspect-" + theUser;
    for (const std::string& theRuntime :
         {std::string(theVariable != nullptr ? theVariable : ""), "/run/user/" + theUser}) {
        if (theRuntime.compare(0, 1, "/") == 0 && IsPrivate(theRuntime)) {
            theFolder = theRuntime + "/lminspect";
            break;
        }
    }
    return IsPrivate(theFolder) ? theFolder : std::string();
}

class Descriptor
{
public:
    explicit Descriptor(int theNumber)
        : mNumber(theNumber)
    {
    }
    ~Descriptor()
    {
        if (mNumber >= 0) {
            ::close(mNumber);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return mNumber; }
    FilePointer TakeFile()
    {
        FilePointer theFile(::fdopen(mNumber, "rb"));
        mNumber = theFile == nullptr ? mNumber : -1;
        return theFile;
    }

private:
    int mNumber;
};

bool Connect(const Descriptor& theSocket, const std::string& thePath)
{
    sockaddr_un theAddress = {};
    theAddress.sun_family = AF_UNIX;
    if (thePath.size() >= sizeof theAddress.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    thePath.copy(theAddress.sun_path, thePath.size());
    return ::connect(theSocket.Get(), reinterpret_cast<const sockaddr*>(&theAddress), sizeof theAddress) == 0;
}

// Whether the program at the other end belongs to this user.
bool IsOwnPeer(const Descriptor& theSocket)
{
    ucred thePeer = {};
    socklen_t theSize = sizeof thePeer;
    return ::getsockopt(theSocket.Get(), SOL_SOCKET, SO_PEERCRED, &thePeer, &theSize) == 0 &&
           thePeer.uid == ::geteuid();
}

// The next line, without its end; byte by byte, since what comes behind it is the journal. Empty when none
// comes.
std::string ReadAnswer(const Descriptor& theSocket)
{
    std::string theAnswer;
    pollfd theWait = {theSocket.Get(), POLLIN, 0};
    while (theAnswer.size() < kLongestAnswer && ::poll(&theWait, 1, kPatience) > 0) {
        char theByte = '\0';
        if (::recv(theSocket.Get(), &theByte, 1, 0) != 1) {
            return {};
        }
        if (theByte == '\n') {
            return theAnswer;
        }
        theAnswer += theByte;
    }
    return {};
}

// Asks the program for something. Returns what is wrong.
std::string Ask(const Descriptor& theSocket, const Running& theProgram, const std::string& theRequest)
{
    const std::string theName = theProgram.theProgram + " (" + theProgram.theProcess + ")";
    if (!Connect(theSocket, theProgram.theSocket)) {
        return theName + " cannot be reached: " + std::strerror(errno);
    }
    if (!IsOwnPeer(theSocket)) {
        return theName + " belongs to somebody else";
    }
    const std::string theLine = theRequest + "\n";
    if (::send(theSocket.Get(), theLine.data(), theLine.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(theLine.size())) {
        return theName + " does not listen: " + std::strerror(errno);
    }
    const std::string theAnswer = ReadAnswer(theSocket);
    if (theAnswer.empty()) {
        return theName + " does not answer: it is busy, or runs no event loop";
    }
    return theAnswer == "ok" ? std::string()
                             : theName + ": " + theAnswer.substr(theAnswer.compare(0, 3, "no ") == 0 ? 3 : 0);
}

Descriptor MakeSocket()
{
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

// Whether somebody listens there. A program that was killed leaves its socket, which goes now.
bool IsThere(const Running& theProgram)
{
    const Descriptor theSocket = MakeSocket();
    if (Connect(theSocket, theProgram.theSocket)) {
        return true;
    }
    if (errno == ECONNREFUSED) {
        ::unlink(theProgram.theSocket.c_str());
    }
    return false;
}

std::vector<Running> FindAll(Wish theWish)
{
    const std::string theFolder = FindFolder();
    return theFolder.empty() ? std::vector<Running>() : FindRunning(theFolder, theWish);
}

int Complain(const std::string& theProblem, std::ostream& theErrors)
{
    theErrors << "lminspect: " << Escape(theProblem) << "\n";
    return kTrouble;
}

int List(Wish theWish, std::ostream& theOutput, std::ostream& theErrors)
{
    std::vector<Running> thePrograms = FindAll(theWish);
    thePrograms.erase(std::remove_if(thePrograms.begin(), thePrograms.end(),
                                     [](const Running& theProgram) { return !IsThere(theProgram); }),
                      thePrograms.end());
    for (const Running& theProgram : thePrograms) {
        theOutput << theProgram.theProcess << "  " << Escape(theProgram.theProgram) << "\n";
    }
    std::string theProblem;
    ChooseRunning(thePrograms, "", theProblem, theWish);
    return thePrograms.empty() ? Complain(theProblem, theErrors) : kFine;
}

// The program writes the file, and stands in a folder of its own.
std::string WholePath(const std::string& thePath)
{
    std::array<char, PATH_MAX> theFolder = {};
    if (thePath.compare(0, 1, "/") == 0 || ::getcwd(theFolder.data(), theFolder.size()) == nullptr) {
        return thePath;
    }
    return std::string(theFolder.data()) + "/" + thePath;
}

// One line, whatever is in it.
std::string QuestionOf(const std::vector<std::string>& theWords)
{
    std::string theQuestion;
    for (std::size_t theIndex = 1; theIndex < theWords.size(); ++theIndex) {
        theQuestion += (theIndex > 1 ? " " : "") + theWords[theIndex];
    }
    std::replace(theQuestion.begin(), theQuestion.end(), '\n', ' ');
    return theQuestion;
}

// The lines up to the end, with their control characters written out: names are the program's.
void WriteRest(const Descriptor& theSocket, std::ostream& theOutput)
{
    std::string theText;
    std::array<char, 4096> theBytes = {};
    pollfd theWait = {theSocket.Get(), POLLIN, 0};
    while (::poll(&theWait, 1, kPatience) > 0) {
        const ssize_t theCount = ::recv(theSocket.Get(), theBytes.data(), theBytes.size(), 0);
        if (theCount <= 0) {
            break;
        }
        theText.append(theBytes.data(), static_cast<std::size_t>(theCount));
        for (std::size_t theEnd = theText.find('\n'); theEnd != std::string::npos;
             theEnd = theText.find('\n')) {
            theOutput << Escape(theText.substr(0, theEnd)) << "\n";
            theText.erase(0, theEnd + 1);
        }
    }
}

// How many callers are to be kept: as the environment says it for programs that are started.
std::string CountCallers(bool hasCallers)
{
    const char* const theVariable = std::getenv("LM_JOURNAL_CALLERS");
    return std::to_string(theVariable != nullptr ? std::strtoul(theVariable, nullptr, 10)
                          : hasCallers           ? 8UL
                                                 : 0UL);
}

} // namespace

std::vector<Running> FindRunning(const std::string& theFolder, Wish theWish)
{
    const std::string theSuffix = TextOf(theWish).theSuffix;
    struct CloseFolder
    {
        void operator()(DIR* theEntries) const { ::closedir(theEntries); }
    };
    const std::unique_ptr<DIR, CloseFolder> theEntries(::opendir(theFolder.c_str()));
    std::vector<Running> thePrograms;
    while (const dirent* const theEntry = theEntries != nullptr ? ::readdir(theEntries.get()) : nullptr) {
        const std::string theFile = theEntry->d_name;
        const std::size_t theEnd = theFile.size() - std::min(theSuffix.size(), theFile.size());
        const std::string theName = theFile.substr(theEnd) == theSuffix ? theFile.substr(0, theEnd) : "";
        const std::size_t theDot = theName.rfind('.');
        const std::string theProcess = theDot == std::string::npos ? "" : theName.substr(theDot + 1);
        if (theDot != 0 && !theProcess.empty() &&
            theProcess.find_first_not_of("0123456789") == std::string::npos) {
            thePrograms.push_back(
                {theName.substr(0, theDot), theProcess, std::string(theFolder).append("/").append(theFile)});
        }
    }
    std::sort(thePrograms.begin(), thePrograms.end(), [](const Running& theLeft, const Running& theRight) {
        return std::make_pair(theLeft.theProgram, theLeft.theProcess) <
               std::make_pair(theRight.theProgram, theRight.theProcess);
    });
    return thePrograms;
}

Running ChooseRunning(const std::vector<Running>& thePrograms, const std::string& theName,
                      std::string& theProblem, Wish theWish)
{
    const WishText& theText = TextOf(theWish);
    if (thePrograms.empty()) {
        theProblem = std::string("no program can ") + theText.theDeed + "; " + theText.thePermission;
        return {};
    }
    std::vector<Running> theFound;
    std::vector<std::string> theNames;
    std::vector<std::string> theProcesses;
    for (const Running& theProgram : thePrograms) {
        theNames.push_back(theProgram.theProgram);
        if (theProgram.theProgram == theName || theProgram.theProcess == theName) {
            theFound.push_back(theProgram);
            theProcesses.push_back(theProgram.theProcess);
        }
    }
    if (theFound.size() == 1) {
        return theFound.front();
    }
    if (theFound.empty()) {
        const std::vector<std::string> theNearest = NearestNames(theName, theNames);
        theProblem = std::string("no program that can ") + theText.theDeed + " is called " + theName +
                     (theNearest.empty() ? "" : "; did you mean " + JoinWithOr(theNearest) + "?");
    } else {
        theProblem =
            "several programs are called " + theName + ": which process? " + JoinWithOr(theProcesses);
    }
    return {};
}

int RunAttach(const AttachOptions& theOptions, const Question& ask, std::ostream& theOutput,
              std::ostream& theErrors)
{
    if (theOptions.theProgram.empty()) {
        return List(Wish::Journal, theOutput, theErrors);
    }
    std::string theProblem;
    const Running theProgram = ChooseRunning(FindAll(Wish::Journal), theOptions.theProgram, theProblem);
    if (!theProblem.empty()) {
        return Complain(theProblem, theErrors);
    }
    Descriptor theSocket = MakeSocket();
    const std::string theCallers = CountCallers(theOptions.hasCallers);
    const bool isFile = !theOptions.theOutput.empty();
    theProblem =
        Ask(theSocket, theProgram,
            isFile ? "write " + theCallers + " " + WholePath(theOptions.theOutput) : "attach " + theCallers);
    if (!theProblem.empty()) {
        return Complain(theProblem, theErrors);
    }
    if (isFile) {
        return kFine;
    }
    Journal theJournal(theSocket.TakeFile(), "the journal of " + theProgram.theProgram, theErrors);
    return ask(theJournal);
}

int RunDetach(const std::string& theName, std::ostream& theErrors)
{
    std::string theProblem;
    const Running theProgram = ChooseRunning(FindAll(Wish::Journal), theName, theProblem);
    if (theProblem.empty()) {
        theProblem = Ask(MakeSocket(), theProgram, "detach");
    }
    return theProblem.empty() ? kFine : Complain(theProblem, theErrors);
}

int RunAsk(const std::vector<std::string>& theWords, std::ostream& theOutput, std::ostream& theErrors)
{
    if (theWords.empty()) {
        return List(Wish::Answer, theOutput, theErrors);
    }
    std::string theProblem;
    const Running theProgram =
        ChooseRunning(FindAll(Wish::Answer), theWords.front(), theProblem, Wish::Answer);
    if (!theProblem.empty()) {
        return Complain(theProblem, theErrors);
    }
    Descriptor theSocket = MakeSocket();
    theProblem = Ask(theSocket, theProgram, QuestionOf(theWords));
    if (!theProblem.empty()) {
        return Complain(theProblem, theErrors);
    }
    WriteRest(theSocket, theOutput);
    return kFine;
}

} // namespace Inspect
