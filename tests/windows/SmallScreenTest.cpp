// The windows on a screen of 800 x 600 pixels, in a large font.
#include "host/addressbook/AddressBookWindow.h"
#include "tests/windows/EveryWindow.h"

#include <QApplication>
#include <QPushButton>
#include <QScreen>

namespace kvex::test {
namespace {

class SmallScreen : public EveryWindow {
protected:
    SmallScreen() {
        QFont font = usual_;
        font.setPointSize(16);
        QApplication::setFont(font);
    }
    ~SmallScreen() override { QApplication::setFont(usual_); }

    static QWidget &windowOf(QtUser &user) {
        return *user.widget(user.tabOrder().front())->window();
    }

    /// The whole control is visible, and a click into its middle reaches it.
    static void expectInView(const QWidget &widget) {
        SCOPED_TRACE(widget.objectName().toStdString());
        EXPECT_EQ(widget.visibleRegion().boundingRect(), widget.rect());
        const QRect place(widget.mapToGlobal(QPoint()), widget.size());
        EXPECT_TRUE(widget.screen()->availableGeometry().contains(place));
        const QWidget *hit = QApplication::widgetAt(place.center());
        EXPECT_TRUE(hit == &widget || widget.isAncestorOf(hit));
    }

    /// Tab brings each control into view from any position, and the user can scroll to every fixed
    /// text.
    static void expectReachable(QtUser &user, const std::vector<std::u16string> &ends) {
        const QWidget &window = windowOf(user);
        EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
        for (const std::u16string &end : ends) {
            expectInView(*user.widget(end));
        }
        const Texts order = user.tabOrder();
        for (std::size_t step = 0; step < order.size(); ++step) {
            user.press(Key::tab);
            expectInView(*user.widget(user.focused()));
        }
        const auto *pane = window.findChild<qt::ScrollPane *>();
        for (const QWidget *child : pane->widget()->findChildren<QWidget *>()) {
            const QRect place(child->mapTo(pane->widget(), QPoint()), child->size());
            EXPECT_TRUE(child->isHidden() || pane->widget()->rect().contains(place))
                << child->objectName().toStdString();
        }
        for (const std::u16string &end : ends) {
            expectInView(*user.widget(end));
        }
    }

    const QFont usual_ = QApplication::font();
};

TEST_F(SmallScreen, EveryWindowsOkAndCancelStayInViewAndAllElseCanBeReached) {
    ASSERT_EQ(QApplication::primaryScreen()->size(), QSize(800, 600));
    walk([](QtUser &user) {
        const bool isOptions = user.widget(u"cmdcancel") != nullptr;
        expectReachable(user, {u"cmdOK", isOptions ? u"cmdcancel" : u"cmdCancel"});
    });
}

TEST_F(SmallScreen, TheAddressBooksSelectAndCancelStayInViewAndAllElseCanBeReached) {
    const auto book = toolkit.createWindow(host::addressBookDesign(true));
    auto &contacts = book->get<ListView>(u"lvwContacts");
    contacts.addColumn(u"Name", 0.6);
    contacts.addColumn(u"Number", 0.4);
    contacts.addRow(u"Asha");
    for (const auto *button : {u"cmdTickAll", u"cmdClear", u"cmdSelect"}) {
        book->get<CommandButton>(button).setEnabled(true);
    }
    play.whenShown(u"frmAddressBook", [](QtUser &user) {
        expectReachable(user, {u"cmdSelect", u"cmdCancel"});
        user.closeByFrame();
    });
    book->showModal();
}

} // namespace
} // namespace kvex::test
