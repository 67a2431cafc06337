#include "Oakfen/Widgets/Register/SetCategoryDialog.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "Oakfen/Widgets/Components/PickerList.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr QSize usualSize(460, 540);

} // namespace

SetCategoryDialog::SetCategoryDialog(AppEnvironment& environment,
                                     std::shared_ptr<const UUIDSet> ids, QWidget* parent)
    : SetCategoryDialog(environment, SetCategoryView(environment, std::move(ids)), parent) {}

SetCategoryDialog::SetCategoryDialog(AppEnvironment& environment, SetCategoryView view,
                                     QWidget* parent)
    : SheetScaffold(environment.panels, qt(view.title()), tr("Set Category"), parent),
      view_(std::move(view)), field_(new QLineEdit), list_(new PickerList(tr("Categories"))) {
    resize(usualSize);
    setSubtitle(qt(view_.subtitle()));
    primaryButton()->setToolTip(tr("Set Category (Return)"));
    field_->setPlaceholderText(tr("Type any part of a category’s name"));
    field_->setAccessibleName(tr("Category"));
    field_->setAccessibleDescription(tr("Up and Down choose in the list of categories"));
    field_->installEventFilter(this);
    content()->addWidget(field_);
    content()->addWidget(list_, 1);
    connect(field_, &QLineEdit::textChanged, this, [this] { showLines(); });
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { showState(); });
    list_->clickedLine = [this](std::size_t /*line*/) { primaryButton()->click(); };
    showLines();
    field_->setFocus();
}

void SetCategoryDialog::showLines() {
    view_.setTypedText(utf8(field_->text()));
    list_->setLines(view_.lines());
    list_->goToRow(view_.meantRow());
    setProblem({});
    Theme::setTrait(*field_, "invalid", !field_->text().isEmpty() && !list_->current());
    showState();
}

void SetCategoryDialog::showState() {
    setCanSave(list_->current().has_value());
}

void SetCategoryDialog::save() {
    view_.choose(list_->lines()[*list_->current()]);
}

bool SetCategoryDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == field_ && event->type() == QEvent::KeyPress &&
        list_->stepByKey(static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    return SheetScaffold::eventFilter(watched, event);
}

void SetCategoryDialog::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !isOnButton() && !list_->current()) {
        setProblem(qt(view_.explanation()));
    } else {
        SheetScaffold::keyPressEvent(event);
    }
}

} // namespace oakfen
