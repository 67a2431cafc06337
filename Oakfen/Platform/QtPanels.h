#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "Oakfen/Panels.h"

class QFileDialog;

namespace oakfen {

/// The dialogs of the toolkit, modal to the window that has the sheet or the main screen. A file
/// panel without a message is the desktop's own where it has one. Each kind of file panel begins in
/// the folder of the last file of that kind, also after the next start of the program.
class QtPanels final : public QObject, public Panels {
public:
    /// The window that the panels belong to. Once only.
    void setWindow(QWidget* window);

    void openFile(const OpenPanelRequest& request,
                  std::function<void(std::optional<std::string>)> then) override;
    void openFolder(const FolderPanelRequest& request,
                    std::function<void(std::optional<std::string>)> then) override;
    void saveFile(const SavePanelRequest& request,
                  std::function<void(std::optional<std::string>)> then) override;
    void confirm(const ConfirmationRequest& request, std::function<void(bool)> then) override;
    void choose(const ChoiceRequest& request,
                std::function<void(std::optional<std::size_t>)> then) override;
    void showInFiles(const std::string& path) override;
    [[nodiscard]] bool isAsking() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QWidget* parentWindow() const;
    [[nodiscard]] QFileDialog* makeFileDialog(const std::string& title, PanelFiles files,
                                              const std::string& message) const;
    void run(QFileDialog* dialog, PanelFiles files,
             std::function<void(std::optional<std::string>)> then);
    /// Answers with the path, of a file that is there only if the person agrees to replace it.
    void replaceIfWanted(const std::string& path,
                         std::function<void(std::optional<std::string>)> then);

    QPointer<QWidget> window_;
};

} // namespace oakfen
