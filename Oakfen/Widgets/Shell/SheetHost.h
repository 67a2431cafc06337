#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <optional>

namespace oakfen {

class SheetScaffold;

/// Shows one sheet at a time inside a window: raised, over a scrim that lies on all the rest. While
/// a sheet is open, what lies beneath is hidden and only its picture is seen, so that no key,
/// pointer or screen reader can reach it. Part of its window, whatever the window manager.
class SheetHost final : public QWidget {
    Q_OBJECT

public:
    /// `beneath` is what may not act while a sheet is open: the window's content.
    SheetHost(QWidget& window, QWidget& beneath);

    /// Opens the sheet and moves the keyboard into it. Takes the sheet over. Whatever sheet is open
    /// must have been closed before.
    void open(SheetScaffold& sheet);
    /// Returns the window to the person, with the keyboard where it was. The sheet may have hidden
    /// itself already; whoever opened it deletes it.
    void closeSheet();

    /// Something covers all that the window shows: the sheet can be neither seen nor used until
    /// that is over, and what lies beneath belongs to the cover.
    void setObscured(bool isObscured);
    /// What lies beneath may look different by now.
    void refreshLater();

protected:
    void paintEvent(QPaintEvent* event) override;
    /// A click returns the keyboard to the sheet, which the menus may have taken.
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Comes up or goes away as the sheet and the cover demand.
    void showState();
    void comeUp();
    void goAway();
    static void closeLists();
    void refresh();
    void fillWindow();
    /// Lets the sheet grow and shrink with its content, and keeps it within the window.
    void fitSheet();
    void placeSheet(QSize size);
    [[nodiscard]] QSize wantedSize() const;
    void focusSheet();
    void returnFocus();
    void focusBeneath();
    void keepFocus(QWidget* focused);
    void fade();

    QWidget& beneath_;
    QPixmap picture_;
    QPointer<SheetScaffold> sheet_;
    /// The size that the sheet has chosen for itself; others are as large as their content.
    std::optional<QSize> chosenSize_;
    bool isPlaced_ = false;
    bool isObscured_ = false;
    bool isStale_ = false;
    /// Where the keyboard was, in the sheet and beneath it.
    QPointer<QWidget> focusInSheet_;
    QPointer<QWidget> focusBeneath_;
};

} // namespace oakfen
