#include "tests/toolkit/qt/QtTest.h"

#include "adapters/qt/Colours.h"
#include "adapters/qt/ListTree.h"
#include "adapters/qt/QText.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>

namespace kvex::test {
namespace {

class QtListViewTest : public QtTest {
protected:
    QtListViewTest() {
        ControlDesign list{.kind = ControlKind::listView, .name = u"lvw"};
        list.checkBoxes = true;
        list.greyedRowHint = u"Locked by another choice";
        list.emptyText = u"Rules appear here";
        list.imageList = u"img";
        list.columns = 40;
        list.lines = 8;
        ControlDesign pictures{.kind = ControlKind::imageList, .name = u"img"};
        pictures.pictures = {Picture::inOrder};
        shown = window({list, pictures});
        view().addColumn(u"Rules", 0.5);
        view().addColumn(u"Hidden", 0);
        view().addColumn(u"More", 0.25);
        for (const auto *text : {u"Alpha", u"Beta", u"Beta two", u"Gamma"}) {
            view().addRow(text);
        }
    }

    ListView &view() { return shown->get<ListView>(u"lvw"); }
    static qt::ListTree &tree(const QtUser &user) {
        return dynamic_cast<qt::ListTree &>(*user.widget(u"lvw"));
    }
    static QVariant data(const QtUser &user, int row, int role) {
        return tree(user).model()->index(row - 1, 0).data(role);
    }

