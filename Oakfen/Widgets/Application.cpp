#include "Oakfen/Widgets/Application.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QSessionManager>
#include <QTextStream>

#include "Oakfen/Platform/QtPanels.h"
#include "Oakfen/Platform/QtScheduler.h"
#include "Oakfen/Platform/SingleInstance.h"
#include "Oakfen/Platform/UnixSignals.h"
#include "Oakfen/TerminationFlow.h"
#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/MainWindow.h"
#include "Oakfen/Widgets/Theme.h"
#include "Oakfen/Widgets/Tour.h"
#include "OakfenCore/LibraryStore/DataFileChoice.h"
#include "OakfenCore/Platform/FileUserDefaults.h"
#include "OakfenCore/Platform/InMemoryLegacyKeyStore.h"
#include "OakfenCore/Platform/InMemoryPasswordStore.h"

namespace oakfen {

namespace {

/// The long-lived objects in the order in which they are made, and how they hang together.
class Program {
public:
    Program(const DataFileChoice& choice, SingleInstance& instance)
        : store_(
              choice.path,
              LibraryStoreServices{files_, scheduler_, clock_, defaults_, passwords_, legacyKeys_},
              choice.choiceKey),
          appState_(defaults_), environment_{store_, appState_,  panels_, defaults_,
                                             clock_, scheduler_, files_},
          termination_(environment_, [] { QCoreApplication::exit(0); }),
          window_(environment_, [this] { termination_.requestQuit(); }),
          signals_([this] { termination_.quitWithoutAsking(); }) {
        panels_.setWindow(&window_);
        instance.listen([this] { window_.present(); });
        // A session that ends may not wait for an answer, but a save is quick.
        QObject::connect(qApp, &QGuiApplication::commitDataRequest, &window_,
                         [this](QSessionManager&) { store_.saveNow(); });
        window_.show();
    }

private:
    FileSystem& files_ = systemFiles();
    SystemClock clock_;
    FileUserDefaults defaults_{files_, FileUserDefaults::defaultFilePath()};
    QtScheduler scheduler_;
    // Nothing is encrypted yet, so there is nothing to remember beyond the program's life.
    InMemoryPasswordStore passwords_;
    InMemoryLegacyKeyStore legacyKeys_;
    LibraryStore store_;
    AppState appState_;
    QtPanels panels_;
    AppEnvironment environment_;
    TerminationFlow termination_;
    MainWindow window_;
    UnixSignals signals_;
};

/// What the person asked for when starting the program.
struct Arguments {
    std::optional<std::string> file;
    /// Render pictures of every screen into this folder instead of opening the window.
    std::optional<std::string> tourFolder;
};

/// Reads the arguments. Ends the program after `--help` and `--version`.
Arguments readArguments(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Personal finance, kept on your own computer."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption tour(QStringLiteral("tour"),
                                  QStringLiteral("Render every screen into DIR and end."),
                                  QStringLiteral("DIR"));
    parser.addOption(tour);
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("The data file to open; your own by default."),
                                 QStringLiteral("[FILE]"));
    parser.process(application);
    Arguments arguments;
    const QStringList names = parser.positionalArguments();
    if (!names.isEmpty()) {
        arguments.file = utf8(names.first());
    }
    if (parser.isSet(tour)) {
        arguments.tourFolder = utf8(parser.value(tour));
    }
    return arguments;
}

int runTour(const std::string& folder, const std::optional<std::string>& file) {
    try {
        renderTour(folder, file);
        return 0;
    } catch (const LocalizedError& error) {
        QTextStream(stderr) << qt(error.localizedDescription()) << Qt::endl;
        return 1;
    }
}

} // namespace

int runApplication(int& argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    QCoreApplication::setApplicationName(QStringLiteral("Oakfen"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OAKFEN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("oakfen"));
    // Closing the window asks first; the event loop ends when that has been settled.
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const Arguments given = readArguments(application);
    if (given.tourFolder) {
        Theme::apply(*qApp);
        return runTour(*given.tourFolder, given.file);
    }
    const DataFileChoice choice =
        dataFileChoice(systemFiles(), given.file, utf8(QDir::currentPath()));
    SingleInstance instance(choice.path);
    if (!instance.isFirst()) {
        instance.raiseFirst();
        return 0;
    }
    Theme::apply(*qApp);
    const Program program(choice, instance);
    return QApplication::exec();
}

} // namespace oakfen
