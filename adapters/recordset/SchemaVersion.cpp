#include "adapters/recordset/SchemaVersion.h"

#include "adapters/recordset/RowStore.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace kvex::recordset {
namespace {

/// There is no such table, it is another program's, or the user may not read it. A server can
/// report the last for a missing table, too.
bool meansNoVersion(HelpContext context) {
    return context == HelpContext::noTable || context == HelpContext::badStatement ||
           context == HelpContext::forbidden;
}

} // namespace

std::optional<std::int64_t> schemaVersion(Driver &driver) {
    if (driver.lacks(schemaTable)) {
        return std::nullopt;
    }
    RowStore largest;
    try {
        const Statement query{u"SELECT MAX(" + std::u16string(versionColumn) + u") FROM " +
                                  std::u16string(schemaTable),
                              {}};
        driver.query(query, largest);
    } catch (const Error &error) {
        if (!meansNoVersion(error.helpContext())) {
            throw;
        }
        return std::nullopt;
    }
    const ValueView version = largest.rowCount() > 0 ? largest.value(0, 0) : ValueView();
    return version.isNull() ? std::nullopt : std::optional(version.int64());
}

std::u16string readOnlyReason(std::optional<std::int64_t> version) {
    if (version.value_or(0) <= knownSchemaVersion) {
        return {};
    }
    return u"The database's tables have version " + toText(*version) +
           u". This program knows version " + toText(knownSchemaVersion) +
           u", so it only reads them and stores no change.";
}

} // namespace kvex::recordset