    std::unique_ptr<Window> shown;
};

TEST_F(QtListViewTest, OnlyTheBeginningOfAnEndlessTextIsDrawn) {
    const std::u16string longest(10'000, u'a');
    view().addRow(longest);
    view().addRow(longest + u"b");
    view().addRow(std::u16string(9'999, u'a') + u"\U0001F4F1");
    show(*shown, [&](QtUser &user) {
        const QString drawn(10'000, u'a');
        EXPECT_EQ(data(user, 5, Qt::DisplayRole).toString(), drawn);
        EXPECT_EQ(data(user, 6, Qt::DisplayRole).toString(), drawn + u'…');
        EXPECT_EQ(data(user, 7, Qt::DisplayRole).toString(), drawn.chopped(1) + u'…');
        EXPECT_EQ(view().text(6), longest + u"b");
    });
}

TEST_F(QtListViewTest, ChecksAreStatesOfItsItems) {
    view().setChecked(2, true);
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(data(user, 1, Qt::CheckStateRole), QVariant(Qt::Unchecked));
        EXPECT_EQ(data(user, 2, Qt::CheckStateRole), QVariant(Qt::Checked));
        EXPECT_TRUE(tree(user).model()->index(0, 0).flags() & Qt::ItemIsUserCheckable);
        EXPECT_EQ(tree(user).findChildren<QAbstractButton *>().size(), 0);
    });
}

TEST_F(QtListViewTest, ATickThroughAccessibilityCountsAsTheUsers) {
    std::vector<int> ticked;
    view().onItemCheck = [&](int row) { ticked.push_back(row); };
    show(*shown, [&](QtUser &user) {
        QAbstractItemModel &model = *tree(user).model();
        EXPECT_TRUE(model.setData(model.index(2, 0), Qt::Checked, Qt::CheckStateRole));
        EXPECT_TRUE(view().checked(3));
        EXPECT_FALSE(model.setData(model.index(2, 0), QStringLiteral("x"), Qt::EditRole));
        EXPECT_EQ(view().text(3), u"Beta two");
    });
    EXPECT_EQ(ticked, std::vector<int>{3});
}

TEST_F(QtListViewTest, ASelectionThroughAccessibilityCountsAsTheUsers) {
    std::vector<int> clicked;
    view().onItemClick = [&](int row) { clicked.push_back(row); };
    show(*shown, [&](QtUser &user) {
        tree(user).selectionModel()->select(tree(user).model()->index(1, 0),
                                            QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
        EXPECT_EQ(view().selectedRow(), 2);
    });
    EXPECT_EQ(clicked, std::vector<int>{2});
}

TEST_F(QtListViewTest, AGreyedRowSaysInWordsWhatItsColourSays) {
    view().setRowColour(1, RowColour::greyText);
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(data(user, 1, Qt::AccessibleDescriptionRole).toString(),
                  QStringLiteral("Locked by another choice"));
        EXPECT_EQ(data(user, 1, Qt::ToolTipRole), data(user, 1, Qt::AccessibleDescriptionRole));
        EXPECT_FALSE(data(user, 2, Qt::AccessibleDescriptionRole).isValid());
        const auto grey = data(user, 1, Qt::ForegroundRole).value<QColor>();
        EXPECT_GE(qt::contrast(grey, tree(user).palette().color(QPalette::Base)), 4.5);
        EXPECT_NE(grey, tree(user).palette().color(QPalette::Text));
    });
}

TEST_F(QtListViewTest, ColumnsShareTheWidthAgainWhenTheWindowGrows) {
    show(*shown, [&](QtUser &user) {
        const auto expectShares = [&] {
            const QHeaderView &header = *tree(user).header();
            const int width = tree(user).viewport()->width();
            EXPECT_EQ(header.sectionSize(0), width / 2);
            EXPECT_TRUE(header.isSectionHidden(1));
            EXPECT_EQ(header.sectionSize(2), width - width / 2);
        };
        expectShares();
        const int before = tree(user).viewport()->width();
        tree(user).window()->resize(before + 301, 500);
        QCoreApplication::processEvents();
        EXPECT_GT(tree(user).viewport()->width(), before);
        expectShares();
    });
}

TEST_F(QtListViewTest, APictureStandsInTheColumnsHeader) {
    show(*shown, [&](QtUser &user) {
        const auto picture = [&] {
            return tree(user).model()->headerData(0, Qt::Horizontal, Qt::DecorationRole);
        };
        EXPECT_FALSE(picture().isValid());
        view().setColumnIcon(1, 1);
        const QImage drawn = picture().value<QIcon>().pixmap(16, 16).toImage();
        // Two entries of a list, with space between them.
        const QColor text = QApplication::palette().color(QPalette::Text);
        EXPECT_EQ(drawn.pixelColor(11, 4), text);
        EXPECT_EQ(drawn.pixelColor(11, 8).alpha(), 0);
        EXPECT_EQ(drawn.pixelColor(11, 12), text);
        EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0);
        view().setColumnIcon(1, 0);
        EXPECT_FALSE(picture().isValid());
    });
}

TEST_F(QtListViewTest, ThePictureInTheHeaderGrowsWithTheFont) {
    const auto sizeIn = [&](int points) {
        const Theme theme(QApplication::palette(), points);
        const auto other = window({{.kind = ControlKind::listView, .name = u"lvw"}});
        int size = 0;
        show(*other, [&](QtUser &user) {
            const QHeaderView &header = *tree(user).header();
            size = header.style()->pixelMetric(QStyle::PM_SmallIconSize);
            EXPECT_GE(size, header.fontMetrics().height());
        });
        return size;
    };
    EXPECT_GT(sizeIn(16), sizeIn(9));
}

TEST_F(QtListViewTest, AnEmptyListSaysWhatBelongsThereUntilItHasARow) {
    const auto saysSo = [](const qt::ListTree &list) {
        const QImage drawn = list.viewport()->grab().toImage();
        const QColor base = list.palette().color(QPalette::Base);
        double most = 1;
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                most = std::max(most, qt::contrast(drawn.pixelColor(x, y), base));
            }
        }
        return most;
    };
    const Theme theme(darkPalette(), 16);
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(tree(user).accessibleDescription(), "");
        view().clearRows();
        EXPECT_EQ(tree(user).accessibleDescription(), "Rules appear here");
        EXPECT_GE(saysSo(tree(user)), qt::leastTextContrast);
        view().addRow(u"");
        EXPECT_EQ(tree(user).accessibleDescription(), "");
        view().setChecked(1, true);
        view().removeRow(1);
        EXPECT_EQ(tree(user).accessibleDescription(), "Rules appear here");
        EXPECT_GE(saysSo(tree(user)), qt::leastTextContrast);
    });
}

