// The client-side record set for every kind of database.
#pragma once

#include "adapters/recordset/OpenRows.h"
#include "platform/Database.h"

#include <optional>
#include <string_view>

namespace kvex::recordset {

/// Opens on a ClientConnection; open fails with badArgument on any other connection.
class ClientRecordset final : public Recordset {
public:
    void setCursorLocation(CursorLocation location) override;
    void open(std::u16string_view source, Connection &connection, CursorType cursor, LockType lock,
              std::int32_t options) override;
    [[nodiscard]] ObjectState state() const override;
    void close() override;

    [[nodiscard]] bool bof() const override;
    [[nodiscard]] bool eof() const override;
    [[nodiscard]] std::int32_t recordCount() const override;

    void moveFirst() override;
    void moveNext() override;
    void find(std::u16string_view criterion, std::int32_t skip) override;

    [[nodiscard]] ValueView field(std::u16string_view name) const override;
    void setField(std::u16string_view name, const Value &value) override;

    void requireWritable() override;
    void addNew() override;
    void update() override;
    void deleteCurrent() override;
    void resyncCurrent() override;

private:
    [[nodiscard]] const OpenRows &opened() const;
    [[nodiscard]] OpenRows &opened();

    std::optional<OpenRows> opened_;
};

} // namespace kvex::recordset
