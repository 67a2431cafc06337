#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "Oakfen/Widgets/Shell/MainWindow.h"
#include "Tests/Support/TestEnvironment.h"

class QAction;

namespace oakfen::testing {

/// A person without a plan at a window on a small household: clicks, types, opens, closes, takes
/// back and waits, in an order that the seed decides.
class SoakDriver {
public:
    explicit SoakDriver(std::uint64_t seed);

    /// Does one thing.
    void act();
    /// What was done last, for telling how a failure came about.
    [[nodiscard]] std::string story() const;

    /// Throws when the document, its index and what is on the screen don't go together.
    void requireHealthy();
    /// Leaves every dialog the way a person would; throws when one stays.
    void closeEverything();
    /// Takes back all that can be taken back, and says how many steps that were.
    int undoEverything();
    void redo(int steps);

    [[nodiscard]] const Library& library() const { return test_.library(); }
    /// How often the document has changed.
    [[nodiscard]] int changes() const { return changes_; }
    /// The document as its file has it once the last save is through.
    [[nodiscard]] Library savedLibrary();

private:
    void triggerMenuItem();
    void pressKey();
    void clickButton();
    void typeIntoField();
    void chooseFromList();
    void goSomewhere();
    void clickRegister();
    void useRegisterMenu();
    void useSidebarMenu();
    void openSheet();
    void saveSheet();
    void letTimePass();
    void hearNews();

    [[nodiscard]] std::size_t below(std::size_t count) { return random_() % count; }
    template <typename Values>
    [[nodiscard]] const auto& oneOf(const Values& values) {
        return values[below(values.size())];
    }
    /// The question or the sheet that has the word now, if any.
    [[nodiscard]] QWidget* frontDialog();
    /// That one, else the window.
    [[nodiscard]] QWidget& front();
    template <typename Widget>
    [[nodiscard]] std::vector<Widget*> usable();
    [[nodiscard]] std::vector<QAction*> menuItems() const;
    [[nodiscard]] QAction* menuItem(const QString& verb) const;
    [[nodiscard]] std::string randomText();
    [[nodiscard]] std::string randomAmount();
    [[nodiscard]] std::string randomDate();
    void prepareAnswers();
    void note(const std::string& text) { notes_.push_back(text); }

    std::mt19937_64 random_;
    TestEnvironment test_;
    MainWindow window_;
    /// Closes popups that would wait for a person.
    QTimer impatience_;
    std::vector<std::string> notes_;
    int changes_ = 0;
    Subscription changed_;
};

} // namespace oakfen::testing
