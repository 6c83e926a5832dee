// Windows of the Qt toolkit on the test's own display, with a user.
#pragma once

#include "adapters/qt/QtToolkit.h"
#include "tests/support/QtPlay.h"
#include "tests/toolkit/Designs.h"

#include <QApplication>
#include <QPalette>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kvex::test {

class QtTest : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(play.problems(), std::vector<std::string>());
        EXPECT_EQ(play.pendingScripts(), 0U);
    }

    /// A window "frmTest" of these controls, one below the other.
    [[nodiscard]] std::unique_ptr<Window> window(std::vector<ControlDesign> controls) {
        Layout layout = below(controls);
        return toolkit.createWindow({u"frmTest", u"Test", std::move(controls), std::move(layout)});
    }

    /// Shows the window, lets the user play in it, and closes it.
    void show(Window &window, QtPlay::Script script) {
        play.whenShown(u"", [script = std::move(script)](QtUser &user) {
            script(user);
            user.closeByFrame();
        });
        window.showModal();
    }

    QtPlay play;
    qt::QtToolkit toolkit;
};

/// Sets the application's palette and font while it lives, and restores them afterwards.
class Theme {
public:
    Theme(const QPalette &palette, int points)
        : palette_(QApplication::palette()), font_(QApplication::font()) {
        QApplication::setPalette(palette);
        QFont font = font_;
        font.setPointSize(points);
        QApplication::setFont(font);
        QCoreApplication::processEvents();
    }
    ~Theme() {
        QApplication::setPalette(palette_);
        QApplication::setFont(font_);
    }
    Theme(const Theme &) = delete;
    Theme &operator=(const Theme &) = delete;

private:
    QPalette palette_;
    QFont font_;
};

[[nodiscard]] inline QPalette darkPalette() {
    QPalette palette(QColor(45, 45, 48), QColor(37, 37, 38));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    return palette;
}

} // namespace kvex::test
