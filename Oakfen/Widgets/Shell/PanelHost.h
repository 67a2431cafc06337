#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace oakfen {

class EntriesPanel;

/// Shows one panel at a time over the right side of what lies beneath, which is seen under a scrim
/// and hidden from keys, pointer and screen readers, as under a sheet; but the menus go on working.
/// A click beside the panel closes it. What lies beneath comes back as it was.
class PanelHost final : public QWidget {
    Q_OBJECT

public:
    PanelHost(QWidget& beneath, QWidget* parent);

    /// Opens the panel in the place of the one that is open, and moves the keyboard into it. Takes
    /// the panel over.
    void open(EntriesPanel& panel);
    /// Returns the keyboard to where it was.
    void closePanel();
    /// The one that is open, or null.
    [[nodiscard]] EntriesPanel* panel() const { return panel_; }

    /// Something covers all that the window shows, and what lies beneath belongs to the cover.
    void setObscured(bool isObscured);
    /// What lies beneath may look different by now.
    void refreshLater();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void comeUp();
    void goAway();
    void refresh();
    void placePanel();

    QWidget& beneath_;
    QPixmap picture_;
    QPointer<EntriesPanel> panel_;
    bool isObscured_ = false;
    bool isStale_ = false;
    /// Where the keyboard was beneath the panel.
    QPointer<QWidget> focusBeneath_;
};

} // namespace oakfen
