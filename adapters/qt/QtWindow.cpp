#include "adapters/qt/QtWindow.h"

#include "adapters/qt/QText.h"
#include "adapters/qt/QtApplication.h"
#include "adapters/qt/Room.h"
#include "adapters/qt/WindowSizes.h"

#include <QApplication>

namespace kvex::qt {

QtWindow::QtWindow(const WindowDesign &design)
    : dialog_(new Dialog(*this)), controls_(design, *dialog_) {
    dialog_->setObjectName(toQt(design.name));
    setCaption(design.caption);
    setFirstSize(design);
}

QtWindow::~QtWindow() {
    delete dialog_;
}

void QtWindow::setCaption(const std::u16string &caption) {
    caption_ = caption;
    // Qt takes this mark for a place to show that a document was changed.
    const QString mark = QStringLiteral("[*]");
    dialog_->setWindowTitle(toQt(caption).replace(mark, mark + mark));
}

void QtWindow::showModal() {
    if (wasShown_) {
        throw Error(error_number::invalidCall);
    }
    wasShown_ = true;
    if (isClosed_) {
        return;
    }
    if (QWidget *over = windowToShowOver()) {
        dialog_->setParent(over, dialog_->windowFlags());
    }
    dialog_->focusFirst();
    dialog_->exec();
    if (dialog_ != nullptr) {
        if (const auto size = dialog_->sizeByUser()) {
            rememberSize(dialog_->objectName(), *size);
        }
    }
}

void QtWindow::close() {
    isClosed_ = true;
    if (wasShown_) {
        dialog_->done(QDialog::Rejected);
    }
}

Control *QtWindow::find(std::u16string_view name) {
    return controls_.find(name);
}

/// As the user left it, else as designed and never so small that something is cut; as far as the
/// screen has room.
void QtWindow::setFirstSize(const WindowDesign &design) {
    const QSize wanted(widthOf(design.columns, *dialog_), heightOf(design.lines, *dialog_));
    const QSize size =
        rememberedSize(dialog_->objectName()).value_or(wanted.expandedTo(dialog_->sizeHint()));
    dialog_->resize(size.boundedTo(dialog_->roomOnScreen()));
}

} // namespace kvex::qt
