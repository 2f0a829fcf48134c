#include "AppState.h"
#include "Application.h"
#include "CommandLine.h"
#include "DataFile.h"
#include "DataLock.h"
#include "FileImport.h"
#include "HelperProcess.h"
#include "ImportFiles.h"
#include "InstanceService.h"
#include "OfflineCommands.h"
#include "PickReport.h"
#include "Platform.h"
#include "PlatformFactory.h"
#include "Preferences.h"
#include "ProcessSetup.h"
#include "RunningInstance.h"
#include "SinglePick.h"
#include "StandardStreams.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <cstdlib>
#include <utility>
#include <variant>

namespace {

using namespace tintwick;
using namespace Qt::StringLiterals;

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QFile::decodeName(argv[i]));
    }
    return arguments;
}

/// Prints the reason and returns null on a desktop that we do not support. Must come before the toolkit, which would end
/// the process with a message of its own.
std::unique_ptr<Platform> connectToDesktop()
{
    QString whyNot;
    std::unique_ptr<Platform> platform = createPlatform(whyNot);
    if (!platform) {
        printError(whyNot);
    }
    return platform;
}

/// Nothing of the user is stored here.
bool isFirstStart()
{
    return !QFileInfo::exists(DataFile().fileURL().toLocalFile()) &&
           !QFileInfo::exists(Preferences::pathOfUser());
}

/// Asked before the program stores anything.
Application::SelfOpening selfOpening(const Invocation& invocation)
{
    if (invocation.command != CommandId::Start || invocation.isBackground) {
        return Application::SelfOpening::Never;
    }
    return isFirstStart() ? Application::SelfOpening::AsGreeting : Application::SelfOpening::WithoutTray;
}

QStringList filesOf(const Invocation& invocation)
{
    QStringList paths;
    for (const QString& path : invocation.arguments) {
        paths.append(QFileInfo(path).absoluteFilePath());
    }
    return paths;
}

/// Lets the running program do what this one was started for. Returns false when it does not answer.
bool handOver(const Invocation& invocation)
{
    const RunningInstance running;
    if (invocation.command == CommandId::Settings) {
        return running.activateAction(u"settings"_s);
    }
    return invocation.arguments.isEmpty() ? running.activate() : running.open(filesOf(invocation));
}

/// Starts the program, or hands the command over to the one that runs.
int start(int argc, char** argv, const Invocation& invocation)
{
    ignoreSilentSessionBus();
    std::unique_ptr<Platform> platform = connectToDesktop();
    if (!platform) {
        return EXIT_FAILURE;
    }
    QApplication toolkit(argc, argv);
    Application::setUpToolkit();
    InstanceService instance;
    if (instance.claim() == InstanceService::Claim::Taken) {
        if (invocation.isBackground) {
            return EXIT_SUCCESS;
        }
        return handOver(invocation) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    DataLock lock(QFileInfo(DataFile().fileURL().toLocalFile()).path());
    if (!lock.acquire()) {
        printError(u"tintwick: another Tintwick uses the same data"_s);
        return EXIT_FAILURE;
    }
    const Application::SelfOpening opening = selfOpening(invocation);
    Application application(std::move(platform), instance);
    application.start(opening);
    switch (invocation.command) {
    case CommandId::Panel:
        application.openPanel();
        break;
    case CommandId::Settings:
        application.openSettingsWindow();
        break;
    default:
        if (!invocation.arguments.isEmpty()) {
            application.openFiles(filesOf(invocation));
        }
        break;
    }
    return QApplication::exec();
}

int pick(int argc, char** argv, const Invocation& invocation)
{
    const PickRequest request{.count = invocation.count,
                              .format = invocation.format ? rawValue(*invocation.format) : QString(),
                              .copies = invocation.copies,
                              .saves = invocation.saves};
    ignoreSilentSessionBus();
    {
        // Starts much faster than the toolkit.
        const QCoreApplication core(argc, argv);
        if (const auto answer = RunningInstance().pick(request)) {
            return report(*answer, invocation);
        }
        // A new connection to the session bus delivers its signals after the first turn of the event loop of the
        // application object that exists then, and never when that object is gone before.
        QCoreApplication::processEvents();
    }
    std::unique_ptr<Platform> platform = connectToDesktop();
    if (!platform) {
        return exitNotPossible;
    }
    const QApplication toolkit(argc, argv);
    Application::setUpToolkit();
    return report(pickAlone(request, std::move(platform)), invocation);
}

/// Lets the running program import the files, which it shows, or imports them here.
int import(int argc, char** argv, const Invocation& invocation)
{
    ignoreSilentSessionBus();
    const QCoreApplication core(argc, argv);
    QStringList paths;
    for (const QString& path : invocation.arguments) {
        const Import result = importFile(path);
        if (const auto* problem = std::get_if<ImportProblem>(&result)) {
            printError(u"tintwick: %1 cannot be imported: %2"_s.arg(path, problem->sentence));
            return EXIT_FAILURE;
        }
        paths.append(QFileInfo(path).absoluteFilePath());
    }
    const RunningInstance running;
    if (running.isThere()) {
        return running.open(paths) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    DataLock lock(QFileInfo(DataFile().fileURL().toLocalFile()).path());
    if (!lock.acquire()) {
        printError(u"tintwick: another Tintwick uses the same data"_s);
        return EXIT_FAILURE;
    }
    AppState state;
    std::optional<QString> problem = importFiles(state, paths);
    state.flush();
    if (!problem && !state.saveProblem().isEmpty()) {
        problem = state.saveProblem();
    }
    if (problem) {
        printError(u"tintwick: "_s + *problem);
    }
    return problem ? EXIT_FAILURE : EXIT_SUCCESS;
}

int quit(int argc, char** argv)
{
    ignoreSilentSessionBus();
    const QCoreApplication core(argc, argv);
    const RunningInstance running;
    return !running.isThere() || running.activateAction(u"quit"_s) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    setUpProcess();
    if (const auto status = runHelperProcess(argc, argv)) {
        return *status;
    }
    const auto commandLine = parseCommandLine(argumentsOf(argc, argv));
    if (const auto* error = std::get_if<UsageError>(&commandLine)) {
        printError(error->text);
        return exitUsage;
    }
    if (const auto* information = std::get_if<InformationRequest>(&commandLine)) {
        return writeToStandardOutput(information->text.toUtf8()) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    const auto& invocation = std::get<Invocation>(commandLine);
    switch (invocation.command) {
    case CommandId::Start:
    case CommandId::Panel:
    case CommandId::Settings:
        return start(argc, argv, invocation);
    case CommandId::Pick:
        return pick(argc, argv, invocation);
    case CommandId::Import:
        return import(argc, argv, invocation);
    case CommandId::Quit:
        return quit(argc, argv);
    case CommandId::Convert:
    case CommandId::History:
    case CommandId::Palettes:
    case CommandId::Palette:
    case CommandId::Export:
        return runOffline(invocation);
    }
    Q_UNREACHABLE();
}
