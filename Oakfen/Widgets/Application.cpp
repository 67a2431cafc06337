#include "Oakfen/Widgets/Application.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSessionManager>
#include <QTextStream>

#include "Oakfen/FileActions.h"
#include "Oakfen/ForeignFile.h"
#include "Oakfen/Platform/QtPanels.h"
#include "Oakfen/Platform/QtScheduler.h"
#include "Oakfen/Platform/SingleInstance.h"
#include "Oakfen/Platform/UnixSignals.h"
#include "Oakfen/Session.h"
#include "Oakfen/TerminationFlow.h"
#include "Oakfen/Widgets/Components/MessageBox.h"
#include "Oakfen/Widgets/Shell/EventApplication.h"
#include "Oakfen/Widgets/Shell/MainWindow.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/DesktopAppearance.h"
#include "Oakfen/Widgets/Theme/ProgramIcon.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"
#include "OakfenCore/LibraryStore/DataFileChoice.h"
#include "OakfenCore/Platform/FileUserDefaults.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"

namespace oakfen {

namespace {

/// Names the plugin by which the toolkit asks the desktop.
constexpr auto platformTheme = "QT_QPA_PLATFORMTHEME";

/// What a session works with on this machine, and what stands around it: the window, quitting, the
/// system's signals.
class Program {
public:
    /// Opens the file; without one, a sample household that touches nothing of the person's.
    explicit Program(const std::optional<DataFileChoice>& file)
        : session_(makeSession(file)),
          termination_(environment(), [] { QCoreApplication::exit(0); }),
          window_(environment(), [this] { termination_.requestQuit(); }),
          signals_([this] { termination_.quitWithoutAsking(); }) {
        panels_.setWindow(&window_);
        // A session that ends may not wait for an answer, but a save is quick.
        QObject::connect(qApp, &QGuiApplication::commitDataRequest, &window_,
                         [this](QSessionManager&) {
                             environment().store.saveNow();
                             environment().defaults.settle();
                         });
        window_.resize(window_.size().boundedTo(window_.roomOnScreen()));
        window_.show();
    }

    /// Brings the window to the front, and imports a statement if one is named.
    void present(const std::string& statementPath) {
        window_.present();
        if (!statementPath.empty()) {
            FileActions::importStatementWhenReady(environment(), statementPath);
        }
    }

private:
    AppEnvironment& environment() { return session_->environment(); }

    std::unique_ptr<Session> makeSession(const std::optional<DataFileChoice>& file) {
        if (!file) {
            windowState_.emplace();
            return Session::sample(services(kept_.defaults));
        }
        settings_ = std::make_unique<FileUserDefaults>(systemFiles(), scheduler_,
                                                       FileUserDefaults::defaultFilePath());
        return std::make_unique<Session>(services(*settings_), *file);
    }

    // Nothing is encrypted yet, so there is nothing to remember beyond the program's life.
    SessionServices services(UserDefaults& defaults) {
        return {
            {systemFiles(), scheduler_, clock_, defaults, kept_.passwordStore, kept_.legacyKeys},
            panels_,
            authenticator_};
    }

