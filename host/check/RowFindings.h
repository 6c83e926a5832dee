// Finds rules whose row does not read back: something in it is lost, or read as something else.
#pragma once

#include "host/check/Finding.h"

namespace kvex::host {

[[nodiscard]] Remarks findIncompleteRow(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findUnclosedTag(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findTagBeyondReach(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findRepeatedTag(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findContradictingEntry(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findUnreadConditions(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findMisreadModifiers(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findNeitherYesNorNo(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findCutText(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findEmptyList(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findEmptyEntry(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findTooLong(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findRefusedByEditor(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findStoredDifferently(const Rulebook &book, const CheckedRule &rule);

} // namespace kvex::host
