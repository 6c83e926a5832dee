// Does what a person does in a window of the Qt toolkit: it sends key and mouse events to the
// widgets' places. Reads what the person sees.
#pragma once

#include "adapters/qt/Dialog.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"
#include "tests/support/OnScreenUser.h"

#include <QPointer>

#include <string>
#include <string_view>
#include <vector>

class QAbstractItemView;
class QDateTimeEdit;

namespace kvex::test {

class QtUser final : public OnScreenUser {
public:
    /// An action that no person could do is added to `problems`, and does nothing else.
    QtUser(qt::Dialog &dialog, std::vector<std::string> &problems)
        : dialog_(&dialog), problems_(problems) {}

    void click(std::u16string_view control) override;
    void clickRow(std::u16string_view list, int row) override;
    void doubleClickRow(std::u16string_view list, int row) override;
    void doubleClickBesideRows(std::u16string_view list) override;
    void tickRow(std::u16string_view list, int row) override;
    void tryToClick(std::u16string_view control) override;
    void closeByFrame() override;

    void press(Key key) override;
    void type(std::u16string_view text) override;
    void pressAccessKey(char16_t key) override;
    void focusOn(std::u16string_view control) override;

    void pickDate(std::u16string_view picker, int year, int month, int day) override;
    void pickTime(std::u16string_view picker, int hour, int minute, int second) override;
    void tickPicker(std::u16string_view picker, bool ticked) override;

    [[nodiscard]] std::u16string focused() const override;
    [[nodiscard]] std::u16string description(std::u16string_view control) const override;
    [[nodiscard]] bool isOpen() const override;
    [[nodiscard]] Window &window() override { return dialog_->owner(); }
    [[nodiscard]] std::vector<std::u16string> tabOrder() const override;
    [[nodiscard]] bool isUsable(std::u16string_view control) const override;
    /// The control's tool tip.
    [[nodiscard]] std::u16string waitsFor(std::u16string_view control) const override;
    /// The widget of a control, null for none.
    [[nodiscard]] QWidget *widget(std::u16string_view name) const;

private:
    [[nodiscard]] QWidget *usable(std::u16string_view control);
    [[nodiscard]] QAbstractItemView *listWithRow(std::u16string_view list, int row);
    [[nodiscard]] std::u16string controlOf(const QWidget *widget) const;
    void pressMouse(QWidget &widget, QPoint at, bool isDouble = false);
    void pressKey(int key, const QString &text, Qt::KeyboardModifiers held = Qt::NoModifier);
    void retype(std::u16string_view picker, const QDateTime &value);
    void complain(const std::string &problem);

    QPointer<qt::Dialog> dialog_;
    std::vector<std::string> &problems_;
};

} // namespace kvex::test
