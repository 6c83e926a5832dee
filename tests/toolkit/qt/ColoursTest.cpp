#include "adapters/qt/Colours.h"

#include <gtest/gtest.h>

namespace kvex::qt {
namespace {

TEST(Colours, ContrastIsThatOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::red, Qt::white), 4.0, 0.01);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
    EXPECT_NEAR(contrast(Qt::blue, Qt::blue), 1, 0.001);
}

TEST(Colours, AColourThatCanBeReadStaysAsItIs) {
    EXPECT_EQ(readable(Qt::blue, Qt::white), QColor(Qt::blue));
    EXPECT_EQ(readable(Qt::black, Qt::white), QColor(Qt::black));
}

TEST(Colours, EveryColourCanBeReadOnEveryBackground) {
    for (const int grey : {0, 30, 60, 100, 118, 128, 160, 200, 240, 255}) {
        const QColor background(grey, grey, grey);
        for (const QColor &wanted : {QColor(Qt::blue), QColor(Qt::red), background}) {
            EXPECT_GE(contrast(readable(wanted, background), background), leastTextContrast)
                << wanted.name().toStdString() << " on " << grey;
        }
    }
}

TEST(Colours, BlueAndRedStayBlueAndRedOnDarkBackgrounds) {
    const QColor blue = readable(Qt::blue, QColor(30, 30, 30));
    EXPECT_GT(blue.blue(), blue.red());
    EXPECT_GT(blue.blue(), blue.green());
    const QColor red = readable(Qt::red, QColor(30, 30, 30));
    EXPECT_GT(red.red(), red.blue());
    EXPECT_GT(red.red(), red.green());
}

TEST(Colours, QuieterTextStepsBackAndCanBeRead) {
    for (const QColor &window : {QColor(240, 240, 240), QColor(37, 37, 38)}) {
        const QPalette palette(window, window);
        const QColor quiet = quieterText(palette, QPalette::WindowText, QPalette::Window);
        const QColor text = palette.color(QPalette::WindowText);
        EXPECT_GE(contrast(quiet, window), leastTextContrast);
        EXPECT_LT(contrast(quiet, window), contrast(text, window));
    }
}

} // namespace
} // namespace kvex::qt
