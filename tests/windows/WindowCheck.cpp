#include "tests/windows/WindowCheck.h"

#include "adapters/qt/QText.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTreeView>

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using qt::fromQt;

QWidget &windowOf(QtUser &user) {
    return *user.widget(user.tabOrder().front())->window();
}

template <class Widget> std::vector<Widget *> shown(QtUser &user) {
    std::vector<Widget *> widgets;
    for (Widget *widget : windowOf(user).findChildren<Widget *>()) {
        if (widget->isVisible()) {
            widgets.push_back(widget);
        }
    }
    return widgets;
}

void expectRoom(const QWidget &widget, QSize needed) {
    EXPECT_GE(widget.width(), needed.width()) << widget.objectName().toStdString();
    EXPECT_GE(widget.height(), needed.height()) << widget.objectName().toStdString();
}

void expectColumnsWide(const QTreeView &list) {
    const QHeaderView &header = *list.header();
    for (int column = 0; column < header.count(); ++column) {
        if (header.isSectionHidden(column) || header.sectionSize(column) == 0) {
            continue;
        }
        EXPECT_GE(header.sectionSize(column),
                  static_cast<const QAbstractItemView &>(list).sizeHintForColumn(column))
            << list.objectName().toStdString() << " column " << column;
        if (header.isVisible()) {
            EXPECT_GE(header.sectionSize(column), header.sectionSizeHint(column))
                << list.objectName().toStdString() << " header " << column;
        }
    }
}

} // namespace

void expectAccessible(QtUser &user, const std::vector<std::u16string> &tabOrder) {
    EXPECT_EQ(user.tabOrder(), tabOrder);
    // A control may have several widgets that take the focus, such as a picker's check box and
    // field.
    for (QWidget *widget : shown<QWidget>(user)) {
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr ||
            !widget->isEnabled()) {
            continue;
        }
        SCOPED_TRACE(widget->objectName().toStdString());
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(accessible, nullptr);
        EXPECT_NE(accessible->role(), QAccessible::NoRole);
        EXPECT_NE(accessible->role(), QAccessible::Client);
        EXPECT_NE(accessible->text(QAccessible::Name), "");
    }
    EXPECT_NE(windowOf(user).windowTitle(), "");
}

SharedKeys sharedAccessKeys(QtUser &user) {
    SharedKeys keys;
    const auto add = [&](const QString &caption, const QWidget &control) {
        const QKeySequence sequence = QKeySequence::mnemonic(caption);
        if (!sequence.isEmpty() && control.isEnabled() && control.isVisible()) {
            keys[fromQt(sequence.toString()).back()].push_back(fromQt(control.objectName()));
        }
    };
    for (const QAbstractButton *button : shown<QAbstractButton>(user)) {
        add(button->text(), *button);
    }
    for (const QLabel *label : shown<QLabel>(user)) {
        if (label->buddy() != nullptr) {
            add(label->text(), *label->buddy());
        }
    }
    std::erase_if(keys, [](const auto &key) { return key.second.size() < 2; });
    return keys;
}

void expectNothingCut(QtUser &user) {
    for (const QLabel *label : shown<QLabel>(user)) {
        expectRoom(*label, label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                             : label->sizeHint());
    }
    for (const QAbstractButton *button : shown<QAbstractButton>(user)) {
        expectRoom(*button, button->sizeHint());
    }
    for (const QDateTimeEdit *picker : shown<QDateTimeEdit>(user)) {
        expectRoom(*picker, picker->minimumSizeHint());
    }
    for (const QTreeView *list : shown<QTreeView>(user)) {
        expectColumnsWide(*list);
    }
    const QWidget &window = windowOf(user);
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()))
        << window.objectName().toStdString() << " " << window.height();
}

} // namespace kvex::test
