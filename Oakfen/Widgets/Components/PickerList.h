#pragma once

#include <QListView>
#include <functional>
#include <optional>
#include <vector>

#include "Oakfen/Views/Components/PickerMatches.h"

class QStandardItemModel;

namespace oakfen {

/// The list of what can be chosen, beneath a field that keeps the keyboard: the field steps through
/// it, and a click chooses.
class PickerList final : public QListView {
public:
    explicit PickerList(const QString& title, QWidget* parent = nullptr);

    /// Shows other lines, none of them highlighted.
    void setLines(std::vector<PickerLine> lines);
    [[nodiscard]] const std::vector<PickerLine>& lines() const { return lines_; }

    /// The place of the highlighted line, if any.
    [[nodiscard]] std::optional<std::size_t> current() const;
    /// Highlights that line and brings it into sight.
    void goTo(std::optional<std::size_t> line);
    /// Highlights the first line of that row of the picker.
    void goToRow(std::optional<std::size_t> row);
    /// Goes to the next line that can be chosen in the direction of the key, or by a page; false
    /// for other keys.
    bool stepByKey(int key);

    /// As high as its lines, but of no more than so many.
    [[nodiscard]] int heightOf(int mostLines) const;
    [[nodiscard]] int neededWidth() const;

    /// Called when the person clicks a line that can be chosen.
    std::function<void(std::size_t line)> clickedLine = [](std::size_t) {};

protected:
    void showEvent(QShowEvent* event) override;

private:
    void step(int count);

    std::vector<PickerLine> lines_;
    QStandardItemModel* items_;
};

} // namespace oakfen