/// The greatest difference between a pixel of the row and the row's trailing end.
double contrastInRow(QTreeView &tree, int row) {
    const QRect place = tree.visualRect(tree.model()->index(row - 1, 0));
    const QImage drawn = tree.viewport()->grab(place).toImage();
    const QColor background = drawn.pixelColor(drawn.width() - 4, drawn.height() / 2);
    double most = 1;
    for (int x = 2; x < drawn.width() / 2; ++x) {
        most =
            std::max(most, qt::contrast(drawn.pixelColor(x, drawn.height() * 4 / 5), background));
    }
    return most;
}

TEST_F(QtListViewTest, ARowsPictureIsVisibleWhetherOrNotTheListHasTheFocus) {
    for (const QPalette &palette : {QApplication::palette(), darkPalette()}) {
        const Theme theme(palette, QApplication::font().pointSize());
        shown = window(
            {{.kind = ControlKind::listView,
              .name = u"lvw",
              .imageList = u"img",
              .rowPicture = 1,
              .lines = 3},
             {.kind = ControlKind::textBox, .name = u"txt"},
             {.kind = ControlKind::imageList, .name = u"img", .pictures = {Picture::person}}});
        view().addColumn(u"People", 1);
        view().addRow(u"");
        view().addRow(u"");
        show(*shown, [&](QtUser &user) {
            user.clickRow(u"lvw", 1);
            EXPECT_GE(contrastInRow(tree(user), 1), qt::leastShapeContrast);
            user.focusOn(u"txt");
            EXPECT_GE(contrastInRow(tree(user), 1), qt::leastShapeContrast);
            EXPECT_GE(contrastInRow(tree(user), 2), qt::leastShapeContrast);
        });
    }
}

TEST_F(QtListViewTest, TypingSelectsTheRowThatBeginsWithTheText) {
    std::vector<int> clicked;
    view().onItemClick = [&](int row) { clicked.push_back(row); };
    show(*shown, [&](QtUser &user) {
        user.type(u"g");
        EXPECT_EQ(view().selectedRow(), 4);
    });
    EXPECT_EQ(clicked, std::vector<int>{4});
}

TEST_F(QtListViewTest, APauseEndsTheSearchAndABlankTicksAgain) {
    view().select(4);
    show(*shown, [&](QtUser &user) {
        const auto typeAt = [&](quint64 time, int key, const QString &text) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
            event.setTimestamp(time);
            QApplication::sendEvent(&tree(user), &event);
        };
        const auto pause = static_cast<quint64>(QApplication::keyboardInputInterval());
        typeAt(1, Qt::Key_B, QStringLiteral("b"));
        EXPECT_EQ(view().selectedRow(), 2);
        typeAt(pause, Qt::Key_Space, QStringLiteral(" "));
        EXPECT_FALSE(view().checked(2));
        typeAt(2 * pause, Qt::Key_Space, QStringLiteral(" "));
        EXPECT_EQ(view().selectedRow(), 2);
        EXPECT_TRUE(view().checked(2));
    });
}

TEST_F(QtListViewTest, OnlyTheSelectedRowIsCurrent) {
    show(*shown, [&](QtUser &user) {
        const auto current = [&] { return tree(user).currentIndex().row() + 1; };
        EXPECT_EQ(current(), 0);
        user.tickRow(u"lvw", 2);
        EXPECT_EQ(current(), 0);
        user.clickRow(u"lvw", 3);
        EXPECT_EQ(current(), 3);
        user.tickRow(u"lvw", 2);
        EXPECT_EQ(current(), 3);
        view().removeRow(4);
        view().removeRow(3);
        EXPECT_EQ(current(), 0);
        view().select(1);
        EXPECT_EQ(current(), 1);
        view().deselect(1);
        EXPECT_EQ(current(), 0);
        view().setSorted(true);
        EXPECT_EQ(current(), 0);
    });
}

TEST_F(QtListViewTest, ARowSelectedByCodeIsScrolledIntoView) {
    for (int row = 0; row < 200; ++row) {
        view().addRow(u"Row");
    }
    show(*shown, [&](QtUser &user) {
        view().select(150);
        const QRect place = tree(user).visualRect(tree(user).model()->index(149, 0));
        EXPECT_TRUE(tree(user).viewport()->rect().contains(place.center()));
    });
}

