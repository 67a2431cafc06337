#include "Oakfen/Widgets/Application.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMessageBox>
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

using StoreMaker = std::function<std::unique_ptr<LibraryStore>(LibraryStoreServices)>;

/// The long-lived objects in the order in which they are made, and how they hang together.
class Program {
public:
    explicit Program(const StoreMaker& makeStore)
        : store_(makeStore({files_, scheduler_, clock_, defaults_, passwords_, legacyKeys_})),
          appState_(defaults_), environment_{*store_,    appState_, panels_,    defaults_, clock_,
                                             scheduler_, files_,    dayChange_, busyWork_},
          termination_(environment_, [] { QCoreApplication::exit(0); }),
          window_(environment_, [this] { termination_.requestQuit(); }),
          signals_([this] { termination_.quitWithoutAsking(); }) {
        panels_.setWindow(&window_);
        // A session that ends may not wait for an answer, but a save is quick.
        QObject::connect(qApp, &QGuiApplication::commitDataRequest, &window_,
                         [this](QSessionManager&) { store_->saveNow(); });
        window_.show();
    }

    /// Brings the window to the front.
    void present() { window_.present(); }

private:
    FileSystem& files_ = systemFiles();
    SystemClock clock_;
    FileUserDefaults defaults_{files_, FileUserDefaults::defaultFilePath()};
    QtScheduler scheduler_;
    DayChange dayChange_{clock_, scheduler_};
    // Nothing is encrypted yet, so there is nothing to remember beyond the program's life.
    InMemoryPasswordStore passwords_;
    InMemoryLegacyKeyStore legacyKeys_;
    std::unique_ptr<LibraryStore> store_;
    AppState appState_;
    BusyWork busyWork_{appState_, scheduler_};
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
    /// Open a sample household in memory instead of a file.
    bool wantsSample = false;
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
    const QCommandLineOption sample(
        QStringLiteral("sample"),
        QStringLiteral("Open a sample household to look around in; nothing is saved."));
    parser.addOptions({tour, sample});
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
    arguments.wantsSample = parser.isSet(sample);
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

/// Opens the file in a window; raises the window that has it open already.
int runDataFile(const DataFileChoice& choice) {
    using AtTheEnd = DataFileLock::AtTheEnd;
    SingleInstance instance(choice.path, choice.isUsual() ? AtTheEnd::keep : AtTheEnd::remove);
    Theme::apply(*qApp);
    if (!instance.isFirst()) {
        if (const auto problem = instance.presentFirst("")) {
            QMessageBox::warning(nullptr, QStringLiteral("Oakfen"), qt(*problem));
            return 1;
        }
        return 0;
    }
    Program program([&](LibraryStoreServices services) {
        return std::make_unique<LibraryStore>(choice.path, services, choice.choiceKey);
    });
    instance.listen([&](const std::string&) { program.present(); });
    return QApplication::exec();
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
    if (given.wantsSample) {
        Theme::apply(*qApp);
        const Program program(&LibraryStore::preview);
        return QApplication::exec();
    }
    return runDataFile(dataFileChoice(systemFiles(), given.file, utf8(QDir::currentPath())));
}

} // namespace oakfen
