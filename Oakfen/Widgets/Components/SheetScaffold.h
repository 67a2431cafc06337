#pragma once

#include <QDialog>
#include <QPointer>

#include "Oakfen/Panels.h"

class QFormLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace oakfen {

class CheckedField;
class SheetBody;

/// The frame of every editor sheet: a title, what the sheet edits, and a row of buttons with one
/// default; Escape cancels. Head and buttons stay in sight where what is edited has to scroll. A
/// dialog that is shown inside its window and closes by accepting or rejecting.
class SheetScaffold : public QDialog {
    Q_OBJECT

public:
    SheetScaffold(Panels& panels, const QString& title, const QString& primaryTitle,
                  QWidget* parent);

    [[nodiscard]] QPushButton* primaryButton() const { return primary_; }
    [[nodiscard]] QPushButton* cancelButton() const { return cancel_; }
    /// Null for a sheet that can only be saved.
    [[nodiscard]] QPushButton* secondButton() const { return second_; }
    /// Null for a sheet without a destructive action.
    [[nodiscard]] QPushButton* destructiveButton() const { return destructive_; }

    void done(int result) override;

Q_SIGNALS:
    /// About to go, and still as the person sees it.
    void closing();

protected:
    /// What the primary button does before the sheet closes.
    virtual void save() = 0;
    /// What the primary button does once the fields can be read: saves and closes.
    virtual void finish();
    /// What the destructive button does once the person has confirmed.
    virtual void performDestructiveAction() {}

    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    /// Whether the keyboard is on a button that Return presses.
    [[nodiscard]] bool isOnButton() const;

    void setSubtitle(const QString& subtitle);
    void setCanSave(bool canSave);
    /// Another title for the primary button. It never becomes narrower, so that nothing beside it
    /// moves from under the pointer to and fro.
    void setPrimaryTitle(const QString& title);
    /// Adds the destructive button at the left; it asks before it acts.
    void addDestructiveButton(const ConfirmationRequest& confirmation);
    /// Adds a button beside the primary one.
    QPushButton* addSecondButton(const QString& title);
    /// Where the sheet's own widgets go.
    [[nodiscard]] QVBoxLayout* content() const;
    /// A form in the usual distances, added to the content.
    QFormLayout* addForm();

    /// Empty, or what keeps the sheet from being saved, told beside the buttons.
    void setProblem(const QString& text);
    /// Takes what was typed and not left yet. Whether each field can be read; else says which one
    /// can't, and goes there: saving would quietly keep the earlier value, which is not what the
    /// person sees.
    bool finishFields();

private:
    /// Lets screen readers come to the buttons after the content.
    void putButtonsLast();
    void savePressed();
    void confirmDestructiveAction(const ConfirmationRequest& confirmation);
    /// The first field whose text means nothing, if any, as what it is and as a widget.
    struct UnreadableField {
        CheckedField* field = nullptr;
        QWidget* widget = nullptr;
    };
    [[nodiscard]] UnreadableField unreadableField() const;

    Panels& panels_;
    QLabel* title_;
    QLabel* subtitle_;
    SheetBody* body_;
    QHBoxLayout* buttons_;
    QLabel* problem_;
    QPushButton* cancel_;
    QPushButton* primary_;
    QPushButton* second_ = nullptr;
    QPushButton* destructive_ = nullptr;
    /// The field that tells of the problem, and its description without one.
    QPointer<QWidget> toldBy_;
    QString toldInsteadOf_;
};

} // namespace oakfen