TEST_F(QtListViewTest, AFocusThatSelectsNothingLeavesSpaceToTheFocusedRow) {
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(user.focused(), u"lvw");
        EXPECT_EQ(view().selectedRow(), 0);
        user.press(Key::space);
        EXPECT_EQ(view().selectedRow(), 0);
    });
}

TEST_F(QtListViewTest, ADoubleClickOnACheckBoxTicksTwiceAndDoesNotCount) {
    int doubleClicks = 0;
    int ticks = 0;
    view().onDoubleClick = [&] { ++doubleClicks; };
    view().onItemCheck = [&](int) { ++ticks; };
    show(*shown, [&](QtUser &user) {
        const QRect box = tree(user).tickRect(tree(user).model()->index(1, 0));
        const QPoint place = tree(user).viewport()->mapTo(tree(user).window(), box.center());
        QTest::mouseDClick(tree(user).window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                           place);
        EXPECT_FALSE(view().checked(2));
    });
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(QtListViewTest, AShiftedClickSelectsARangeWhoseLastRowIsCurrent) {
    view().setMultiSelect(true);
    show(*shown, [&](QtUser &user) {
        user.clickRow(u"lvw", 4);
        const QRect row = tree(user).visualRect(tree(user).model()->index(1, 0));
        const QPoint place = tree(user).viewport()->mapTo(tree(user).window(), row.center());
        QTest::mouseClick(tree(user).window()->windowHandle(), Qt::LeftButton, Qt::ShiftModifier,
                          place);
        EXPECT_FALSE(view().selected(1));
        EXPECT_TRUE(view().selected(2));
        EXPECT_TRUE(view().selected(3));
        EXPECT_TRUE(view().selected(4));
        EXPECT_EQ(view().selectedRow(), 2);
    });
}

TEST_F(QtListViewTest, DeselectingARowRunsTheHandler) {
    int clicks = 0;
    int deselections = 0;
    view().onItemClick = [&](int) { ++clicks; };
    view().onDeselect = [&] { ++deselections; };
    show(*shown, [&](QtUser &user) {
        const auto clickAt = [&](const QPoint &inViewport, Qt::KeyboardModifier modifier) {
            QTest::mouseClick(tree(user).window()->windowHandle(), Qt::LeftButton, modifier,
                              tree(user).viewport()->mapTo(tree(user).window(), inViewport));
        };
        const QPoint row = tree(user).visualRect(tree(user).model()->index(1, 0)).center();
        const QPoint beside(row.x(), tree(user).viewport()->height() - 2);
        ASSERT_FALSE(tree(user).indexAt(beside).isValid());
        clickAt(row, Qt::NoModifier);
        EXPECT_EQ(deselections, 0);
        clickAt(row, Qt::ControlModifier);
        EXPECT_EQ(view().selectedRow(), 0);
        EXPECT_EQ(deselections, 1);
        clickAt(row, Qt::NoModifier);
        clickAt(beside, Qt::NoModifier);
        EXPECT_EQ(view().selectedRow(), 0);
        EXPECT_EQ(deselections, 2);
        clickAt(beside, Qt::NoModifier);
        EXPECT_EQ(deselections, 2);
        view().select(1);
        view().deselect(1);
        EXPECT_EQ(deselections, 2);
    });
    EXPECT_EQ(clicks, 2);
}

TEST_F(QtListViewTest, AHandlerMayRefillTheListThatItBelongsTo) {
    const auto refill = [&] {
        view().clearRows();
        view().clearColumns();
        view().addColumn(u"New", 0.95);
        view().select(view().addRow(u"Only"));
    };
    view().onItemClick = [&](int) { refill(); };
    view().onItemCheck = [&](int) { refill(); };
    view().onDoubleClick = refill;
    show(*shown, [&](QtUser &user) {
        user.tickRow(u"lvw", 3);
        user.clickRow(u"lvw", 1);
        user.press(Key::down);
        user.doubleClickRow(u"lvw", 1);
        EXPECT_EQ(user.rows(u"lvw"), std::vector<std::u16string>{u"Only"});
        EXPECT_EQ(view().selectedRow(), 1);
    });
}

} // namespace
} // namespace kvex::test
