// A QDateTimeEdit that can show nothing, that Tab leaves, and that takes every date as it is typed.
// Its values are in UTC, whatever the system's time zone: no hour is missing on any day.
#pragma once

#include <QDateTimeEdit>

#include <optional>

namespace kvex::qt {

class DateTimeEdit final : public QDateTimeEdit {
public:
    DateTimeEdit(QWidget *parent, const QString &format);

    /// Shows `value`, or nothing while it is not valid.
    void show(const QDateTime &value);

    [[nodiscard]] QSize sizeHint() const override;

    QValidator::State validate(QString &text, int &position) const override;

protected:
    [[nodiscard]] QString textFromDateTime(const QDateTime &value) const override;
    [[nodiscard]] QDateTime dateTimeFromText(const QString &text) const override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    [[nodiscard]] QDateTime wholeValue(const QString &text) const;
    void typeDay(int digit);
    void typeIntoPart(QKeyEvent *digit);
    void setDay(int day);

    bool empty_ = false;
    /// The first digit of a day, until the second is typed.
    std::optional<int> firstDigit_;
    /// The day typed last, 0 for none, and the date that it and what was typed after it made.
    int typedDay_ = 0;
    QDate typedDate_;
};

} // namespace kvex::qt
