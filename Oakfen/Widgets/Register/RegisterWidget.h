#pragma once

#include <QWidget>

#include "Oakfen/Views/Register/RegisterView.h"

class QLineEdit;
class QMenu;

namespace oakfen {

class EntryTable;
class LedgerTable;
class RegisterFooterWidget;
class RegisterHeaderWidget;
class RegisterNoticeWidget;

/// Draws the register of one account and hands its input to the view.
class RegisterWidget final : public QWidget {
    Q_OBJECT

public:
    RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent = nullptr);
    ~RegisterWidget() override;

    [[nodiscard]] RegisterView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const;
    [[nodiscard]] RegisterNoticeWidget* notice() const { return notice_; }
    [[nodiscard]] QLineEdit* searchField() const;
    /// The context menu for these entries; the caller owns it.
    [[nodiscard]] std::unique_ptr<QMenu> makeContextMenu(const UUIDSet& ids);

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    void showContent();
    void showEmptyState();
    /// Has the selection stay in sight, or what another choice shows begin at its top.
    void showPlace(const RegisterContent& earlier, bool wasInSight);

    AppEnvironment& environment_;
    RegisterView view_;
    std::shared_ptr<const RegisterContent> content_;
    RegisterHeaderWidget* header_;
    RegisterNoticeWidget* notice_;
    EntryTable* entries_;
    RegisterFooterWidget* footer_;
    bool awaitsFocus_ = false;
    Subscription changed_;
    Subscription sheetChanged_;
    /// Ends first: the menus ask the view for their lines as long as there is an offer.
    Subscription commands_;
};

} // namespace oakfen
