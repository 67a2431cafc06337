#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Cover.h"

class QSplitter;

namespace oakfen {

class AlertPresenter;
class BusyPill;
class DetailWidget;
class GateWidget;
class MenuBar;
class NoticeWidget;
class PanelHost;
class SheetHost;
class SidebarWidget;

/// The one window: sidebar beside detail area, what covers them, the menu bar, alerts and sheets.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// `requestQuit` is asked when the window is to be closed; closing is quitting.
    MainWindow(AppEnvironment& environment, std::function<void()> requestQuit);
    ~MainWindow() override;

    /// Brings the window to the front.
    void present();
    /// Opens the search through all accounts, or returns to its term where it is open.
    void findInAllAccounts();
    /// How large the window can be and still be seen whole, without its frame.
    [[nodiscard]] QSize roomOnScreen() const;

protected:
    /// Return presses the button that has the keyboard, as the blank does.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildContent();
    void buildMenuBar();
    /// Asks for no more room than the screen has.
    void fitScreen();
    void restoreState();
    void saveState() const;
    void refreshCover();
    void refreshTitle();
    void setSidebarShown(bool shown);
    void showAbout();
    AppEnvironment& environment_;
    std::function<void()> requestQuit_;
    QSplitter* splitter_ = nullptr;
    SidebarWidget* sidebar_ = nullptr;
    DetailWidget* detail_ = nullptr;
    PanelHost* panels_ = nullptr;
    GateWidget* gate_ = nullptr;
    Cover cover_ = Cover::none;
    BusyPill* pill_ = nullptr;
    NoticeWidget* notice_ = nullptr;
    MenuBar* menu_ = nullptr;
    SheetHost* sheets_ = nullptr;
    AlertPresenter* alerts_ = nullptr;
    /// What was looked for last in all accounts.
    std::string findTerm_;
    std::vector<Subscription> subscriptions_;
};

} // namespace oakfen
