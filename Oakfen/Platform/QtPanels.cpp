#include "Oakfen/Platform/QtPanels.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "Oakfen/Platform/DesktopBus.h"
#include "Oakfen/Widgets/Components/MessageBox.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

/// "Statements (*.csv *.CSV)": some file dialogs tell capitals from small letters.
QString nameFilter(const std::string& name, const std::vector<std::string>& extensions) {
    QStringList patterns;
    for (const std::string& extension : extensions) {
        patterns << QStringLiteral("*.") + qt(extension)
                 << QStringLiteral("*.") + qt(extension).toUpper();
    }
    return qt(name) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

/// Where the folder of that kind is remembered in the state of the windows.
QString stateKey(PanelFiles files) {
    switch (files) {
    case PanelFiles::statements:
        return QStringLiteral("Folders/Statements");
    case PanelFiles::exports:
        return QStringLiteral("Folders/Exports");
    case PanelFiles::backups:
        return QStringLiteral("Folders/Backups");
    }
    return {};
}

/// Where the last file of the kind was. Else a browser's downloads for what comes from a bank, and
/// documents for what is made here; the home folder where there is no such place.
QString startFolder(PanelFiles files) {
    using Paths = QStandardPaths;
    QStringList places{windowState::value(stateKey(files)).toString()};
    if (files == PanelFiles::statements) {
        places << Paths::writableLocation(Paths::DownloadLocation);
    }
    places << Paths::writableLocation(Paths::DocumentsLocation);
    for (const QString& place : places) {
        if (!place.isEmpty() && QDir(place).exists()) {
            return place;
        }
    }
    return QDir::homePath();
}

void addMessage(QFileDialog* dialog, const std::string& message) {
    auto* grid = qobject_cast<QGridLayout*>(dialog->layout());
    if (grid == nullptr || message.empty()) {
        return;
    }
    auto* label = new QLabel(qt(message), dialog);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    grid->addWidget(label, grid->rowCount(), 0, 1, grid->columnCount());
}

/// Not the desktop's own.
bool isOurs(const QFileDialog* dialog) {
    return dialog->layout() != nullptr;
}

/// Wide enough for names, dates and sizes beside each other. Does nothing to the desktop's own.
void dress(QFileDialog* dialog) {
    auto* details = dialog->findChild<QTreeView*>(QStringLiteral("treeView"));
    if (details == nullptr) {
        return;
    }
    constexpr QSize usualSize(920, 560);
    constexpr int placesWidth = 180;
    dialog->resize(usualSize);
    dialog->setViewMode(QFileDialog::Detail);
    details->header()->setStretchLastSection(false);
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    if (auto* places = dialog->findChild<QSplitter*>(QStringLiteral("splitter"))) {
        places->setSizes({placesWidth, usualSize.width() - placesWidth});
    }
    details->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

} // namespace

void QtPanels::setWindow(QWidget* window) {
    window_ = window;
    window->installEventFilter(this);
}

bool QtPanels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowUnblocked && !isAsking()) {
        ended.notify();
    }
    return QObject::eventFilter(watched, event);
}

QWidget* QtPanels::parentWindow() const {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : window_.data();
}

QFileDialog* QtPanels::makeFileDialog(const std::string& title, PanelFiles files,
                                      const std::string& message) const {
    // The folder belongs in here: a dialog without one begins in the program's working directory.
    auto* dialog = new QFileDialog(parentWindow(), qt(title), startFolder(files));
    // The desktop's own has no room for a message.
    if (!message.empty() || !desktopBus::hasFileDialogs()) {
        dialog->setOption(QFileDialog::DontUseNativeDialog);
    }
    // "Statements" instead of every ending in small letters and capitals, cut off.
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dress(dialog);
    addMessage(dialog, message);
    return dialog;
}

void QtPanels::run(QFileDialog* dialog, PanelFiles files,
                   std::function<void(std::optional<std::string>)> then) {
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(
        dialog, &QDialog::finished, dialog, [dialog, files, then = std::move(then)](int result) {
            const QStringList chosen = dialog->selectedFiles();
            if (result != QDialog::Accepted || chosen.isEmpty()) {
                then(std::nullopt);
                return;
            }
            const QFileInfo first(chosen.first());
            windowState::setValue(stateKey(files), dialog->fileMode() == QFileDialog::Directory
                                                       ? first.absoluteFilePath()
                                                       : first.absolutePath());
            then(utf8(chosen.first()));
        });
    dialog->open();
}

