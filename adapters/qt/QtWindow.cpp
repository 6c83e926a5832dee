#include "adapters/qt/QtWindow.h"

#include "adapters/qt/QText.h"
#include "adapters/qt/QtApplication.h"

#include <QDir>
#include <QSettings>

#include <optional>

namespace kvex::qt {
namespace {

/// The file of the window sizes: kvex/windows.ini in $XDG_STATE_HOME, or else in ~/.local/state.
/// Empty if the user has no such folder. If it cannot be read or written, no size is remembered.
/// Several processes may write at once. The last size of each window stays.
QString stateFile() {
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString home = qEnvironmentVariable("HOME");
    if (QDir::isAbsolutePath(state)) {
        return state + QStringLiteral("/kvex/windows.ini");
    }
    return QDir::isAbsolutePath(home) ? home + QStringLiteral("/.local/state/kvex/windows.ini")
                                      : QString();
}

QString keyOf(const QString &window) {
    return QStringLiteral("sizes/") + window;
}

std::optional<QSize> rememberedSize(const QString &window) {
    const QString file = stateFile();
    if (file.isEmpty()) {
        return {};
    }
    const QSize size = QSettings(file, QSettings::IniFormat).value(keyOf(window)).toSize();
    return size.isEmpty() ? std::nullopt : std::optional(size);
}

void rememberSize(const QString &window, QSize size) {
    if (const QString file = stateFile(); !file.isEmpty()) {
        QSettings(file, QSettings::IniFormat).setValue(keyOf(window), size);
    }
}

} // namespace

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
    // Qt would replace this mark, which stands for an unsaved document.
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

/// Takes the size that the user left, or else the design's, enlarged so that nothing is cut. The
/// screen limits both.
void QtWindow::setFirstSize(const WindowDesign &design) {
    const QSize wanted(widthOf(design.columns, *dialog_), heightOf(design.lines, *dialog_));
    const QSize size =
        rememberedSize(dialog_->objectName()).value_or(wanted.expandedTo(dialog_->sizeHint()));
    dialog_->resize(size.boundedTo(dialog_->roomOnScreen()));
}

} // namespace kvex::qt
