// The names of a rule's fields, beside the members that hold them.
#pragma once

#include "host/rules/Rule.h"

namespace kvex::host {

/// Calls `visit(name, member)` for each field of `rule`, in the order of kvex/RuleStrings.h. A
/// member is a bool, a text or Entries. `Values` is RuleValues, constant or not.
template <class Values, class Visit> void forEachField(Values &rule, const Visit &visit) {
    visit(u"allMessages", rule.allMessages);
    visit(u"ignoreIfService", rule.ignoreIfService);
    visit(u"people.not", rule.people.negated);
    visit(u"people.all", rule.people.all);
    visit(u"people.entries", rule.people.entries);
    visit(u"accounts.not", rule.accounts.negated);
    visit(u"accounts.all", rule.accounts.all);
    visit(u"accounts.entries", rule.accounts.entries);
    visit(u"words.not", rule.words.negated);
    visit(u"words.all", rule.words.all);
    visit(u"words.asCommand", rule.asCommand);
    visit(u"words.entries", rule.words.entries);
    visit(u"dateTime", rule.dateTime);
    visit(u"distribution", rule.distribution);
    visit(u"reply.text", rule.replyText);
    visit(u"reply.account", rule.replyAccount);
    visit(u"alert.text", rule.alertText);
    visit(u"alert.account", rule.alertAccount);
    visit(u"alert.recipients", rule.alertRecipients);
    visit(u"delete", rule.deleteIt);
    visit(u"ignoreFurtherRules", rule.ignoreFurtherRules);
}

} // namespace kvex::host
