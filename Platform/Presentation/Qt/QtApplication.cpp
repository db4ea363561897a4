// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtApplication.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <QAccessibleWidget>
#include <QApplication>
#include <QFile>
#include <QLibrary>
#include <QWidget>

namespace Host {

namespace {

// Qt ends the program when no platform plugin can be loaded, and says so in several lines.
bool gIsStarting = false;

// What a platform cannot do is no news for the reader of the program's error stream.
constexpr char kIncapable[] = "This plugin does not support";

void PrintMessage(QtMsgType theType, const QMessageLogContext&, const QString& theText)
{
    if (gIsStarting && theType == QtFatalMsg) {
        std::fputs("No windows can be shown: Qt has no working platform plugin for the display; "
                   "LM_PRESENTER=headless "
                   "runs the program without\n",
                   stderr);
        std::_Exit(EXIT_FAILURE);
    }
    if (!gIsStarting && !theText.startsWith(QLatin1String(kIncapable))) {
        std::fprintf(stderr, "%s\n", theText.toUtf8().constData());
    }
}

bool IsSet(const char* theVariable)
{
    return !qEnvironmentVariableIsEmpty(theVariable);
}

// Asks the X server itself: Qt would end the program if it did not answer. An X server may begin anew when
// its last client leaves it, and refuses others meanwhile; so the connection lasts as long as this object,
// which is to outlive the making of Qt's own.
class XServer
{
public:
    XServer() = default;
    ~XServer()
    {
        if (mConnection != nullptr) {
            mDisconnect(mConnection);
        }
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    // Without the X library, which only Qt's own plugin needs, Qt may find out.
    bool Answers()
    {
        QLibrary theLibrary(QStringLiteral("xcb"), 1);
        const auto theConnect = reinterpret_cast<Connect>(theLibrary.resolve("xcb_connect"));
        const auto theHasError = reinterpret_cast<HasError>(theLibrary.resolve("xcb_connection_has_error"));
        mDisconnect = reinterpret_cast<Disconnect>(theLibrary.resolve("xcb_disconnect"));
        if (theConnect == nullptr || theHasError == nullptr || mDisconnect == nullptr) {
            return true;
        }
        if (mConnection == nullptr) {
            mConnection = theConnect(nullptr, nullptr);
        }
        return theHasError(mConnection) == 0;
    }

private:
    struct Connection;
    using Connect = Connection* (*)(const char*, int*);
    using HasError = int (*)(Connection*);
    using Disconnect = void (*)(Connection*);

    Connection* mConnection = nullptr;
    Disconnect mDisconnect = nullptr;
};

// What Qt cannot be asked about beforehand it finds out by itself.
bool CanShowOn(const QByteArray& thePlatform, XServer& theServer)
{
    return !thePlatform.startsWith("xcb") || (IsSet("DISPLAY") && theServer.Answers());
}

bool HasDisplay(XServer& theServer)
{
    if (!IsSet("QT_QPA_PLATFORM")) {
        return IsSet("WAYLAND_DISPLAY") || CanShowOn("xcb", theServer);
    }
    // Several are tried one after the other.
    const QList<QByteArray> thePlatforms = qgetenv("QT_QPA_PLATFORM").split(';');
    return std::any_of(thePlatforms.begin(), thePlatforms.end(),
                       [&](const QByteArray& thePlatform) { return CanShowOn(thePlatform, theServer); });
}

// Qt takes the desktop's locale for the whole program, and numbers that the program prints would change their
// decimal point with it. Qt itself needs the encoding alone.
class LocaleKeeper
{
public:
    LocaleKeeper()
        : mLocale(std::setlocale(LC_ALL, nullptr))
    {
    }
    ~LocaleKeeper()
    {
        const std::string theEncoding = std::setlocale(LC_CTYPE, nullptr);
        std::setlocale(LC_ALL, mLocale.c_str());
        std::setlocale(LC_CTYPE, theEncoding.c_str());
    }
    LocaleKeeper(const LocaleKeeper&) = delete;
    LocaleKeeper& operator=(const LocaleKeeper&) = delete;

private:
    std::string mLocale;
};

// Qt takes a window that is nothing but a widget for a part of something else.
QAccessibleInterface* MakeWindowInterface(const QString& theClass, QObject* theObject)
{
    auto* const theWidget = qobject_cast<QWidget*>(theObject);
    if (theClass != QLatin1String("QWidget") || theWidget == nullptr || !theWidget->isWindow()) {
        return nullptr;
    }
    const bool theIsDialog = theWidget->windowType() == Qt::Dialog;
    return new QAccessibleWidget(theWidget, theIsDialog ? QAccessible::Dialog : QAccessible::Window);
}

// While the program ends, Qt has lost what it keeps for the thread, and nothing of it can be used. The
// application object itself cannot even be destroyed.
bool gIsEnding = false;

void NoteEnd()
{
    gIsEnding = true;
}

void MakeApplication()
{
    // The desktop calls the program by the name of its file.
    static QByteArray sName = QFile::symLinkTarget(QStringLiteral("/proc/self/exe")).toLocal8Bit();
    static char* sArguments[] = {sName.data(), nullptr};
    static int sCount = 1;
    const LocaleKeeper theKeeper;
    qInstallMessageHandler(PrintMessage);
    gIsStarting = true;
    // Never deleted: see gIsEnding.
    static const QApplication* const kApplication = new QApplication(sCount, sArguments);
    Q_UNUSED(kApplication);
    gIsStarting = false;
    QAccessible::installFactory(MakeWindowInterface);
    std::atexit(NoteEnd);
}

} // namespace

bool PrepareQtApplication()
{
    if (gIsEnding) {
        return false;
    }
    if (QCoreApplication::instance() == nullptr) {
        XServer theServer;
        if (!HasDisplay(theServer)) {
            return false;
        }
        MakeApplication();
    }
    // The managers decide when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
    return true;
}

bool HasQtApplication()
{
    return QCoreApplication::instance() != nullptr && !gIsEnding;
}

} // namespace Host
