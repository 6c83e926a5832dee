// What an error means for the user, as the record of an error says it to the utility object.
#pragma once

#include <cstdint>

namespace kvex {

/// What an error means for the user. A database error has the number that the database's library
/// chose, and one number can mean several things. The host suite has advice for each context. The
/// values cross the component's boundary, so they never change.
enum class HelpContext : std::int32_t {
    /// No advice beyond the error's description.
    none = 0,
    // The database cannot be opened.
    cannotConnect = 1,
    noDriver = 2,
    noDataSource = 3,
    wrongUser = 4,
    noFile = 5,
    notADatabase = 6,
    cutOff = 7,
    cannotMake = 8,
    // The database refuses a statement.
    connectionLost = 20,
    forbidden = 21,
    noTable = 22,
    badStatement = 23,
    constraint = 24,
    tooLong = 25,
    badValue = 26,
    locked = 27,
    lockedOrCutOff = 28,
    noAnswer = 29,
    diskFull = 30,
    inputOutput = 31,
    damaged = 32,
    fileMoved = 33,
    failed = 34,
    noNewKey = 35,
    // The rows are not as the record set read them, or cannot be written.
    changedByAnother = 50,
    noPrimaryKey = 51,
    valueNotKept = 52,
    newerSchema = 53,
    // The rules are not all there, or not all stored.
    ruleReadInPart = 70,
    listEndsEarly = 71,
    ruleNotStored = 72,
    orderNotStored = 73,
    ruleNotRemoved = 74,
};

} // namespace kvex
