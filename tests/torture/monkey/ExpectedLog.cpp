#include "tests/torture/monkey/ExpectedLog.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kvex::torture {
namespace {

namespace number = error_number;

/// The error of a database, whatever its number.
constexpr std::int32_t anyOfTheDatabase = -1;

/// An error that `place` may log with this number while `circumstance` holds.
struct Known {
    std::u16string_view place;
    std::int32_t number;
    bool Circumstances::*circumstance = nullptr;
};

constexpr std::array known{
    // The answer No, and the removal of the last row.
    Known{u"Sub: cmdRemove_Click, Module: frmRules", number::indexOutOfBounds},

    // The world has a user and an account without a name.
    Known{u"Sub: GetUserName, Module: General", number::invalidUseOfNull},
    Known{u"Sub: GetAccountName, Module: General", number::invalidUseOfNull},

    Known{u"Sub: cmdRemove_Click, Module: frmRules", anyOfTheDatabase, &Circumstances::disturbed},
    Known{u"Sub: cmdOK_Click, Module: frmRules", anyOfTheDatabase, &Circumstances::disturbed},
    Known{u"Sub: cmdOK_Click, Module: frmRuleEdit", anyOfTheDatabase, &Circumstances::disturbed},

    Known{u"Sub: cmdOK_Click, Module: frmRuleEdit", number::badArgument,
          &Circumstances::apostrophes},

    Known{u"Sub: Form_Load, Module: frmRuleDate", number::typeMismatch,
          &Circumstances::missingTimes},

    Known{u"Sub: ListRules, Module: frmRules", number::invalidUseOfNull, &Circumstances::listEnds},
    // The last act was the removal of a rule.
    Known{u"Sub: ListRules, Module: frmRules", number::noCurrentRecord, &Circumstances::beganEmpty},
    Known{u"Sub: Form_Load, Module: frmRules", number::elementNotFound, &Circumstances::unlisted},
    Known{u"Sub: ShowRuleUI, Module: RuleUI", anyOfTheDatabase, &Circumstances::cannotOpen},
    Known{u"Sub: ShowRuleUI, Module: RuleUI", number::objectOpen, &Circumstances::cannotOpen},

    Known{u"Sub: LoadRuleFromDB, Module: General", number::invalidCall, &Circumstances::oddTexts},
    Known{u"Sub: BuildRuleDescription, Module: General", number::typeMismatch,
          &Circumstances::oddTexts},
    Known{u"Sub: BuildAccountList, Module: General", number::typeMismatch,
          &Circumstances::oddTexts},
    Known{u"Sub: BuildDistributionList, Module: General", number::typeMismatch,
          &Circumstances::oddTexts},
    Known{u"Sub: BuildDateTimeList, Module: General", number::typeMismatch,
          &Circumstances::oddTexts},
    Known{u"Sub: Form_Load(), Module: frmRuleAccount", number::typeMismatch,
          &Circumstances::oddTexts},
    Known{u"Sub: Form_Load, Module: frmRuleDistribute", number::typeMismatch,
          &Circumstances::oddTexts},
    Known{u"Sub: Form_Load, Module: frmRuleDate", number::typeMismatch, &Circumstances::oddTexts},
    Known{u"Sub: Form_Load, Module: frmRuleReply", number::elementNotFound,
          &Circumstances::oddTexts},
    Known{u"Sub: Form_Load, Module: frmRuleAlert", number::elementNotFound,
          &Circumstances::oddTexts},
};

} // namespace

bool isExpected(const test::LogEntry &entry, const Circumstances &now) {
    return std::ranges::any_of(known, [&](const Known &error) {
        return entry.text.ends_with(error.place) &&
               (error.number == anyOfTheDatabase ? entry.number < 0
                                                 : entry.number == error.number) &&
               (error.circumstance == nullptr || now.*error.circumstance);
    });
}

bool isExpected(const test::Report &report) {
    // The user left the address book without a choice.
    return report.text == u"KVEXMessageRules: Recipient selection failed on ManageContacts.";
}

bool isExpected(const Error &unhandled, const Circumstances &now) {
    // A tick in the rules window has no trap.
    return unhandled.fromDatabase() && now.disturbed;
}

} // namespace kvex::torture
