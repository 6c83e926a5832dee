#include "tests/torture/monkey/Player.h"

#include "adapters/headless/HeadlessWindow.h"
#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"
#include "tests/torture/monkey/Hands.h"
#include "tests/torture/monkey/SuiteAddressBook.h"

namespace kvex::torture {

using headless::HeadlessWindow;

class Player::MonkeyPlatform final : public test::TestPlatform {
public:
    MonkeyPlatform(test::UtilityRecord &record, Toolkit &toolkit)
        : TestPlatform(record, toolkit, sqlite::provider()), toolkit_(toolkit) {}

    std::unique_ptr<AddressBook> createAddressBook() override {
        return std::make_unique<SuiteAddressBook>(toolkit_);
    }

private:
    Toolkit &toolkit_;
};

Player::Player(const Event &world, EventSource source)
    : world_(world.numbers.at(0), world.numbers.at(1)), source_(std::move(source)),
      watch_(world_, utility_, toolkit_) {
    toolkit_.whenAnyShown([this](headless::User &user) { playWindow(user); });
    session().blnChanged = false;
    ruleState() = RuleState();
}

void Player::play() {
    while (const auto event = take(nullptr)) {
        if (opensSession(event->kind)) {
            openSession(*event);
        }
    }
}

void Player::openSession(const Event &event) {
    opened_ = edited_ = event.numbers.empty() ? 0 : event.numbers.front();
    utility_.connectionString =
        event.kind == EventKind::openNowhere ? u"/nowhere/rules.db" : world_.connectionString();
    const std::u16string rule = opened_ == 0 ? u"" : toText(opened_);
    MonkeyPlatform platform(utility_, toolkit_);
    SessionOwner owner(platform);
    if (event.kind == EventKind::openTwice) {
        owner.OpenRules();
    }
    watch_.sessionOpens(event, opened_);
    const std::int32_t result = owner.ShowRules(u"1", rule);
    owner.release();
    watch_.sessionEnds(result);
}

void Player::playWindow(headless::User &user) {
    auto &window = dynamic_cast<HeadlessWindow &>(user.window());
    watch_.windowOpens(window);
    if (window.name() == u"frmRuleEdit" && window.caption() == u"New Rule") {
        edited_ = 0;
    }
    while (user.isOpen() && !isOver()) {
        const auto event = take(&window);
        if (!event) {
            break;
        }
        if (isPossible(*event, window)) {
            playInWindow(*event, user, window);
        }
    }
    if (user.isOpen()) {
        user.closeByFrame();
    }
}

void Player::playInWindow(const Event &event, headless::User &user, HeadlessWindow &window) {
    if (window.name() == u"frmRules" && selectedRule(window) > 0) {
        edited_ = ruleOf(window, selectedRule(window));
    }
    const Act act = actOf(event, window, edited_, answersYes_);
    utility_.answers = {answersYes_ ? message_box::yes : message_box::no};
    perform(event, user);
    watch_.actEnds(act, event, window);
}

std::optional<Event> Player::take(const HeadlessWindow *window) {
    while (!isOver()) {
        std::optional<Event> event =
            waiting_ ? std::exchange(waiting_, std::nullopt) : source_(window, watch_.lastTables());
        if (!event) {
            break;
        }
        if (window != nullptr && opensSession(event->kind)) {
            // The windows close first.
            waiting_ = std::move(event);
            break;
        }
        watch_.hears(*event);
        if (!doAnywhere(*event)) {
            return event;
        }
    }
    return std::nullopt;
}

bool Player::doAnywhere(const Event &event) {
    if (isOtherProgram(event.kind)) {
        world_.act(event);
        watch_.otherActed();
    } else if (event.kind == EventKind::answer) {
        answersYes_ = event.numbers.front() == 1;
    } else if (event.kind == EventKind::clipboard) {
        toolkit_.clipboard().setText(event.text);
    } else {
        return false;
    }
    return true;
}

} // namespace kvex::torture
