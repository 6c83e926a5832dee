// How windows get their sizes, and keep the sizes that the user chose.
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/toolkit/qt/QtTest.h"

#include <QScreen>

namespace kvex::test {
namespace {

class QtWindowSize : public QtTest {
protected:
    QtWindowSize() { environment.set("XDG_STATE_HOME", folder.path().string()); }

    /// Shows a window of this name, resizes it if wanted, and gives the size with which it opened.
    QSize show(const std::u16string &name, std::optional<QSize> resized = {}) {
        const auto shown = toolkit.createWindow(
            {name,
             u"Test",
             {{.kind = ControlKind::richTextBox, .name = u"rt", .columns = 30, .lines = 6}},
             column({place(u"rt", 1)})});
        QSize first;
        QtTest::show(*shown, [&](QtUser &user) {
            QWidget &dialog = *user.widget(u"rt")->window();
            first = dialog.size();
            if (resized) {
                dialog.resize(*resized);
                QCoreApplication::processEvents();
            }
        });
        return first;
    }

    host::TemporaryFolder folder;
    host::EnvironmentVariables environment;
    const std::filesystem::path file = folder / "kvex" / "windows.ini";
};

TEST_F(QtWindowSize, AWindowComesBackInTheSizeThatTheUserGaveIt) {
    const QSize first = show(u"frmOne");
    const QSize wanted = first + QSize(123, 45);
    EXPECT_EQ(show(u"frmOne", wanted), first);
    EXPECT_EQ(show(u"frmOne"), wanted);
    EXPECT_EQ(show(u"frmOne", first), wanted);
    EXPECT_EQ(show(u"frmOne"), first);
}

TEST_F(QtWindowSize, EachWindowHasItsOwnSize) {
    const QSize first = show(u"frmOne");
    show(u"frmOne", first + QSize(100, 100));
    EXPECT_EQ(show(u"frmTwo", first + QSize(50, 50)), first);
    EXPECT_EQ(show(u"frmOne"), first + QSize(100, 100));
    EXPECT_EQ(show(u"frmTwo"), first + QSize(50, 50));
}

/// Such a window still follows the font.
TEST_F(QtWindowSize, ASizeThatTheUserLeftAsItWasIsNotKept) {
    show(u"frmOne");
    EXPECT_FALSE(exists(file));
}

TEST_F(QtWindowSize, ARememberedSizeIsCutToTheScreen) {
    host::writeFile(file, "[sizes]\nfrmOne=@Size(9000 8000)\n");
    const QSize available = QApplication::primaryScreen()->availableSize();
    const QSize shown = show(u"frmOne");
    EXPECT_LT(shown.width(), available.width());
    EXPECT_GT(shown.width(), available.width() * 9 / 10);
    EXPECT_LT(shown.height(), available.height());
    EXPECT_GT(shown.height(), available.height() * 9 / 10);
}

TEST_F(QtWindowSize, AFileThatCannotBeReadIsIgnoredAndReplaced) {
    const QSize first = show(u"frmOne");
    for (const char *content :
         {"\xFF\xFE no such thing", "[sizes]\nfrmOne=@Size(0 -5)\n", "[sizes]\nfrmOne=many\n"}) {
        SCOPED_TRACE(content);
        host::writeFile(file, content);
        EXPECT_EQ(show(u"frmOne", first + QSize(20, 30)), first);
        EXPECT_EQ(show(u"frmOne"), first + QSize(20, 30));
    }
}

TEST_F(QtWindowSize, SizesThatAnotherProcessKeptStay) {
    const QSize first = show(u"frmOne");
    show(u"frmOne", first + QSize(20, 30));
    host::writeFile(file, "[sizes]\nfrmOne=@Size(700 600)\nfrmTwo=@Size(500 400)\n");
    EXPECT_EQ(show(u"frmTwo", QSize(800, 700)), QSize(500, 400));
    EXPECT_EQ(show(u"frmOne"), QSize(700, 600));
    EXPECT_EQ(show(u"frmTwo"), QSize(800, 700));
}

TEST_F(QtWindowSize, WhereNothingCanBeKeptAWindowStartsAsDesigned) {
    const QSize first = show(u"frmOne");
    host::writeFile(folder / "file", "");
    environment.set("XDG_STATE_HOME", (folder / "file").string());
    EXPECT_EQ(show(u"frmOne", first + QSize(20, 30)), first);
    EXPECT_EQ(show(u"frmOne"), first);
    environment.set("XDG_STATE_HOME", "relative");
    environment.set("HOME", std::nullopt);
    EXPECT_EQ(show(u"frmOne", first + QSize(20, 30)), first);
    EXPECT_EQ(show(u"frmOne"), first);
}

TEST_F(QtWindowSize, WithoutAStateFolderTheSizesAreBelowTheHomeFolder) {
    environment.set("XDG_STATE_HOME", std::nullopt);
    environment.set("HOME", folder.path().string());
    show(u"frmOne", QSize(700, 600));
    EXPECT_TRUE(exists(folder / ".local" / "state" / "kvex" / "windows.ini"));
    EXPECT_EQ(show(u"frmOne"), QSize(700, 600));
}

} // namespace
} // namespace kvex::test
