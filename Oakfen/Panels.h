#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// What files a panel is for. Each kind has a folder of its own, where the panel begins.
enum class PanelFiles { statements, exports, backups };

/// What a file panel asks for.
struct OpenPanelRequest {
    std::string title;
    std::string message;
    /// Extensions without the point; a panel also offers all files.
    std::vector<std::string> extensions;
    /// What the extensions are, for the panel's filter: "Statements".
    std::string extensionsName;
    PanelFiles files = PanelFiles::statements;
};

struct FolderPanelRequest {
    std::string title;
    std::string message;
    /// The button that takes the folder.
    std::string confirmTitle;
    PanelFiles files = PanelFiles::backups;
};

struct SavePanelRequest {
    std::string title;
    std::string suggestedName;
    std::string extension;
    std::string extensionName;
    PanelFiles files = PanelFiles::exports;
};

/// A question with a default answer that does nothing.
struct ConfirmationRequest {
    std::string title;
    std::string message;
    /// The button that goes ahead.
    std::string confirmTitle;
    bool isDestructive = false;
    std::string cancelTitle = "Cancel";
    /// Names the one record that the question is about, in a line under the message.
    std::string subject = {};
};

/// A question with several ways on, and one way back that does nothing.
struct ChoiceRequest {
    struct Choice {
        std::string title;
        bool isDestructive = false;
    };

    std::string title;
    std::string message;
    /// The first is the default.
    std::vector<Choice> choices;
    std::string cancelTitle = "Cancel";
};

/// The dialogs of the system, as an interface: the window shows them, tests answer for the person.
/// Each answer comes through the callback, on the main thread, at once or later; a panel that was
/// dismissed returns none.
class Panels {
public:
    virtual ~Panels() = default;

    virtual void openFile(const OpenPanelRequest& request,
                          std::function<void(std::optional<std::string> path)> then) = 0;
    /// Answers with a folder that is there; the person may make one in the panel.
    virtual void openFolder(const FolderPanelRequest& request,
                            std::function<void(std::optional<std::string> path)> then) = 0;
    virtual void saveFile(const SavePanelRequest& request,
                          std::function<void(std::optional<std::string> path)> then) = 0;
    virtual void confirm(const ConfirmationRequest& request,
                         std::function<void(bool confirmed)> then) = 0;
    /// Answers with the position of the choice.
    virtual void choose(const ChoiceRequest& request,
                        std::function<void(std::optional<std::size_t> choice)> then) = 0;

    /// Shows a file in the desktop's file manager.
    virtual void showInFiles(const std::string& path) = 0;

    /// Whether a dialog stands before the window and waits for the person: one of these, or
    /// another.
    [[nodiscard]] virtual bool isAsking() const = 0;

    /// Told after the last dialog before the window has gone.
    Observers<> ended;
};

} // namespace oakfen
