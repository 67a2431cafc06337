#pragma once

#include "Oakfen/Views/Register/FindView.h"
#include "Oakfen/Widgets/Components/EntriesPanel.h"

class QLineEdit;
class QMenu;

namespace oakfen {

class EntryTable;
class LedgerTable;
class RegisterFooterWidget;
class SearchField;

/// Draws the search through all accounts and hands its input to the view.
class FindWidget final : public EntriesPanel {
    Q_OBJECT

public:
    /// The term is where the search begins, and stays what was looked for last.
    FindWidget(AppEnvironment& environment, std::string& term, QWidget* parent = nullptr);
    ~FindWidget() override;

    [[nodiscard]] FindView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const;
    [[nodiscard]] QLineEdit* searchField() const;
    /// The context menu for these entries; the caller owns it.
    [[nodiscard]] std::unique_ptr<QMenu> makeContextMenu(const UUIDSet& ids);
    /// Moves the keyboard to the search, whose term the next letter replaces.
    void startSearch();

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpSearch();
    void setUpKeys();
    void showContent();
    /// Goes on in the table, at its first row where none is the current one.
    void enterTable();
    /// The entry that the keyboard is on, of those that are selected.
    void showInRegister();

    AppEnvironment& environment_;
    FindView view_;
    std::shared_ptr<const FindContent> content_;
    SearchField* search_;
    EntryTable* entries_;
    RegisterFooterWidget* footer_;
    Subscription changed_;
    /// Ends first: the menus ask the view for their lines as long as there is an offer.
    Subscription commands_;
};

} // namespace oakfen
