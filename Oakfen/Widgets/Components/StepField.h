#pragma once

#include <QSpinBox>

namespace oakfen {

/// What a field for a whole number allows, and how it reads: "Latest 5 Backups".
struct StepRange {
    int least = 0;
    int greatest = 0;
    /// Before the number and after it.
    QString prefix = {};
    QString suffix = {};
    /// In place of the least number; none where empty.
    QString leastText = {};
};

/// A field for a whole number, typed or stepped through within its range. A greater value that it
/// is handed is shown as it is, until the person chooses another.
class StepField final : public QSpinBox {
public:
    StepField(const QString& title, const StepRange& range, QWidget* parent = nullptr);

    /// Shows another value, which nobody takes for the person's choice.
    void showValue(int value);

    void stepBy(int steps) override;

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    int least_;
    int greatest_;
};

} // namespace oakfen
