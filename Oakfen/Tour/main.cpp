#include <QCommandLineParser>
#include <QTextStream>

#include "Oakfen/Tour/Tour.h"
#include "Oakfen/Widgets/Shell/EventApplication.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

int main(int argumentCount, char** arguments) {
    oakfen::EventApplication application(argumentCount, arguments);
    QCoreApplication::setApplicationName(QStringLiteral("Oakfen"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Renders every screen of Oakfen into pictures."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("DIR"), QStringLiteral("Where the pictures go."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The data file to show."),
                                 QStringLiteral("[FILE]"));
    parser.process(application);
    const QStringList names = parser.positionalArguments();
    if (names.isEmpty()) {
        parser.showHelp(2);
    }
    oakfen::Theme::apply(application);
    try {
        oakfen::renderTour(oakfen::utf8(names.first()),
                           names.size() > 1 ? std::optional(oakfen::utf8(names.at(1)))
                                            : std::nullopt);
        return 0;
    } catch (const oakfen::LocalizedError& error) {
        QTextStream(stderr) << oakfen::qt(error.localizedDescription()) << Qt::endl;
        return 1;
    }
}