    SystemClock clock_;
    QtScheduler scheduler_;
    KeptInMemory kept_;
    std::optional<windowState::InMemory> windowState_;
    std::unique_ptr<FileUserDefaults> settings_;
    QtPanels panels_;
    NoAuthenticator authenticator_;
    std::unique_ptr<Session> session_;
    TerminationFlow termination_;
    MainWindow window_;
    UnixSignals signals_;
};

/// What the person asked for when starting the program.
struct Arguments {
    std::optional<std::string> file;
    /// Render pictures of every screen into this folder instead of opening the window.
    std::optional<QString> tourFolder;
    /// Open a sample household in memory instead of a file.
    bool wantsSample = false;
};

/// The argument as it was given: the name of a file may be no text at all.
std::string bytesOf(const QString& name, int argumentCount, char** raw) {
    for (int index = 1; index < argumentCount; ++index) {
        if (QString::fromLocal8Bit(raw[index]) == name) {
            return raw[index];
        }
    }
    return utf8(name);
}

/// Reads the arguments. Ends the program after `--help` and `--version`.
Arguments readArguments(const QApplication& application, int argumentCount, char** raw) {
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
        arguments.file = bytesOf(names.first(), argumentCount, raw);
    }
    if (parser.isSet(tour)) {
        arguments.tourFolder = parser.value(tour);
    }
    arguments.wantsSample = parser.isSet(sample);
    return arguments;
}

/// Leaves the pictures to the program that renders them, which lies beside this one.
int runTour(const QString& folder, const std::optional<std::string>& file) {
    const QString pictures =
        QCoreApplication::applicationDirPath() + QStringLiteral("/OakfenPictures");
    QStringList arguments{QStringLiteral("--"), folder};
    if (file) {
        arguments << QFile::decodeName(file->c_str());
    }
    const int code = QProcess::execute(pictures, arguments);
    if (code < 0) {
        QTextStream(stderr) << "Pictures are rendered by OakfenPictures, which can't be started."
                            << Qt::endl;
        return 1;
    }
    return code;
}

/// Says something before there is a window.
void tell(const QString& title, const std::string& message) {
    const std::unique_ptr<QMessageBox> box(makeMessageBox(nullptr, title, qt(message)));
    box->setAttribute(Qt::WA_DeleteOnClose, false);
    box->setStandardButtons(QMessageBox::Ok);
    box->exec();
}

/// Opens the file in a window, and imports a statement if one is named; raises the window that has
/// the file open already.
int runDataFile(const DataFileChoice& choice, const std::string& statementPath) {
    using AtTheEnd = DataFileLock::AtTheEnd;
    SingleInstance instance(choice.path, choice.isUsual() ? AtTheEnd::keep : AtTheEnd::remove);
    if (!instance.isFirst()) {
        const auto problem = instance.presentFirst(statementPath);
        if (problem) {
            tell(QStringLiteral("The data file is in use"), *problem);
        }
        return problem ? 1 : 0;
    }
    Program program(choice);
    if (!statementPath.empty()) {
        program.present(statementPath);
    }
    instance.listen([&](const std::string& path) { program.present(path); });
    return QApplication::exec();
}

/// Says what the file is, and offers to import it if it is a statement.
bool wantsImport(const ForeignFile& file) {
    if (!file.isStatement) {
        tell(qt(file.title), file.message);
        return false;
    }
    const std::unique_ptr<QMessageBox> box(
        makeMessageBox(nullptr, qt(file.title), qt(file.message)));
    box->setAttribute(Qt::WA_DeleteOnClose, false);
    QPushButton* import = box->addButton(QStringLiteral("Import…"), QMessageBox::AcceptRole);
    box->addButton(QStringLiteral("Quit"), QMessageBox::RejectRole);
    box->setDefaultButton(import);
    box->exec();
    return box->clickedButton() == import;
}

bool mayBeOpened(FileSystem& files, const std::string& path) {
    try {
        return isDataFile(files, path);
    } catch (const FileError&) {
        return false;
    }
}

/// Opens what was named: a data file as such, anything else not at all.
int runNamedFile(const std::optional<std::string>& name) {
    FileSystem& files = systemFiles();
    const std::string folder = utf8(QDir::currentPath());
    DataFileChoice choice = dataFileChoice(files, name, folder);
    if (!name || mayBeOpened(files, choice.path)) {
        return runDataFile(choice, "");
    }
    if (!wantsImport(describeForeignFile(files, choice.path))) {
        return 1;
    }
    return runDataFile(dataFileChoice(files, std::nullopt, folder), choice.path);
}

/// Has the toolkit ask the desktop for its file dialogs; all else stays as the desktop sets it, and
/// so does everything where the toolkit has no such plugin. Whether the environment was changed.
bool preferFileDialogsOfTheDesktop() {
    return hasSessionBus() && !qEnvironmentVariableIsSet(platformTheme) &&
           qputenv(platformTheme, "xdgdesktopportal");
}

} // namespace

int runApplication(int& argumentCount, char** arguments) {
    const bool isThemeOurs = preferFileDialogsOfTheDesktop();
    const EventApplication application(argumentCount, arguments);
    if (isThemeOurs) {
        // Or a file manager that is started from here would look as none does otherwise.
        qunsetenv(platformTheme);
    }
    QCoreApplication::setApplicationName(QStringLiteral("Oakfen"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OAKFEN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("oakfen"));
    QGuiApplication::setWindowIcon(programIcon());
    // Closing the window asks first; the event loop ends when that has been settled.
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const Arguments given = readArguments(application, argumentCount, arguments);
    if (given.tourFolder) {
        return runTour(*given.tourFolder, given.file);
    }
    Theme::apply(*qApp);
    if (given.wantsSample) {
        const Program program(std::nullopt);
        return QApplication::exec();
    }
    return runNamedFile(given.file);
}

} // namespace oakfen