void QtPanels::openFile(const OpenPanelRequest& request,
                        std::function<void(std::optional<std::string>)> then) {
    QFileDialog* dialog = makeFileDialog(request.title, request.files, request.message);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(
        {nameFilter(request.extensionsName, request.extensions), QStringLiteral("All Files (*)")});
    run(dialog, request.files, std::move(then));
}

void QtPanels::openFolder(const FolderPanelRequest& request,
                          std::function<void(std::optional<std::string>)> then) {
    QFileDialog* dialog = makeFileDialog(request.title, request.files, request.message);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, qt(request.confirmTitle));
    run(dialog, request.files, std::move(then));
}

void QtPanels::saveFile(const SavePanelRequest& request,
                        std::function<void(std::optional<std::string>)> then) {
    QFileDialog* dialog = makeFileDialog(request.title, request.files, {});
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(
        {nameFilter(request.extensionName, {request.extension}), QStringLiteral("All Files (*)")});
    dialog->selectFile(qt(request.suggestedName));
    if (isOurs(dialog)) {
        dialog->setDefaultSuffix(qt(request.extension));
        run(dialog, request.files, std::move(then));
        return;
    }
    // The desktop has asked about the name as it was typed, not about one with an extension.
    run(dialog, request.files,
        [this, extension = request.extension,
         then = std::move(then)](const std::optional<std::string>& path) {
            if (!path || !QFileInfo(qt(*path)).suffix().isEmpty()) {
                then(path);
                return;
            }
            replaceIfWanted(*path + "." + extension, then);
        });
}

void QtPanels::replaceIfWanted(const std::string& path,
                               std::function<void(std::optional<std::string>)> then) {
    const QFileInfo file(qt(path));
    if (!file.exists()) {
        then(path);
        return;
    }
    confirm({.title = "Replace " + oakfen::quoted(utf8(file.fileName())) + "?",
             .message = "A file of that name is in the folder already.",
             .confirmTitle = "Replace",
             .isDestructive = true},
            [path, then = std::move(then)](bool isConfirmed) {
                then(isConfirmed ? std::optional(path) : std::nullopt);
            });
}

void QtPanels::confirm(const ConfirmationRequest& request, std::function<void(bool)> then) {
    choose(
        {.title = request.title,
         .message =
             request.subject.empty() ? request.message : request.message + "\n" + request.subject,
         .choices = {{request.confirmTitle, request.isDestructive}},
         .cancelTitle = request.cancelTitle},
        [then = std::move(then)](std::optional<std::size_t> choice) { then(choice.has_value()); });
}

void QtPanels::choose(const ChoiceRequest& request,
                      std::function<void(std::optional<std::size_t>)> then) {
    QMessageBox* box = makeMessageBox(parentWindow(), qt(request.title), qt(request.message));
    std::vector<QAbstractButton*> buttons;
    for (const ChoiceRequest::Choice& choice : request.choices) {
        // One role for all, so that the platform keeps our order.
        QPushButton* button = box->addButton(qt(choice.title), QMessageBox::AcceptRole);
        Theme::setTrait(*button, "destructive", choice.isDestructive);
        buttons.push_back(button);
    }
    QPushButton* cancel = box->addButton(qt(request.cancelTitle), QMessageBox::RejectRole);
    box->setEscapeButton(cancel);
    const bool firstIsSafe = !request.choices.front().isDestructive;
    box->setDefaultButton(firstIsSafe ? qobject_cast<QPushButton*>(buttons.front()) : cancel);
    QObject::connect(
        box, &QDialog::finished, box, [box, buttons, then = std::move(then)](int /*result*/) {
            const auto clicked = std::find(buttons.begin(), buttons.end(), box->clickedButton());
            if (clicked == buttons.end()) {
                then(std::nullopt);
            } else {
                then(static_cast<std::size_t>(clicked - buttons.begin()));
            }
        });
    box->open();
}

void QtPanels::showInFiles(const std::string& path) {
    desktopBus::showInFileManager(qt(path));
}

bool QtPanels::isAsking() const {
    return QApplication::activeModalWidget() != nullptr;
}

} // namespace oakfen
