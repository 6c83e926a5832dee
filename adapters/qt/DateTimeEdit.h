// A QDateTimeEdit that can show nothing, and that Tab leaves.
#pragma once

#include <QDateTimeEdit>

namespace kvex::qt {

class DateTimeEdit final : public QDateTimeEdit {
public:
    DateTimeEdit(QWidget *parent, const QString &format);

    /// Shows `value`, or nothing while it is not valid.
    void show(const QDateTime &value);

protected:
    [[nodiscard]] QString textFromDateTime(const QDateTime &value) const override;
    bool focusNextPrevChild(bool next) override;

private:
    bool empty_ = false;
};

} // namespace kvex::qt
