#pragma once

#include <vector>

#include "Oakfen/Views/RegisterView.h"
#include "Oakfen/Widgets/Components/LedgerModel.h"

namespace oakfen {

/// The rows that a register shows, for a table.
class RegisterModel final : public LedgerModel {
    Q_OBJECT

public:
    RegisterModel(AppEnvironment& environment, const RegisterView& view, QObject* parent);

    /// Takes the view's present rows.
    void reload();

    [[nodiscard]] const std::vector<const RegisterRow*>& shown() const { return shown_; }
    [[nodiscard]] const UUID& idAt(int row) const;
    /// Where the entry is shown; -1 when it is not.
    [[nodiscard]] int rowOf(const UUID& id) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

protected:
    [[nodiscard]] Heading heading(int column) const override;
    [[nodiscard]] QStringList wholeTexts(int column) const override;

private:
    AppEnvironment& environment_;
    const RegisterView& view_;
    Calendar calendar_;
    std::vector<const RegisterRow*> shown_;
};

} // namespace oakfen
