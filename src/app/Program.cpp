#include "app/Program.h"

#include "app/CommandLine.h"
#include "app/DrawingChoice.h"
#include "app/ZolvaApp.h"
#include "async/Background.h"
#include "desktop/DesktopId.h"
#include "desktop/Display.h"
#include "desktop/SingleInstance.h"
#include "diagnostics/Log.h"
#include "platform/Environment.h"

#include <QGuiApplication>

#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace zolva {

namespace {

constexpr auto noDisplay = "zolva: there is no display to show a window on.\n"
                           "zolvactl answers the same questions in a terminal.\n";
constexpr auto brokenWindow = "zolva: the window cannot be made.\n";
constexpr auto silent = "zolva: Zolva is running already, and does not answer.\n";

/// A step of a removal under way gets this long to come to its end. One that takes longer, or waits
/// for a password, ends as at any sudden death: what was to be moved is whole in one place or the
/// other, and what is half deleted lies out of sight until the next sweep.
constexpr std::chrono::seconds lastStep{2};

/// Other threads that only read are not waited for.
[[noreturn]] void leave(int code)
{
    std::fflush(nullptr);
    std::_Exit(code);
}

[[noreturn]] void complain(const std::string& text, int code)
{
    std::fputs(text.c_str(), stderr);
    leave(code);
}

/// The toolkit ends the process where it can reach no display; so it does here, in plain words and
/// without a crash.
void tellNoDisplay(QtMsgType type, const QMessageLogContext& /*context*/,
                   const QString& /*message*/)
{
    if (type == QtFatalMsg) {
        complain(noDisplay, 1);
    }
}

std::vector<std::string> argumentsOf(int argc, char** argv)
{
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::unique_ptr<QGuiApplication> makeApplication(int& argc, char** argv)
{
    if (!hasDisplay()) {
        complain(noDisplay, 1);
    }
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QGuiApplication::setDesktopFileName(QString::fromLatin1(desktopId));
    const QtMessageHandler usual = qInstallMessageHandler(tellNoDisplay);
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(usual);
    QGuiApplication::setApplicationName(QStringLiteral("zolva"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // The application took over the user's locale; numbers stay as they are written everywhere.
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

std::unique_ptr<SingleInstance> claimPlace()
{
    auto place = systemSingleInstance();
    switch (place->claim(activationToken())) {
    case SingleInstance::Standing::First:
        break;
    case SingleInstance::Standing::FirstTold:
        leave(0);
    case SingleInstance::Standing::FirstSilent:
        complain(silent, 1);
    }
    return place;
}

int showAndWait(SingleInstance& place)
{
    logToSystem();
    logToTerminal();
    chooseDrawing();
    ZolvaApp zolva;
    if (!zolva.showWindow()) {
        complain(brokenWindow, 1);
    }
    QObject::connect(&place, &SingleInstance::asked, &zolva, &ZolvaApp::reopen);
    return QGuiApplication::exec();
}

} // namespace

void runProgram(int argc, char** argv)
{
    if (const auto answer = askedAnswer(argumentsOf(argc, argv))) {
        std::fputs(answer->c_str(), stdout);
        leave(0);
    }
    // From here on the toolkit may change it.
    keepEnvironment();
    const auto application = makeApplication(argc, argv);
    // What the toolkit knows is not among them any more.
    if (const auto complaint = complaintAbout(argumentsOf(argc, argv))) {
        complain(*complaint, 2);
    }
    std::unique_ptr<SingleInstance> place = claimPlace();
    const int code = showAndWait(*place);
    // Nobody is there to answer another start.
    place.reset();
    letStepsEnd(lastStep);
    leave(code);
}

} // namespace zolva
