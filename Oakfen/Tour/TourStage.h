#pragma once

#include <functional>
#include <string>

#include "Oakfen/Session.h"
#include "Oakfen/Widgets/Shell/MainWindow.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "OakfenCore/Testing/ManualScheduler.h"

class QPixmap;

namespace oakfen {

/// Panels that nobody answers.
class SilentPanels final : public Panels {
public:
    void openFile(const OpenPanelRequest&,
                  std::function<void(std::optional<std::string>)>) override {}
    void openFolder(const FolderPanelRequest&,
                    std::function<void(std::optional<std::string>)>) override {}
    void saveFile(const SavePanelRequest&,
                  std::function<void(std::optional<std::string>)>) override {}
    void confirm(const ConfirmationRequest&, std::function<void(bool)>) override {}
    void choose(const ChoiceRequest&, std::function<void(std::optional<std::size_t>)>) override {}
    void showInFiles(const std::string&) override {}
    [[nodiscard]] bool isAsking() const override { return false; }
};

/// A whole program in memory, with a window that is shown but belongs to nobody's files.
class TourStage {
public:
    /// Opens a data file of those bytes; an empty text stands for no file.
    explicit TourStage(const std::string& bytes);

    /// Opens the document as a person would who runs without a password.
    void show(Library document);

    /// Shows the pill of a work that goes on, without its delay.
    void showBusy(const std::string& message);

    /// Opens the search through all accounts and types that.
    void find(const std::string& term);

    /// The window as it looks now, with the sheet over it when one is open.
    [[nodiscard]] QPixmap picture();

    [[nodiscard]] LibraryStore& store() { return session_.environment().store; }
    [[nodiscard]] AppState& appState() { return session_.environment().appState; }
    [[nodiscard]] const Calendar& calendar() const { return calendar_; }
    [[nodiscard]] QWidget& window() { return window_; }

private:
    InMemoryFileSystem files_;
    SystemClock clock_;
    Calendar calendar_ = clock_.calendar();
    ManualScheduler scheduler_;
    KeptInMemory kept_;
    SilentPanels panels_;
    NoAuthenticator authenticator_;
    Session session_;
    MainWindow window_;
};

} // namespace oakfen
